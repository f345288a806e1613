#include "platform/remoteconfig/HttpExchange.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTimer>

namespace pellumar {
namespace {

constexpr int kMostRedirects = 5;

void receive(QNetworkReply& reply, HttpResponse& response) {
    response.body += reply.read(kMostBodyBytes + 1 - response.body.size());
    if (response.body.size() > kMostBodyBytes && !response.failure) {
        response.failure = QStringLiteral("the answer is too large");
        reply.abort();
    }
}

// An answer of the server that is not the wished one is an answer nevertheless.
bool isAnswered(const QNetworkReply& reply, int status) {
    const QNetworkReply::NetworkError error = reply.error();
    return error == QNetworkReply::NoError ||
           (status >= 400 && error >= QNetworkReply::ContentAccessDenied);
}

void readHead(const QNetworkReply& reply, HttpResponse& response) {
    response.status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    response.etag = reply.rawHeader("ETag");
    response.retryAfter = reply.rawHeader("Retry-After");
    if (response.retryAfter.isEmpty()) {
        // Some papers of the protocol have it so.
        response.retryAfter = reply.rawHeader("Retry-Later");
    }
    if (response.failure || isAnswered(reply, response.status)) {
        return;
    }
    response.failure = reply.error() == QNetworkReply::InsecureRedirectError
                           ? QStringLiteral("the server redirects to another host")
                           : reply.errorString().simplified();
}

}  // namespace

HttpResponse post(QNetworkRequest request,
                  const QByteArray& body,
                  std::chrono::milliseconds timeout,
                  const std::stop_token& stop) {
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::SameOriginRedirectPolicy);
    request.setMaximumRedirectsAllowed(kMostRedirects);
    // Without encryption it would begin with an upgrade, which not every server understands.
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute,
                         request.url().scheme() == QLatin1String("https"));

    HttpResponse response;
    QEventLoop loop;
    QNetworkAccessManager manager;
    QNetworkReply& reply = *manager.post(request, body);
    QObject::connect(&reply, &QNetworkReply::readyRead, &reply, [&] { receive(reply, response); });
    QTimer deadline;
    deadline.setSingleShot(true);
    QObject::connect(&deadline, &QTimer::timeout, &reply, [&] {
        response.failure = QStringLiteral("the server does not answer in time");
        reply.abort();
    });
    deadline.start(timeout);
    const std::stop_callback wake(stop, [&loop] { loop.wakeUp(); });
    while (!reply.isFinished() && !stop.stop_requested()) {
        loop.processEvents(QEventLoop::WaitForMoreEvents);
    }
    if (!reply.isFinished()) {
        response.failure = QStringLiteral("cancelled");
        reply.abort();
        return response;
    }
    if (!response.failure) {
        receive(reply, response);
    }
    readHead(reply, response);
    return response;
}

}  // namespace pellumar
