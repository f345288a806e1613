#include "screens/CanShareFiles.h"

#include "platform/sharing/ActivityType.h"

namespace pellumar {

void CanShareFiles::shareFiles(const QList<QUrl>& urls,
                               const UIActivityViewController::CompletionWithItems& completion) {
    const auto sheet =
        makeController<UIActivityViewController>(services().ui, services().sharing, urls);
    sheet->setExcludedActivityTypes({activity::kAssignToContact, activity::kSaveToCameraRoll});
    sheet->setCompletionWithItemsHandler(whileAlive(completion));
    screen().present(sheet, true);
}

}  // namespace pellumar
