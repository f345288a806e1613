#include "platform/remoteconfig/RemoteConfigEndpoint.h"

#include "platform/ServiceAddress.h"

namespace pellumar {

RemoteConfigEndpoint RemoteConfigEndpoint::configured(const UserDefaults& preferences) {
    const auto find = [&](const char* name, const char* builtIn) {
        return serviceSetting(preferences, QLatin1String(name), builtIn);
    };
    return {.address = find("REMOTE_CONFIG_URL", BUILT_IN_URL),
            .bearerToken = find("REMOTE_CONFIG_TOKEN", BUILT_IN_TOKEN),
            .apiKey = find("REMOTE_CONFIG_API_KEY", BUILT_IN_API_KEY)};
}

std::optional<QUrl> RemoteConfigEndpoint::evaluationUrl() const {
    return serviceUrl(address, QStringLiteral("/ofrep/v1/evaluate/flags"));
}

}  // namespace pellumar
