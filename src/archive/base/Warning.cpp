#include "archive/base/Warning.h"

namespace pellumar::archive {

std::string_view describe(WarningCode code) {
    switch (code) {
        case WarningCode::kBytesBeforeArchive:
            return "bytes before the archive";
        case WarningCode::kBytesAfterArchive:
            return "bytes after the archive";
        case WarningCode::kDuplicatePath:
            return "earlier entry of the same path passed over";
        case WarningCode::kLegacyCharset:
            return "name not in UTF-8, its charset was guessed";
        case WarningCode::kSpecialFile:
            return "special file, extracted as a regular one";
        case WarningCode::kSetIdBitsDropped:
            return "set-id or sticky bits dropped";
        case WarningCode::kMetadataNotRestored:
            return "time or permissions not restored";
        case WarningCode::kUnlistedEntry:
            return "entry that the directory does not list, passed over";
        case WarningCode::kNameMadePortable:
            return "name made portable";
        case WarningCode::kRenamed:
            return "renamed, as another has its name";
    }
    return "unknown warning";
}

std::string Warning::describe() const {
    std::string line(archive::describe(code));
    if (!entry.empty()) {
        line += ": " + entry;
    }
    return line + " (at offset " + std::to_string(offset) + ")";
}

void Warnings::add(WarningCode code, std::string_view entry, std::uint64_t offset) {
    ++count_;
    if (kept_.size() < kMostKept) {
        kept_.push_back({.code = code, .entry = std::string(entry), .offset = offset});
    }
}

void Warnings::add(const Warnings& others) {
    for (const Warning& warning : others.kept_) {
        if (kept_.size() < kMostKept) {
            kept_.push_back(warning);
        }
    }
    count_ += others.count_;
}

}  // namespace pellumar::archive
