#pragma once

#include <QDeadlineTimer>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QUrl>
#include <functional>
#include <memory>

#include "analytics/CollectorEndpoint.h"
#include "analytics/LogTransport.h"

namespace pellumar {

// To a collector over HTTP, on one connection that is kept. No cookies, no language of the user. A
// QCoreApplication must exist.
class HttpTransport : public LogTransport {
  public:
    HttpTransport(QUrl logsUrl, QString bearerToken);
    ~HttpTransport() override;
    HttpTransport(const HttpTransport&) = delete;
    HttpTransport& operator=(const HttpTransport&) = delete;

    // What makes one for an endpoint; empty if that has no usable address.
    [[nodiscard]] static std::function<std::unique_ptr<LogTransport>()> maker(
        const CollectorEndpoint& endpoint);

    void send(const QByteArray& gzippedBody) override;
    [[nodiscard]] std::optional<Answer> takeAnswer() override;
    void cancel() override;
    [[nodiscard]] bool knowsTheWay() const override;

  private:
    void receive();

    const QUrl url_;
    const QString bearerToken_;
    // For so long after an answer, no server has to be looked for.
    QDeadlineTimer wayKnown_{0};
    // Made for the first batch: most of the engine's memory is behind it.
    std::unique_ptr<QNetworkAccessManager> manager_;
    std::unique_ptr<QNetworkReply> reply_;
    QByteArray body_;
};

}  // namespace pellumar
