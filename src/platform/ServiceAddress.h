#pragma once

#include <QString>
#include <QUrl>
#include <optional>

#include "platform/UserDefaults.h"

namespace pellumar {

// Something that tells the application where a service is, such as "REMOTE_CONFIG_URL": looked for
// in the environment, with "PELLUMAR_" before the name, then in the preferences, then in what was
// built in. What is set to nothing in the environment is nothing.
[[nodiscard]] QString serviceSetting(const UserDefaults& preferences,
                                     const QString& name,
                                     const char* builtIn);

// The URL of `path` ("/v1/logs") on the server at `address`, which may have a path itself. Nothing
// if the address is not one of HTTP or HTTPS.
[[nodiscard]] std::optional<QUrl> serviceUrl(const QString& address, const QString& path);

}  // namespace pellumar
