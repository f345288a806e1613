#include "screens/CanShareFiles.h"

#include "platform/kit/UIWindow.h"
#include "platform/sharing/ActivityType.h"

namespace pellumar {

void CanShareFiles::shareFiles(const QList<QUrl>& urls,
                               const UIActivityViewController::CompletionWithItems& completion) {
    const auto sheet =
        makeController<UIActivityViewController>(services().ui, services().sharing, urls);
    sheet->setModalPresentationStyle(UIModalPresentationStyle::kPopover);
    const UIWindow* const window = screen().window();
    if (window != nullptr && window->userInterfaceIdiom() == UIUserInterfaceIdiom::kPad) {
        const QSizeF size = screen().view().size();
        sheet->setPopoverSourceRect(QRectF(size.width() / 2, size.height() / 2, 0, 0));
    }
    sheet->setExcludedActivityTypes({activity::kAssignToContact, activity::kSaveToCameraRoll});
    sheet->setCompletionWithItemsHandler(whileAlive(completion));
    screen().present(sheet, true);
}

}  // namespace pellumar
