#pragma once

#include <chrono>
#include <cstdio>
#include <mutex>

#include "engine/ZipManagerDelegate.h"

namespace pellumar {

// One line on a terminal that tells how far a compression is, and rewrites itself. All operations
// may be called from any thread.
class TerminalProgress : public ZipManagerDelegate {
  public:
    // Shows that none of `total` files is done. The stream must outlive this.
    TerminalProgress(std::FILE* terminal, qint64 total);
    // Takes the line away.
    ~TerminalProgress() override;
    TerminalProgress(const TerminalProgress&) = delete;
    TerminalProgress& operator=(const TerminalProgress&) = delete;

    void zipManagerDidAddFile(qint64 done, qint64 total) override;

  private:
    void show(qint64 done, qint64 total);

    std::FILE* terminal_;
    std::mutex mutex_;
    std::chrono::steady_clock::time_point shown_;
};

}  // namespace pellumar
