#include "screens/RemarksViewController.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLocale>
#include <utility>

#include "platform/kit/Notice.h"
#include "platform/kit/UIWindow.h"

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
    QGuiApplication::clipboard()->setText(remarks_.lines.join('\n') + QStringLiteral("\n\n") +
                                          remarks_.details);
    if (window() != nullptr) {
        Notice::show(context(), *window(), tr("Copied"));
    }
}

}  // namespace pellumar
