#include "archive/writing/CompressionQueue.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace pellumar::archive {

namespace {

// What a job costs beside its results.
constexpr std::size_t kJobBytes = 1024;

// Of small files the writer is given so many at a time: woken for each, it would take a processor
// from a thread that compresses, for a moment's work.
constexpr unsigned kReportsPerWake = 16;

}  // namespace

// One source on its way. `source` and `sequence` never change, `file` does not while
// tasks read it; the queue's mutex guards the rest.
class CompressionQueue::Job {
  public:
    explicit Job(Source from) : source(std::move(from)) {}

    const Source source;
    std::uint64_t sequence = 0;

    std::optional<Result<Opened>> opened;
    SourceFile file;
    std::uint64_t nextToRead = 0;  // the first chunk that nobody works on
    std::uint64_t chunksDone = 0;
    std::deque<std::optional<Result<CompressedChunk>>> results;  // from nextToTake to nextToRead
    std::uint64_t nextToTake = 0;
    bool dropped = false;

    // Whether the writer can go on: the next chunk is there, or there is none.
    [[nodiscard]] bool isReady() const {
        return opened && (!*opened || nextToTake == (*opened)->chunks ||
                          (!results.empty() && results.front()));
    }
};

void CompressionQueue::announce(std::vector<Source> next) {
    const std::lock_guard lock(mutex_);
    // What was done ahead and is still wanted stays.
    std::size_t kept = 0;
    while (kept < std::min(jobs_.size(), next.size()) && jobs_[kept]->source == next[kept]) {
        ++kept;
    }
    dropJobsFrom(kept);
    announced_ = std::move(next);
    nextAnnounced_ = kept;
    wakeWorkers();
}

Result<CompressionQueue::Opened> CompressionQueue::begin(const Source& source) {
    std::unique_lock lock(mutex_);
    const bool announced =
        jobs_.empty() ? nextAnnounced_ < announced_.size() && announced_[nextAnnounced_] == source
                      : jobs_.front()->source == source;
    if (!announced) {
        dropJobsFrom(0);
        announced_ = {source};
        nextAnnounced_ = 0;
        wakeWorkers();
    }
    if (auto ready = waitForHead(lock); !ready) {
        return passOn(ready);
    }
    return *jobs_.front()->opened;
}

Result<CompressedChunk> CompressionQueue::takeChunk() {
    std::unique_lock lock(mutex_);
    if (auto ready = waitForHead(lock); !ready) {
        return passOn(ready);
    }
    Job& job = *jobs_.front();
    Result<CompressedChunk> chunk = *std::move(job.results.front());
    job.results.pop_front();
    ++job.nextToTake;
    releaseResult(chunk);
    wakeWorkers();
    return chunk;
}

void CompressionQueue::end() {
    const std::lock_guard lock(mutex_);
    if (!jobs_.empty()) {
        dropJob(*jobs_.front());
        jobs_.pop_front();
    }
    wakeWorkers();
}

std::optional<CompressionQueue::Task> CompressionQueue::takeTask() {
    std::unique_lock lock(mutex_);
    while (!stopping_ && !canTakeTask()) {
        ++idleWorkers_;
        wakeWriter();
        workAvailable_.wait(lock);
        --idleWorkers_;
    }
    if (stopping_) {
        return std::nullopt;
    }
    Task task;
    if (unread_.empty()) {
        task.job = std::make_shared<Job>(std::move(announced_[nextAnnounced_++]));
        task.job->sequence = nextSequence_++;
        jobs_.push_back(task.job);
        bytesAhead_ += kJobBytes;
    } else {
        task.job = unread_.front();
        task.file = &task.job->file;
        task.chunk = task.job->nextToRead;
        if (beginChunk(*task.job)) {
            unread_.erase(unread_.begin());
        }
    }
    task.source = &task.job->source;
    bytesAhead_ += taskBytes_;
    // Whoever made this task possible woke one worker; there may be more to do.
    wakeWorkers();
    return task;
}

bool CompressionQueue::reportOpened(Task& task, Result<SourceFile> file) {
    const std::lock_guard lock(mutex_);
    Job& job = *task.job;
    if (file) {
        job.opened = Opened{.status = file->status(), .chunks = chunksOf(*file)};
    } else {
        job.opened = passOn(file);
    }
    if (!file || file->isFolder() || job.dropped) {
        bytesAhead_ -= taskBytes_;
        ++reportsUnseen_;
        wakeWriter();
        return false;
    }
    job.file = std::move(*file);
    task.file = &job.file;
    if (!beginChunk(job)) {
        // The order of the entries, not that of opening, says whose chunks are next.
        const auto after =
            std::find_if(unread_.begin(), unread_.end(), [&job](const std::shared_ptr<Job>& other) {
                return other->sequence > job.sequence;
            });
        unread_.insert(after, task.job);
        wakeWorkers();
    }
    return true;
}

