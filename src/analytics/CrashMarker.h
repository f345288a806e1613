#pragma once

#include <filesystem>
#include <string>

namespace pellumar {

// Leaves a small file behind when a fatal signal ends the process: the signal, the time, the
// version and the places on the stack. What handled the signal before handles it afterwards, so
// that the process ends as it would have.
//
// The handler does nothing but what POSIX allows in one (signal-safety(7)): it opens, reads, writes
// and compares numbers, on memory that has always been there. For want of a safe unwinder it looks
// over the words of the stack for addresses that a call instruction stands in front of; a stale one
// may be among them.
//
// At most one at a time may exist in a process; the thread that makes it also gets a stack of its
// own for the handler, so that an overflow of the usual one is seen too.
class CrashMarker {
  public:
    // The file is `marker`, whose folder must exist when a signal comes. Not armed yet.
    CrashMarker(const std::filesystem::path& marker, const std::string& version);
    // Puts back what was there before, if nothing else has come since.
    ~CrashMarker();
    CrashMarker(const CrashMarker&) = delete;
    CrashMarker& operator=(const CrashMarker&) = delete;

    // From any thread. Unarmed, a signal leaves nothing.
    void arm(bool armed);
};

}  // namespace pellumar
