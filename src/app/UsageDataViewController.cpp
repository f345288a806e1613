#include "app/UsageDataViewController.h"

#include <utility>

#include "platform/kit/Notice.h"

namespace pellumar {

UsageDataViewController::UsageDataViewController(const UIContext& context, UsageDataSource source)
    : UIViewController(context), source_(std::move(source)) {}

void UsageDataViewController::viewDidLoad() {
    UIViewController::viewDidLoad();
    question_ = askInBackground<Kept>(
        source_.mainQueue,
        source_.background,
        [read = source_.read](const auto& /*isWanted*/) {
            const std::optional<QByteArray> lines = read();
            return Kept{lines.value_or(QByteArray()), UsageData::of(lines)};
        },
        [this](const Kept& kept) {
            kept_ = kept;
            emit changed();
        });
}

void UsageDataViewController::copyTapped() {
    Notice::copy(window(), QString::fromUtf8(kept_.lines));
}

}  // namespace pellumar
