#pragma once

#include "platform/kit/Notice.h"
#include "platform/sharing/ShareTarget.h"

namespace pellumar {

// Whether the desktop has a file manager that shows files.
[[nodiscard]] bool hasFileManager();

// Shows files in it: few are selected in their folder, of many only the folder is shown.
void showInFiles(const QList<QUrl>& urls, const ShareTarget::Done& done);

[[nodiscard]] QString showInFilesTitle();
// A button of a notice that does it; one without handler, which no notice shows, if there are no
// files or there is no file manager.
[[nodiscard]] Notice::Action showInFilesAction(const QList<QUrl>& urls);

}  // namespace pellumar
