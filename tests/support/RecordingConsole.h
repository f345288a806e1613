#pragma once

#include <QStringList>
#include <mutex>

#include "platform/Console.h"

namespace pellumar::test {

// Keeps the lines.
class RecordingConsole : public Console {
  public:
    void writeLine(const QString& line) override {
        const std::lock_guard lock(mutex_);
        lines_.append(line);
    }

    [[nodiscard]] QStringList lines() const {
        const std::lock_guard lock(mutex_);
        return lines_;
    }

  private:
    mutable std::mutex mutex_;
    QStringList lines_;
};

}  // namespace pellumar::test
