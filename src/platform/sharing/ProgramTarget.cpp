#include "platform/sharing/ProgramTarget.h"

#include <QProcess>
#include <QStandardPaths>

namespace pellumar {

bool ProgramTarget::canPerform(const ItemSummary& summary) const {
    return summary.folders == 0 && (summary.items.size() == 1 || description_.takesSeveral) &&
           !QStandardPaths::findExecutable(description_.program).isEmpty();
}

void ProgramTarget::perform(const QList<QUrl>& urls, const Done& done) {
    if (QProcess::startDetached(description_.program, description_.arguments(urls))) {
        done({.isCompleted = true});
    } else {
        done({.isCompleted = false,
              .error = text("%1 could not be started").arg(description_.program)});
    }
}

}  // namespace pellumar
