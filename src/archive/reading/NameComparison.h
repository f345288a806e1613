#pragma once

#include "archive/reading/EntryTable.h"
#include "archive/reading/NameDecoder.h"

namespace pellumar::archive {

// Whether the name in an entry's local header means the same as that of the central directory.
// Writers differ in the separator, and in the charset of either: bytes that spell the same name in
// any charset in use will do, as will a Unicode path field that says it.
//
// Slow where neither header says what the letters are; equal bytes need not be asked about.
[[nodiscard]] bool meansTheSame(const RawName& local, const EntryData& data);

}  // namespace pellumar::archive
