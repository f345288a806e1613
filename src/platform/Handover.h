#pragma once

#if defined(__SANITIZE_THREAD__)
#define PELLUMAR_THREAD_SANITIZER
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define PELLUMAR_THREAD_SANITIZER
#endif
#endif

#ifdef PELLUMAR_THREAD_SANITIZER
#include <sanitizer/tsan_interface.h>
#endif

namespace pellumar {

// Tells ThreadSanitizer what Qt's queues see to by means that it cannot see: that what a thread did
// before it gave `object` away comes before what another does once it has taken it. One object's
// handover says nothing about another's, so a race between two pieces of work is still found. In
// other builds nothing is done.
class Handover {
  public:
    Handover() = delete;

    // The object's memory is not looked at.
    static void give([[maybe_unused]] void* object) {
#ifdef PELLUMAR_THREAD_SANITIZER
        __tsan_release(object);
#endif
    }
    static void take([[maybe_unused]] void* object) {
#ifdef PELLUMAR_THREAD_SANITIZER
        __tsan_acquire(object);
#endif
    }
};

}  // namespace pellumar
