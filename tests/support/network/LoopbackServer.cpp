#include "support/network/LoopbackServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <cstdlib>

namespace pellumar::test {
namespace {

// How soon the thread sees that it is to stop.
constexpr int kPollMilliseconds = 20;

bool waitFor(int socket, short events, const std::atomic<bool>& stopped) {
    while (!stopped) {
        pollfd ready{.fd = socket, .events = events, .revents = 0};
        if (::poll(&ready, 1, kPollMilliseconds) > 0) {
            return true;
        }
    }
    return false;
}

// False when the other end has closed.
bool receive(int socket, std::string& bytes, const std::atomic<bool>& stopped) {
    std::array<char, 4096> buffer{};
    if (!waitFor(socket, POLLIN, stopped)) {
        return false;
    }
    const ssize_t size = ::recv(socket, buffer.data(), buffer.size(), 0);
    if (size > 0) {
        bytes.append(buffer.data(), static_cast<std::size_t>(size));
    }
    return size > 0;
}

bool send(int socket, const std::string& bytes, const std::atomic<bool>& stopped) {
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        if (!waitFor(socket, POLLOUT, stopped)) {
            return false;
        }
        const ssize_t size =
            ::send(socket, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL | MSG_DONTWAIT);
        if (size <= 0) {
            return false;
        }
        sent += static_cast<std::size_t>(size);
    }
    return true;
}

std::size_t contentLength(const std::string& head) {
    constexpr std::string_view kName = "content-length:";
    const std::size_t at = head.find(kName);
    return at == std::string::npos ? 0
                                   : std::strtoul(head.c_str() + at + kName.size(), nullptr, 10);
}

}  // namespace

LoopbackServer::LoopbackServer(Handler handler) : handler_(std::move(handler)) {
    listener_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    if (::bind(listener_, generic, size) != 0 || ::listen(listener_, 16) != 0 ||
        ::getsockname(listener_, generic, &size) != 0) {
        std::perror("LoopbackServer");
        std::abort();
    }
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this] { run(); });
}

LoopbackServer::~LoopbackServer() {
    stopped_ = true;
    thread_.join();
    ::close(listener_);
}

HttpAnswer LoopbackServer::answer(int status, const std::string& body, const std::string& headers) {
    return {.bytes = "HTTP/1.1 " + std::to_string(status) + " Status\r\nConnection: close\r\n" +
                     "Content-Length: " + std::to_string(body.size()) + "\r\n" + headers + "\r\n" +
                     body};
}

QString LoopbackServer::address() const {
    return QStringLiteral("http://127.0.0.1:%1").arg(port_);
}

std::vector<HttpRequest> LoopbackServer::requests() const {
    const std::lock_guard lock(mutex_);
    return requests_;
}

void LoopbackServer::run() {
    while (waitFor(listener_, POLLIN, stopped_)) {
        const int connection = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        if (connection >= 0) {
            serve(connection);
            ::close(connection);
        }
    }
}

void LoopbackServer::serve(int connection) {
    std::string bytes;
    std::size_t headEnd = std::string::npos;
    while ((headEnd = bytes.find("\r\n\r\n")) == std::string::npos) {
        if (!receive(connection, bytes, stopped_)) {
            return;
        }
    }
    HttpRequest request{.head = bytes.substr(0, headEnd + 2), .body = bytes.substr(headEnd + 4)};
    std::transform(request.head.begin(), request.head.end(), request.head.begin(), [](char c) {
        return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    });
    while (request.body.size() < contentLength(request.head)) {
        if (!receive(connection, request.body, stopped_)) {
            return;
        }
    }
    {
        const std::lock_guard lock(mutex_);
        requests_.push_back(request);
    }
    const HttpAnswer answer = handler_(request);
    bool open = send(connection, answer.bytes, stopped_);
    while (open && answer.then == HttpAnswer::Then::kRepeatForEver) {
        // At the pace of a network: the thread of Qt that reads hears of nothing else while bytes
        // come faster than it can take them.
        ::poll(nullptr, 0, 1);
        open = send(connection, std::string(4096, ' '), stopped_);
    }
    std::string ignored;
    while (open && answer.then == HttpAnswer::Then::kKeepSilent) {
        open = receive(connection, ignored, stopped_);
    }
}

}  // namespace pellumar::test
