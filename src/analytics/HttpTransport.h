#pragma once

#include <QDeadlineTimer>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QUrl>
#include <functional>
#include <memory>
#include <optional>

namespace pellumar {

// Carries batches to a collector over HTTP, one at a time, on one connection that is kept. No
// cookies, no language of the user. Everything happens on the thread that has made it, whose event
// loop it uses. A QCoreApplication must exist.
class HttpTransport {
  public:
    struct Answer {
        // Of HTTP; 0: there was no answer, or none of the collector.
        int status = 0;
        QByteArray contentType;
        // The header, as it stands.
        QByteArray retryAfter;
    };

    HttpTransport(QUrl logsUrl, QString bearerToken);
    virtual ~HttpTransport() = default;
    HttpTransport(const HttpTransport&) = delete;
    HttpTransport& operator=(const HttpTransport&) = delete;

    // What makes one for a collector at `address`, "https://collector.example.org:4318" or with a
    // path. Empty without an address, and for one that would let others read along: HTTP without
    // encryption is for this machine only, and a token, sent as "Authorization: Bearer", is left
    // out then.
    [[nodiscard]] static std::function<std::unique_ptr<HttpTransport>()> maker(
        const QString& address,
        const QString& bearerToken);

    // Begins to send a compressed batch, and returns. None may be on its way.
    virtual void send(const QByteArray& gzippedBody);
    // The answer, once; nothing while there is none. The event loop is woken when it comes.
    [[nodiscard]] virtual std::optional<Answer> takeAnswer();
    // Forgets the batch that is on its way; it may have arrived nevertheless.
    void cancel() { reply_.reset(); }
    // Whether sending is known not to begin with a search for the server, which may hold up the end
    // of the process.
    [[nodiscard]] bool knowsTheWay() const;

  private:
    const QUrl url_;
    const QString bearerToken_;
    // For so long after an answer, no server has to be looked for.
    QDeadlineTimer wayKnown_{0};
    // Made for the first batch: most of the engine's memory is behind it.
    std::unique_ptr<QNetworkAccessManager> manager_;
    std::unique_ptr<QNetworkReply> reply_;
};

}  // namespace pellumar
