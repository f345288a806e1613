#include "archive/faults/FailingMemory.h"

#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace {

constexpr std::int64_t kNever = -1;
std::atomic<std::int64_t> left = kNever;
std::atomic<bool> failed = false;

bool isToFail() {
    if (left.load(std::memory_order_relaxed) < 0 || left.fetch_sub(1) != 0) {
        return false;
    }
    failed = true;
    errno = ENOMEM;
    return true;
}

}  // namespace

namespace pellumar::test {

void failAllocation(std::size_t before) {
    failed = false;
    left = static_cast<std::int64_t>(before);
}

bool hasFailedAllocation() {
    left = kNever;
    return failed;
}

}  // namespace pellumar::test

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)

// uchardet keeps what it had when it was refused more.
// NOLINTNEXTLINE(bugprone-reserved-identifier,readability-identifier-naming): LeakSanitizer's name
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libuchardet\n";
}

// Not inline: g++ 12 would see a free for what new has given.
[[gnu::noinline]] void* operator new(std::size_t size) {
    void* const memory = isToFail() ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}
[[gnu::noinline]] void* operator new[](std::size_t size) {
    return operator new(size);
}
[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return isToFail() ? nullptr : std::malloc(size == 0 ? 1 : size);
}
[[gnu::noinline]] void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept {
    return operator new(size, tag);
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}
[[gnu::noinline]] void operator delete[](void* memory) noexcept {
    std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
[[gnu::noinline]] void operator delete[](void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}

#else

// The C library's own, under the names by which it keeps them reachable.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming)
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);

void* malloc(std::size_t size) {
    return isToFail() ? nullptr : __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size) {
    return isToFail() ? nullptr : __libc_calloc(count, size);
}
void* realloc(void* memory, std::size_t size) {
    return isToFail() ? nullptr : __libc_realloc(memory, size);
}
void* aligned_alloc(std::size_t alignment, std::size_t size) {
    return isToFail() ? nullptr : __libc_memalign(alignment, size);
}
int posix_memalign(void** memory, std::size_t alignment, std::size_t size) {
    *memory = isToFail() ? nullptr : __libc_memalign(alignment, size);
    return *memory == nullptr ? ENOMEM : 0;
}
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)

#endif
