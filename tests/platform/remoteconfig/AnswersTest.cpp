#include <gtest/gtest.h>

#include <QLocale>
#include <algorithm>
#include <atomic>

#include "ServiceTest.h"
#include "remote/RemoteSettings.h"

namespace pellumar {
namespace {

using test::HttpAnswer;
using test::LoopbackServer;

// From the server's answer to the lines that a developer sees.
class AnswersTest : public test::ServiceTest {
  protected:
    // The lines of one cycle of a new store over a new service, which must complete exactly once.
    std::string linesOf(const RemoteConfigService::Options& options) {
        test::RecordingConsole lines;
        std::atomic<int> completions = 0;
        std::promise<void> first;
        const auto service = std::make_shared<RemoteConfigService>(options, console_);
        service->start();
        const auto settings = std::make_shared<RemoteSettings>(service, lines);
        settings->fetch([&] {
            if (++completions == 1) {
                first.set_value();
            }
        });
        EXPECT_EQ(first.get_future().wait_for(test::kDeadline), std::future_status::ready);
        service->stop();
        EXPECT_EQ(completions, 1);
        return lines.lines().join('\n').toStdString();
    }
    std::string linesOf(HttpAnswer answer) {
        setAnswer(std::move(answer));
        return linesOf(options());
    }

