#pragma once

#include <thread>
#include <vector>

#include "archive/base/Error.h"
#include "archive/writing/CompressionQueue.h"
#include "archive/writing/OutputBuffers.h"
#include "archive/writing/SourceFile.h"

namespace pellumar::archive {

// The threads that open, read and compress what a queue tells them to, each with buffers and
// compressors of its own. Belongs to the thread that made it.
class CompressionThreads {
  public:
    // No threads at all.
    CompressionThreads() = default;
    // Stops the queue and waits for the threads to end.
    ~CompressionThreads();
    CompressionThreads(const CompressionThreads&) = delete;
    CompressionThreads& operator=(const CompressionThreads&) = delete;
    CompressionThreads(CompressionThreads&&) = delete;
    CompressionThreads& operator=(CompressionThreads&&) = delete;

    // Starts `count` threads, or as many as the system gives; kOutOfMemory if it gives none. To be
    // called once. `queue` and `buffers` live longer than this object; `archive`
    // is no source.
    [[nodiscard]] Result<> start(unsigned count,
                                 CompressionQueue& queue,
                                 OutputBuffers& buffers,
                                 const FileIdentity& archive);

    // Stops the queue and waits for the threads to end; later calls do nothing.
    void stop();

  private:
    CompressionQueue* queue_ = nullptr;
    std::vector<std::thread> threads_;
};

}  // namespace pellumar::archive
