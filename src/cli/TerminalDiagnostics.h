#pragma once

#include <cstdint>
#include <cstdio>
#include <mutex>
#include <optional>
#include <string>

#include "engine/JobDiagnostics.h"

namespace pellumar {

// Keeps what goes wrong in a job until it is over, and prints oddities at once. All operations may
// be called from any thread.
class TerminalDiagnostics : public JobDiagnostics {
  public:
    // `stream` must outlive this; with `quiet`, oddities are not printed.
    TerminalDiagnostics(std::FILE* stream, bool quiet) : stream_(stream), quiet_(quiet) {}

    void jobFailed(const QUrl& archive, const archive::Error& error) override;
    void jobWarned(const QUrl& archive, const archive::Warnings& warnings) override;

    // The first failure and how many came after it, in one line without its end; nothing if there
    // was none.
    [[nodiscard]] std::optional<std::string> failure() const;

  private:
    std::FILE* stream_;
    bool quiet_;
    mutable std::mutex mutex_;
    std::string first_;
    std::uint64_t count_ = 0;
};

}  // namespace pellumar
