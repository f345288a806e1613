#include "analytics/CollectorEndpoint.h"

#include "platform/ServiceAddress.h"

namespace pellumar {

CollectorEndpoint CollectorEndpoint::configured(const UserDefaults& preferences) {
    const auto find = [&](const char* name, const char* builtIn) {
        return serviceSetting(preferences, QLatin1String(name), builtIn);
    };
    return {.address = find("ANALYTICS_URL", BUILT_IN_URL),
            .bearerToken = find("ANALYTICS_TOKEN", BUILT_IN_TOKEN)};
}

std::optional<QUrl> CollectorEndpoint::logsUrl() const {
    return serviceUrl(address, QStringLiteral("/v1/logs"));
}

}  // namespace pellumar
