#pragma once

#include <filesystem>
#include <string>

namespace pellumar {

// Leaves a file behind when a fatal signal ends the process: the signal, the time, the version, the
// return addresses and where which library stands in memory, of which CrashReport makes offsets.
// Nothing of the memory's contents. What handled the signal before handles it afterwards, so that
// the process ends as it would have.
//
// The handler does nothing but what is allowed in one: it opens, reads and writes
// (signal-safety(7)), on memory that has always been there, and walks the stack with the compiler's
// unwinder, which neither allocates nor locks once it was used. What is surest is written first.
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
