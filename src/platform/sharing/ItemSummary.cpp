#include "platform/sharing/ItemSummary.h"

#include <sys/stat.h>

#include "platform/FileUrl.h"
#include "platform/documents/UIDocumentInteractionController.h"

namespace pellumar {

ItemSummary ItemSummary::of(const QList<QUrl>& items) {
    ItemSummary summary;
    for (const QUrl& item : items) {
        const auto path = localPath(item);
        struct stat status {};
        const bool isKnown = path && ::stat(path->c_str(), &status) == 0;
        if (isKnown && S_ISREG(status.st_mode)) {
            summary.bytes += status.st_size;
        } else if (isKnown && S_ISDIR(status.st_mode)) {
            ++summary.folders;
        } else {
            ++summary.missing;
            continue;
        }
        summary.items.append(item);
    }
    if (!summary.items.isEmpty()) {
        summary.iconName = UIDocumentInteractionController(summary.items.first()).icons().last();
    }
    return summary;
}

}  // namespace pellumar
