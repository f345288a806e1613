#pragma once

#include <sys/stat.h>

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "archive/base/Error.h"
#include "archive/codecs/Encryptor.h"
#include "archive/writing/ArchiveWriter.h"
#include "archive/writing/OutputBuffers.h"
#include "archive/writing/SourceFile.h"

namespace pellumar::archive {

// One chunk of an entry as it will stand in the archive.
struct CompressedChunk {
    std::vector<std::uint8_t> small;  // the bytes, unless they are in `buffer`
    OutputBuffers::Buffer buffer;
    std::size_t size = 0;  // of what is in one of these
    std::uint64_t uncompressedSize = 0;
    std::uint32_t crc32 = 0;  // of the uncompressed bytes
    bool last = false;        // of its entry
    // With the first chunk of an entry that is to be encrypted: what encrypts all of them. Its key
    // takes longer than all else about a small entry.
    std::unique_ptr<Encryptor> encryptor;

    [[nodiscard]] MutableBytes data() { return {buffer ? buffer.get() : small.data(), size}; }
    // How much memory that takes.
    [[nodiscard]] std::size_t bytesHeld() const {
        return (buffer ? buffer.get_deleter().owner->size() : small.size()) +
               (encryptor ? Encryptor::kMemory : 0);
    }
};

// What stands between the thread that writes the archive and those that compress: which source and
// which chunk is next, and the results, handed over in the order in which they are asked for.
//
// Files are cut into chunks of `chunkSize`, so that one large file occupies all threads as many
// small ones do. Work goes on ahead of the writing as far as a fixed amount of memory allows; the
// chunk that is asked for next is always worked on, so nothing can stand still.
//
// Announcing, begin, takeChunk and end belong to one thread, the writer; the rest may be called
// from any number of others.
class CompressionQueue {
  public:
    using Source = ArchiveWriter::Source;

    // A source that was opened, as it was then.
    struct Opened {
        struct stat status {};
        std::uint64_t chunks = 0;  // none for a folder, at least one for a file
    };

    class Job;
    // What a worker is to do: to open the source, where `file` is null, and to compress the chunk.
    // The pointers live as long as the task.
    struct Task {
        const Source* source = nullptr;
        const SourceFile* file = nullptr;
        std::uint64_t chunk = 0;
        std::shared_ptr<Job> job;
    };

    // `taskBytes` is what each task is taken to hold until that is known; `mostBytesAhead` is how
    // much may be ready or under way at once.
    CompressionQueue(std::size_t chunkSize, std::size_t taskBytes, std::size_t mostBytesAhead)
        : chunkSize_(chunkSize), taskBytes_(taskBytes), mostBytesAhead_(mostBytesAhead) {}

    // ---- The writer's side

    // Says what begin() will ask for, in this order, instead of what an earlier call said. Not to
    // be called between begin() and end().
    void announce(std::vector<Source> next);

    // Makes `source` the current entry and waits until it is opened. An error if it cannot be
    // added; end() must be called in both cases. If something else was announced, the
    // announcements and the work done for them are dropped.
    [[nodiscard]] Result<Opened> begin(const Source& source);

    // Waits for the current entry's next chunk; to be called at most once for each. After an error
    // there are no more.
    [[nodiscard]] Result<CompressedChunk> takeChunk();

    // Leaves the current entry, whether all its chunks were taken or not.
    void end();

    // ---- The workers' side

    // Waits for something to do; nothing once the queue is stopped.
    [[nodiscard]] std::optional<Task> takeTask();

    // Reports how the opening went; a worker is to go on with the task's chunk if it is told true.
    [[nodiscard]] bool reportOpened(Task& task, Result<SourceFile> file);

    // Reports the task's chunk.
    void reportChunk(const Task& task, Result<CompressedChunk> chunk);

    // Says that a worker could not go on. From now on begin() and takeChunk() fail with `error`
    // instead of waiting.
    void fail(const Error& error);

    // Sends the workers home. Work done ahead is not needed any more.
    void stop();

  private:
    // All of these are called with the mutex held.
    [[nodiscard]] std::uint64_t chunksOf(const SourceFile& file) const;
    // Makes room for the result of the job's next chunk; true if it is the last.
    [[nodiscard]] static bool beginChunk(Job& job);
    [[nodiscard]] bool canTakeTask() const;
    void wakeWorkers();
    // If it waits, its head is ready and it pays: at the latest when a worker finds nothing to do.
    // The writer looks by itself now and then.
    void wakeWriter();
    // Fails if a worker could not go on and its head is not ready.
    [[nodiscard]] Result<> waitForHead(std::unique_lock<std::mutex>& lock);
    [[nodiscard]] bool isHeadReady() const;
    void releaseResult(const Result<CompressedChunk>& chunk);
    void dropJob(Job& job);
    void dropJobsFrom(std::size_t index);

    const std::size_t chunkSize_;
    const std::size_t taskBytes_;
    const std::size_t mostBytesAhead_;

    std::mutex mutex_;
    std::condition_variable workAvailable_;
    std::condition_variable headReady_;
    // What the mutex guards:
    bool stopping_ = false;
    std::optional<Error> failure_;
    bool writerWaits_ = false;
    unsigned reportsUnseen_ = 0;  // since the writer began to wait
    unsigned idleWorkers_ = 0;
    std::vector<Source> announced_;  // from nextAnnounced_ on: not yet made into jobs
    std::size_t nextAnnounced_ = 0;
    std::deque<std::shared_ptr<Job>> jobs_;     // the current entry and those after it, in order
    std::vector<std::shared_ptr<Job>> unread_;  // those with chunks nobody works on, in order
    std::uint64_t nextSequence_ = 0;
    std::size_t bytesReady_ = 0;  // results that wait
    std::size_t bytesAhead_ = 0;  // these, and the most that tasks under way can yield
};

}  // namespace pellumar::archive
