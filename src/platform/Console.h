#pragma once

#include <QString>
#include <chrono>
#include <cstdio>
#include <mutex>

namespace pellumar {

// Diagnostics in plain lines, without levels.
class Console {
  public:
    virtual ~Console() = default;

    // Writes the line and a line end, as one piece, from any thread.
    virtual void writeLine(const QString& line) = 0;
};

// A console on an open stream, in UTF-8. The stream must outlive it.
class StreamConsole : public Console {
  public:
    // A line is flushed, so that it is seen though the process ends badly, unless one was less than
    // `patience` ago: thousands a second would each wake whoever reads them. What then waits in the
    // stream's buffer goes with the next line, or when the stream is flushed or closed.
    explicit StreamConsole(std::FILE* stream, std::chrono::milliseconds patience = {})
        : stream_(stream), patience_(patience) {}

    // A stream that cannot be written to loses the line.
    void writeLine(const QString& line) override;

  private:
    std::FILE* stream_;
    const std::chrono::milliseconds patience_;
    std::mutex mutex_;
    std::chrono::steady_clock::time_point flushed_;  // guarded by the mutex
};

}  // namespace pellumar
