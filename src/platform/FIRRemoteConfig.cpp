#include "platform/FIRRemoteConfig.h"

#include "platform/FIRApp.h"

namespace pellumar {
namespace {

QString nameOf(RemoteConfigFetchStatus status) {
    switch (status) {
        case RemoteConfigFetchStatus::kNoFetchYet:
            return QStringLiteral("noFetchYet");
        case RemoteConfigFetchStatus::kSuccess:
            return QStringLiteral("success");
        case RemoteConfigFetchStatus::kFailure:
            return QStringLiteral("failure");
        case RemoteConfigFetchStatus::kThrottled:
            return QStringLiteral("throttled");
    }
    return QStringLiteral("unknown");
}

}  // namespace

QString toText(RemoteConfigFetchStatus status) {
    return QStringLiteral("%1 (%2)").arg(nameOf(status)).arg(static_cast<int>(status));
}

std::shared_ptr<FIRRemoteConfig> FIRRemoteConfig::remoteConfig() {
    return FIRApp::services().remoteConfig;
}

}  // namespace pellumar