void CompressionQueue::reportChunk(const Task& task, Result<CompressedChunk> chunk) {
    SourceFile finished;  // to be closed when the lock is free
    const std::lock_guard lock(mutex_);
    Job& job = *task.job;
    bytesAhead_ -= taskBytes_;
    if (++job.chunksDone == (*job.opened)->chunks) {
        finished = std::move(job.file);
    }
    if (!job.dropped) {
        const std::size_t held = chunk ? chunk->bytesHeld() : 0;
        bytesReady_ += held;
        bytesAhead_ += held;
        job.results[static_cast<std::size_t>(task.chunk - job.nextToTake)] = std::move(chunk);
        ++reportsUnseen_;
        wakeWriter();
    }
}

void CompressionQueue::fail(const Error& error) {
    const std::lock_guard lock(mutex_);
    failure_ = error;
    headReady_.notify_one();
}

void CompressionQueue::stop() {
    const std::lock_guard lock(mutex_);
    stopping_ = true;
    workAvailable_.notify_all();
}

std::uint64_t CompressionQueue::chunksOf(const SourceFile& file) const {
    if (file.isFolder()) {
        return 0;
    }
    return std::max<std::uint64_t>(1, (file.size() + chunkSize_ - 1) / chunkSize_);
}

bool CompressionQueue::beginChunk(Job& job) {
    ++job.nextToRead;
    job.results.emplace_back();
    return job.nextToRead == (*job.opened)->chunks;
}

bool CompressionQueue::canTakeTask() const {
    bool isHead = false;
    if (!unread_.empty()) {
        const Job& job = *unread_.front();
        isHead = &job == jobs_.front().get() && job.nextToRead == job.nextToTake;
    } else if (nextAnnounced_ < announced_.size()) {
        isHead = jobs_.empty();
    } else {
        return false;
    }
    return isHead || bytesAhead_ + taskBytes_ + kJobBytes <= mostBytesAhead_;
}

void CompressionQueue::wakeWorkers() {
    if (idleWorkers_ > 0 && canTakeTask()) {
        workAvailable_.notify_one();
    }
}

void CompressionQueue::wakeWriter() {
    // An idle worker may be waiting for what the writer would free, and reports nothing more.
    const bool pays =
        idleWorkers_ > 0 || reportsUnseen_ >= kReportsPerWake || 4 * bytesReady_ > mostBytesAhead_;
    if (writerWaits_ && pays && isHeadReady()) {
        writerWaits_ = false;
        headReady_.notify_one();
    }
}

bool CompressionQueue::isHeadReady() const {
    return !jobs_.empty() && jobs_.front()->isReady();
}

Result<> CompressionQueue::waitForHead(std::unique_lock<std::mutex>& lock) {
    writerWaits_ = true;
    reportsUnseen_ = 0;
    // The next reports may come late, of sources that are slow to read.
    constexpr std::chrono::milliseconds kLongestDelay(50);
    while (!headReady_.wait_for(
        lock, kLongestDelay, [this] { return failure_.has_value() || isHeadReady(); })) {
    }
    writerWaits_ = false;
    return isHeadReady() ? Result<>() : tl::unexpected(*failure_);
}

void CompressionQueue::releaseResult(const Result<CompressedChunk>& chunk) {
    const std::size_t held = chunk ? chunk->bytesHeld() : 0;
    bytesReady_ -= held;
    bytesAhead_ -= held;
}

void CompressionQueue::dropJob(Job& job) {
    job.dropped = true;
    for (const auto& result : job.results) {
        if (result) {
            releaseResult(*result);
        }
    }
    bytesAhead_ -= kJobBytes;
    job.results.clear();
    unread_.erase(std::remove_if(unread_.begin(),
                                 unread_.end(),
                                 [&job](const auto& other) { return other.get() == &job; }),
                  unread_.end());
}

void CompressionQueue::dropJobsFrom(std::size_t index) {
    while (jobs_.size() > index) {
        dropJob(*jobs_.back());
        jobs_.pop_back();
    }
}

}  // namespace pellumar::archive
