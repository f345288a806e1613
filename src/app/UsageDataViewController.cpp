#include "app/UsageDataViewController.h"

#include <QClipboard>
#include <QGuiApplication>
#include <utility>

#include "platform/kit/Notice.h"
#include "platform/kit/UIWindow.h"

namespace pellumar {

UsageDataViewController::UsageDataViewController(const UIContext& context, UsageDataSource source)
    : UIViewController(context), source_(std::move(source)) {}

void UsageDataViewController::viewDidLoad() {
    UIViewController::viewDidLoad();
    source_.background.async(
        [read = source_.read, &mainQueue = source_.mainQueue, self = weakly(this)] {
            const std::optional<QByteArray> lines = read();
            mainQueue.async([lines, data = UsageData::of(lines), self] {
                if (const auto screen = self.lock()) {
                    screen->lines_ = lines.value_or(QByteArray());
                    screen->data_ = data;
                    emit screen->changed();
                }
            });
        });
}

void UsageDataViewController::copyTapped() {
    QGuiApplication::clipboard()->setText(QString::fromUtf8(lines_));
    if (window() != nullptr) {
        Notice::show(context(), *window(), tr("Copied"));
    }
}

bool UsageDataViewController::goBack() {
    doneTapped();
    return true;
}

}  // namespace pellumar
