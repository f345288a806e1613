#include "screens/RemarksViewController.h"

#include <utility>

#include "platform/kit/Notice.h"

namespace pellumar {

RemarksViewController::RemarksViewController(const UIContext& context, Remarks remarks)
    : UIViewController(context), remarks_(std::move(remarks)) {}

QString RemarksViewController::headingOf(const Remarks& remarks) {
    if (remarks.areLosses) {
        return tr("Not everything could be rescued");
    }
    return remarks.count == 0 ? QString()
                              : tr("%Ln remarks", nullptr, static_cast<int>(remarks.count));
}

QString RemarksViewController::introduction() const {
    return remarks_.areLosses ? tr("What is whole stands in the list.")
                              : tr("The archive was opened all the same.");
}

void RemarksViewController::copyTapped() {
    const QString lines = remarks_.lines.join('\n');
    Notice::copy(window(), lines + QStringLiteral("\n\n") + remarks_.details);
}

}  // namespace pellumar
