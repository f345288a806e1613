#include "platform/remoteconfig/LocalInstallations.h"

#include <QUuid>

namespace pellumar {

void LocalInstallations::authTokenForcingRefresh(bool forceRefresh, TokenHandler handler) {
    QString token;
    {
        const std::lock_guard lock(mutex_);
        if (forceRefresh || token_.isEmpty()) {
            token_ = QUuid::createUuid().toString(QUuid::WithoutBraces);
        }
        token = token_;
    }
    handler(token, std::nullopt);
}

}  // namespace pellumar
