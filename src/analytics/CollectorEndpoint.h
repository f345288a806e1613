#pragma once

#include <QString>
#include <QUrl>
#include <optional>

#include "platform/UserDefaults.h"

namespace pellumar {

// Where measurements are sent, and what is shown there to be let in.
struct CollectorEndpoint {
    // Of the collector, "https://collector.example.org:4318" or with a path; empty: there is none.
    QString address;
    // Sent as "Authorization: Bearer" if not empty.
    QString bearerToken;

    // Each is looked for in the environment (PELLUMAR_ANALYTICS_URL, PELLUMAR_ANALYTICS_TOKEN),
    // then in the preferences (ANALYTICS_URL and so on), then in what was built in. One that is set
    // to nothing in the environment is nothing.
    [[nodiscard]] static CollectorEndpoint configured(const UserDefaults& preferences);

    // What to post to; nothing if the address is not one of HTTP or HTTPS.
    [[nodiscard]] std::optional<QUrl> logsUrl() const;
};

}  // namespace pellumar
