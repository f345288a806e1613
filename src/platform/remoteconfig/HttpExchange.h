#pragma once

#include <QByteArray>
#include <QNetworkRequest>
#include <QString>
#include <chrono>
#include <optional>
#include <stop_token>

namespace pellumar {

struct HttpResponse {
    // Why there is no answer, for a person; then the rest says nothing.
    std::optional<QString> failure;
    int status = 0;
    // Decompressed.
    QByteArray body;
    QByteArray etag;
    QByteArray retryAfter;
};

// A larger body, decompressed, is given up while it is received.
inline constexpr qsizetype kMostBodyBytes = qsizetype{1} << 20;

// Posts `body` and waits for the answer, on any thread, with no event loop running there. Ends at
// once when `stop` is requested, and after `timeout` however the time was spent. Redirects are
// followed on the same scheme, host and port only. A QCoreApplication must exist.
[[nodiscard]] HttpResponse post(QNetworkRequest request,
                                const QByteArray& body,
                                std::chrono::milliseconds timeout,
                                const std::stop_token& stop);

}  // namespace pellumar
