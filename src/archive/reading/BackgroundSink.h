#pragma once

#include <array>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

#include "archive/base/DataSink.h"
#include "archive/base/Error.h"

namespace pellumar::archive {

// Hands data on to another sink from a thread of its own, so that unpacking one very large entry
// and writing it use two cores. Holds a few pieces at a time and no more: whoever is ahead waits.
//
// The target is only touched by that thread until finish() or the destructor has returned. Without
// a thread to be had it passes the data on at once.
class BackgroundSink final : public DataSink {
  public:
    // `target` outlives the sink.
    explicit BackgroundSink(DataSink& target);
    BackgroundSink(const BackgroundSink&) = delete;
    BackgroundSink& operator=(const BackgroundSink&) = delete;
    // Ends the thread after the piece that it is at; what waits behind it is dropped.
    ~BackgroundSink() override;

    // The next free piece, waiting until there is one.
    [[nodiscard]] MutableBytes room() override;

    // Asked of the target at once, which may be written to meanwhile.
    [[nodiscard]] Result<> expectMore(std::uint64_t bytes) override {
        return target_.expectMore(bytes);
    }

    // Bytes at the front of what room() gave last are handed on as they lie, all others copied. An
    // error is that of an earlier piece.
    [[nodiscard]] Result<> write(ByteView bytes) override;

    // Waits until all has been handed on; the first error of the target.
    [[nodiscard]] Result<> finish();

  private:
    static constexpr std::size_t kPieces = 4;
    using Piece = std::array<std::uint8_t, kStreamedPiece>;

    void work();
    [[nodiscard]] Result<> handOver(std::size_t size);
    void stop();
    [[nodiscard]] Result<> errorSoFar() const;

    DataSink& target_;
    std::unique_ptr<std::array<Piece, kPieces>> pieces_;

    std::mutex mutex_;  // guards what follows
    std::condition_variable changed_;
    std::array<std::size_t, kPieces> sizes_{};
    std::size_t filled_ = 0;   // pieces filled since the start
    std::size_t written_ = 0;  // pieces handed on since the start
    bool stopping_ = false;
    std::optional<Error> error_;

    std::thread thread_;
};

}  // namespace pellumar::archive
