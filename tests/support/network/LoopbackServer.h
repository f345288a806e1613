#pragma once

#include <QString>
#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace pellumar::test {

struct HttpRequest {
    // With the request line, names in small letters.
    std::string head;
    std::string body;
};

struct HttpAnswer {
    // What happens to the connection after the bytes.
    enum class Then { kClose, kKeepSilent, kRepeatForEver };

    std::string bytes;
    Then then = Then::kClose;
};

// An HTTP server on 127.0.0.1 with a thread of its own, which takes one connection after the other
// and one request of each.
class LoopbackServer {
  public:
    using Handler = std::function<HttpAnswer(const HttpRequest&)>;

    // The handler runs on the server's thread.
    explicit LoopbackServer(Handler handler);
    ~LoopbackServer();
    LoopbackServer(const LoopbackServer&) = delete;
    LoopbackServer& operator=(const LoopbackServer&) = delete;

    // A whole answer, with its length.
    [[nodiscard]] static HttpAnswer answer(int status,
                                           const std::string& body,
                                           const std::string& headers = {});

    [[nodiscard]] int port() const { return port_; }
    [[nodiscard]] QString address() const;
    [[nodiscard]] std::vector<HttpRequest> requests() const;
    [[nodiscard]] std::size_t requestCount() const { return requests().size(); }

  private:
    void run();
    void serve(int connection);

    Handler handler_;
    int listener_ = -1;
    int port_ = 0;
    std::atomic<bool> stopped_ = false;
    mutable std::mutex mutex_;
    std::vector<HttpRequest> requests_;
    std::thread thread_;
};

}  // namespace pellumar::test
