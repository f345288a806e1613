#pragma once

#include <QString>
#include <cstdio>

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
    explicit StreamConsole(std::FILE* stream) : stream_(stream) {}

    // Every line is flushed, so that it is seen though the process ends badly. A stream that cannot
    // be written to loses it.
    void writeLine(const QString& line) override;

  private:
    std::FILE* stream_;
};

}  // namespace pellumar
