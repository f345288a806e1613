#include "screens/RemarksViewController.h"

#include <QLocale>
#include <utility>

#include "platform/kit/Notice.h"

namespace pellumar {

RemarksViewController::RemarksViewController(const UIContext& context, Remarks remarks)
    : UIViewController(context), remarks_(std::move(remarks)) {}

QString RemarksViewController::headingOf(const Remarks& remarks) {
    if (remarks.areLosses) {
        return tr("Not everything could be rescued");
    }
    switch (remarks.count) {
        case 0:
            return {};
        case 1:
            return tr("1 remark");
        default:
            return tr("%1 remarks").arg(QLocale().toString(remarks.count));
    }
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
