#pragma once

#include <QByteArray>
#include <optional>

namespace pellumar {

// Carries batches to a collector, one at a time. Everything happens on the thread that has made it,
// whose event loop it may use.
class LogTransport {
  public:
    struct Answer {
        // Of HTTP; 0: there was no answer, or none of the collector.
        int status = 0;
        QByteArray body;
        QByteArray contentType;
        // The header, as it stands.
        QByteArray retryAfter;
    };

    virtual ~LogTransport() = default;

    // Begins to send a compressed batch, and returns. None may be on its way.
    virtual void send(const QByteArray& gzippedBody) = 0;
    // The answer, once; nothing while there is none. The event loop is woken when it comes.
    [[nodiscard]] virtual std::optional<Answer> takeAnswer() = 0;
    // Forgets the batch that is on its way; it may have arrived nevertheless.
    virtual void cancel() = 0;

    // Whether sending is known not to begin with a search for the server, which may hold up the end
    // of the process.
    [[nodiscard]] virtual bool knowsTheWay() const = 0;
};

}  // namespace pellumar
