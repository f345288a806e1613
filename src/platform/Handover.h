#pragma once

#include <atomic>

namespace pellumar {

// Orders what one thread did before give() before what another does after take(). Qt's queues do so
// as well, but by means that ThreadSanitizer does not see; with this it reports the races in the
// work that goes through them, and no others.
class Handover {
  public:
    static void give() { count.fetch_add(1, std::memory_order_release); }
    static void take() { static_cast<void>(count.load(std::memory_order_acquire)); }

  private:
    // One for the process, so that it is there before any thread.
    static inline std::atomic<unsigned> count = 0;
};

}  // namespace pellumar
