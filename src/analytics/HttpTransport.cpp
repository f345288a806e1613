#include "analytics/HttpTransport.h"

#include <QHostAddress>
#include <QNetworkRequest>
#include <chrono>
#include <utility>

#include "platform/ServiceAddress.h"

namespace pellumar {
namespace {

constexpr int kTimeoutMilliseconds = 30'000;
// Qt looks up an address again after a minute (QHostInfo's cache).
constexpr std::chrono::seconds kWayKnown(50);

bool isThisMachine(const QUrl& url) {
    return url.host() == QLatin1String("localhost") || QHostAddress(url.host()).isLoopback();
}

}  // namespace

HttpTransport::HttpTransport(QUrl logsUrl, QString bearerToken)
    : url_(std::move(logsUrl)), bearerToken_(std::move(bearerToken)) {}

std::function<std::unique_ptr<HttpTransport>()> HttpTransport::maker(const QString& address,
                                                                     const QString& bearerToken) {
    const std::optional<QUrl> url = serviceUrl(address, QStringLiteral("/v1/logs"));
    const bool isEncrypted = url && url->scheme() == QLatin1String("https");
    if (!url || (!isEncrypted && !isThisMachine(*url))) {
        return {};
    }
    return [url = *url, token = isEncrypted ? bearerToken : QString()] {
        return std::make_unique<HttpTransport>(url, token);
    };
}

void HttpTransport::send(const QByteArray& gzippedBody) {
    if (!manager_) {
        manager_ = std::make_unique<QNetworkAccessManager>();
    }
    QNetworkRequest request(url_);
    request.setHeader(QNetworkRequest::ContentTypeHeader, "application/json");
    request.setHeader(QNetworkRequest::UserAgentHeader, "pellumar-analytics");
    request.setRawHeader("Content-Encoding", "gzip");
    // Else it would be the user's.
    request.setRawHeader("Accept-Language", "*");
    if (!bearerToken_.isEmpty()) {
        request.setRawHeader("Authorization", "Bearer " + bearerToken_.toUtf8());
    }
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    // A collector does not redirect; what does is on the way to it, and gets nothing.
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::ManualRedirectPolicy);
    // Without encryption it would begin with an upgrade, which not every collector understands.
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute,
                         url_.scheme() == QLatin1String("https"));
    request.setTransferTimeout(kTimeoutMilliseconds);
    reply_.reset(manager_->post(request, gzippedBody));
    // Nobody reads what an answer says. To break off would lose the status, and a final answer
    // would pass for a lost connection.
    QObject::connect(reply_.get(), &QNetworkReply::readyRead, reply_.get(), [this] {
        reply_->skip(reply_->bytesAvailable());
    });
}

std::optional<HttpTransport::Answer> HttpTransport::takeAnswer() {
    if (!reply_ || !reply_->isFinished()) {
        return std::nullopt;
    }
    const QNetworkReply::NetworkError error = reply_->error();
    Answer answer{
        .status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(),
        .contentType = reply_->rawHeader("Content-Type"),
        .retryAfter = reply_->rawHeader("Retry-After"),
    };
    reply_.reset();
    // Below them are the errors of the network, which can also come after the first line. A refusal
    // is one however it ends.
    const bool isRefused = answer.status >= 400;
    if (error != QNetworkReply::NoError && error < QNetworkReply::ContentAccessDenied &&
        !isRefused) {
        answer = {};
    }
    if (answer.status != 0) {
        wayKnown_.setRemainingTime(kWayKnown);
    }
    return answer;
}

bool HttpTransport::knowsTheWay() const {
    QHostAddress literal;
    return !wayKnown_.hasExpired() || literal.setAddress(url_.host());
}

}  // namespace pellumar
