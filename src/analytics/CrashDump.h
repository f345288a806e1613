#pragma once

#include <string_view>

namespace pellumar::crash {

// Writes a crash marker from within a signal handler, with nothing but async-signal-safe calls.
// `context` is what the handler was given. Does without the stack where the processor is none of
// those it knows (x86-64, AArch64). Not to be called twice.
void dump(const char* path,
          std::string_view signalName,
          const char* version,
          const void* context) noexcept;

}  // namespace pellumar::crash
