#include "platform/sharing/ProgramTarget.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <algorithm>

namespace pellumar {

bool ProgramTarget::canPerform(const QList<QUrl>& urls) const {
    const bool isTooMuch = urls.size() > 1 && !description_.takesSeveral;
    return !urls.isEmpty() && !isTooMuch &&
           !QStandardPaths::findExecutable(description_.program).isEmpty() &&
           std::all_of(urls.begin(), urls.end(), [](const QUrl& url) {
               return QFileInfo(url.toLocalFile()).isFile();
           });
}

void ProgramTarget::perform(const QList<QUrl>& urls, const Done& done) {
    if (QProcess::startDetached(description_.program, description_.arguments(urls))) {
        done({.isCompleted = true, .error = {}});
    } else {
        done({.isCompleted = false,
              .error = QCoreApplication::translate("ShareTarget", "%1 could not be started")
                           .arg(description_.program)});
    }
}

}  // namespace pellumar
