#pragma once

#include <QString>
#include <QUrl>
#include <optional>

#include "platform/UserDefaults.h"

namespace pellumar {

// Where remote parameters are fetched, and what is shown there to be let in.
struct RemoteConfigEndpoint {
    // Of the server, "https://flags.example.org" or with a path; empty: there is none.
    QString address;
    // Sent as "Authorization: Bearer" and "X-API-Key" if not empty.
    QString bearerToken;
    QString apiKey;

    // Each of the three is looked for in the environment (PELLUMAR_REMOTE_CONFIG_URL,
    // ..._TOKEN, ..._API_KEY), then in the preferences (REMOTE_CONFIG_URL and so on), then in what
    // was built in. One that is set to nothing in the environment is nothing.
    [[nodiscard]] static RemoteConfigEndpoint configured(const UserDefaults& preferences);

    // What to post to; nothing if the address is not one of HTTP or HTTPS.
    [[nodiscard]] std::optional<QUrl> evaluationUrl() const;
};

}  // namespace pellumar
