#include "analytics/InstallationIdentifier.h"

#include <QUuid>

namespace pellumar {
namespace {

const QString kKey = QStringLiteral("installation");

}  // namespace

void InstallationIdentifier::ensure() {
    if (current().isEmpty()) {
        state_.set(kKey, random());
    }
}

QString InstallationIdentifier::current() {
    return state_.text(kKey).value_or(QString());
}

QString InstallationIdentifier::random() {
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

}  // namespace pellumar
