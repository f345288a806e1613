#pragma once

#include <QDeadlineTimer>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QUrl>
#include <functional>
#include <memory>
#include <optional>

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

    // What makes one for a collector at `address`, "https://collector.example.org:4318" or with a
    // path. Empty without an address, and for one that would let others read along: HTTP without
    // encryption is for this machine only, and a token, sent as "Authorization: Bearer", is left
    // out then.
    [[nodiscard]] static std::function<std::unique_ptr<LogTransport>()> maker(
        const QString& address,
        const QString& bearerToken);

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