    static inline const std::string kFailed = "Failed to fetch scenario: ";
    static inline const std::string kThrottled =
        "Failed to fetch scenario with status throttled (3)";
    static inline const std::string kOne =
        "Activate remote configs successfuly\n\nREMOTE CONFIGS:\n    key: one\n";
};

TEST_F(AnswersTest, ValuesAreActivated) {
    EXPECT_EQ(linesOf(options()), kOne);
    const test::HttpRequest request = server_.requests().at(0);
    EXPECT_EQ(request.head.find("post /ofrep/v1/evaluate/flags http/1.1\r\n"), 0U);
    EXPECT_NE(request.head.find("content-type: application/json\r\n"), std::string::npos);
    EXPECT_EQ(request.head.find("if-none-match"), std::string::npos);
    EXPECT_EQ(request.head.find("authorization"), std::string::npos);
    EXPECT_EQ(request.body.find(R"({"context":{"targetingKey":")"), 0U);
    EXPECT_EQ(console_.lines().join('\n').toStdString(), "");
}

TEST_F(AnswersTest, CredentialsAreShownAndTheInstallationStaysTheSame) {
    EXPECT_EQ(linesOf(options()), kOne);
    RemoteConfigService::Options other = options();
    other.endpoint = {.address = server_.address() + "/base/", .bearerToken = "b1", .apiKey = "k1"};
    EXPECT_EQ(linesOf(other), kOne);
    const auto requests = server_.requests();
    ASSERT_EQ(requests.size(), 2U);
    EXPECT_EQ(requests[1].head.find("post /base/ofrep/v1/evaluate/flags "), 0U);
    EXPECT_NE(requests[1].head.find("authorization: bearer b1\r\n"), std::string::npos);
    EXPECT_NE(requests[1].head.find("x-api-key: k1\r\n"), std::string::npos);
    // Another address is another server's matter: neither fresh nor its ETag.
    EXPECT_EQ(requests[1].head.find("if-none-match"), std::string::npos);
    EXPECT_EQ(requests[0].body, requests[1].body);
}

TEST_F(AnswersTest, FreshValuesNeedNoRequestAndUnchangedOnesNoBody) {
    EXPECT_EQ(linesOf(options()), kOne);
    setAnswer(LoopbackServer::answer(304, ""));
    advance(std::chrono::seconds(3599));
    EXPECT_EQ(linesOf(options()), kOne);
    EXPECT_EQ(server_.requestCount(), 1U);

    advance(std::chrono::seconds(1));
    EXPECT_EQ(linesOf(options()), kOne);
    ASSERT_EQ(server_.requestCount(), 2U);
    EXPECT_NE(server_.requests()[1].head.find("if-none-match: \"v1\"\r\n"), std::string::npos);

    // The server's word makes them fresh again.
    EXPECT_EQ(linesOf(options()), kOne);
    EXPECT_EQ(server_.requestCount(), 2U);

    // A clock that was set back says nothing about their age.
    advance(std::chrono::seconds(-10));
    EXPECT_EQ(linesOf(options()), kOne);
    EXPECT_EQ(server_.requestCount(), 3U);
}

TEST_F(AnswersTest, ARefusalWithATimeHoldsOffEveryProcess) {
    EXPECT_EQ(linesOf(LoopbackServer::answer(429, "", "Retry-After: 120\r\n")), kThrottled);
    setAnswer(LoopbackServer::answer(200, test::oneFlag("one")));
    advance(std::chrono::seconds(119));
    EXPECT_EQ(linesOf(options()), kThrottled);
    EXPECT_EQ(server_.requestCount(), 1U);
    advance(std::chrono::seconds(1));
    EXPECT_EQ(linesOf(options()), kOne);

    for (const int status : {429, 401, 403}) {
        advance(std::chrono::hours(48));
        EXPECT_EQ(linesOf(LoopbackServer::answer(status, "", "Retry-Later: 3600\r\n")), kThrottled);
        EXPECT_EQ(linesOf(LoopbackServer::answer(500, "")), kThrottled);
    }
    // A clock that was set back by days does not hold off for days.
    advance(std::chrono::hours(-72));
    const QDateTime date = QDateTime::fromMSecsSinceEpoch(now_ + 7'200'000, Qt::UTC);
    const std::string text =
        QLocale::c().toString(date, "ddd, dd MMM yyyy hh:mm:ss 'GMT'").toStdString();
    EXPECT_EQ(linesOf(LoopbackServer::answer(429, "", "Retry-After: " + text + "\r\n")),
              kThrottled);
    advance(std::chrono::hours(1));
    const std::size_t before = server_.requestCount();
    EXPECT_EQ(linesOf(options()), kThrottled);
    EXPECT_EQ(server_.requestCount(), before);
    advance(std::chrono::hours(1));
    EXPECT_EQ(linesOf(LoopbackServer::answer(200, test::oneFlag("one"))), kOne);
}

TEST_F(AnswersTest, RefusalsAndGarbageFailAndChangeNothing) {
    EXPECT_EQ(linesOf(options()), kOne);
    advance(std::chrono::hours(2));
    EXPECT_EQ(linesOf(LoopbackServer::answer(401, "")), kFailed + "the server answers 401");
    EXPECT_EQ(linesOf(LoopbackServer::answer(403, "<html>")), kFailed + "the server answers 403");
    EXPECT_EQ(linesOf(LoopbackServer::answer(500, R"({"errorDetails":"no\ndisk"})")),
              kFailed + "the server answers 500: no disk");
    EXPECT_EQ(linesOf(LoopbackServer::answer(204, "")), kFailed + "the server answers 204");
    EXPECT_EQ(linesOf(LoopbackServer::answer(200, "{\"flags\":[")),
              kFailed + "the answer cannot be read");
    EXPECT_EQ(linesOf({.bytes = "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n{\"flags\":[]}"}),
              kFailed + "Connection closed");
    EXPECT_EQ(read(*service()), "one");
    EXPECT_EQ(linesOf(LoopbackServer::answer(429, "")), kThrottled);
}

TEST_F(AnswersTest, AnEndlessBodyIsCutOff) {
    const std::string head = "HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n{\"flags\":[";
    EXPECT_EQ(linesOf({.bytes = head, .then = HttpAnswer::Then::kRepeatForEver}),
              kFailed + "the answer is too large");
    const std::string large(2 << 20, ' ');
    EXPECT_EQ(linesOf(LoopbackServer::answer(200, large)), kFailed + "the answer is too large");
}

TEST_F(AnswersTest, ASilentServerIsGivenUp) {
    for (const char* bytes : {"", "HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\n{"}) {
        RemoteConfigService::Options hasty = options();
        hasty.timeout = std::chrono::milliseconds(100);
        setAnswer({.bytes = bytes, .then = HttpAnswer::Then::kKeepSilent});
        EXPECT_EQ(linesOf(hasty), kFailed + "the server does not answer in time");
    }
}

TEST_F(AnswersTest, RedirectsStayWithTheServer) {
    const std::string elsewhere = "http://localhost:" + std::to_string(server_.port()) + "/x";
    EXPECT_EQ(linesOf(LoopbackServer::answer(307, "", "Location: " + elsewhere + "\r\n")),
              kFailed + "the server redirects to another host");
    EXPECT_EQ(server_.requestCount(), 1U);
}

TEST_F(AnswersTest, WithoutAnAddressThereIsNoRequest) {
    RemoteConfigService::Options none = options();
    for (const auto& [address, error] : {
             std::pair("", "no address is set"),
             std::pair("flags.example.org", "not an address: flags.example.org"),
             std::pair("ftp://127.0.0.1", "not an address: ftp://127.0.0.1"),
             std::pair("http://", "not an address: http://"),
         }) {
        none.endpoint.address = address;
        EXPECT_EQ(linesOf(none), kFailed + error);
    }
    EXPECT_EQ(server_.requestCount(), 0U);
    EXPECT_FALSE(std::filesystem::exists(folder_ / "config"));
}

TEST_F(AnswersTest, TenThousandFlags) {
    std::string body = R"({"flags":[)";
    for (int i = 0; i < 10'000; ++i) {
        body += R"({"key":"flag)" + std::to_string(i) + R"(","value":)" + std::to_string(i) + "},";
    }
    body.back() = ']';
    const std::string lines = linesOf(LoopbackServer::answer(200, body + "}"));
    EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 10'003);
    EXPECT_NE(lines.find("\n    flag9999: 9999\n"), std::string::npos);
}

}  // namespace
}  // namespace pellumar
