#include "archive/reading/NameComparison.h"

#include <algorithm>
#include <array>
#include <string>

#include "archive/format/EntryPath.h"
#include "archive/format/Utf8.h"
#include "archive/reading/Charset.h"

namespace pellumar::archive {

namespace {

// What Windows uses beside the charsets that a vote knows: its western and central European ones.
constexpr std::array kOtherCharsets = {"CP850", "CP852", "CP1250", "CP1252"};

// Whether `name` leads to the entry's path, and to a folder just if the entry is one by its name.
bool leadsTo(std::string_view name, std::string_view path, bool isFolder) {
    std::string storage;
    const auto judged = judgeEntryName(name, storage);
    return judged && judged->path == path && judged->isFolder == isFolder;
}

// Whether `accept` takes one of the texts that the bytes can spell.
template <typename Accept>
bool anyReading(ByteView bytes, Accept accept) {
    const std::string_view text = asText(bytes);
    if (format::isUtf8(text) && accept(text)) {
        return true;
    }
    const auto reads = [&](CharsetConverter converter) {
        const auto letters = converter.decode(bytes);
        return letters && accept(toUtf8(*letters));
    };
    return std::any_of(kAllCharsets.begin(),
                       kAllCharsets.end(),
                       [&](Charset charset) { return reads(CharsetConverter(charset)); }) ||
           std::any_of(kOtherCharsets.begin(), kOtherCharsets.end(), [&](const char* name) {
               return reads(CharsetConverter(name));
           });
}

}  // namespace

bool meansTheSame(const RawName& local, const EntryData& data) {
    if (isAmbiguous(local)) {
        return false;
    }
    const std::string_view path = data.entry.path;
    const bool isFolder = data.namedAsFolder;
    const auto said = saidLetters(local);
    if (!said) {
        return asText(local.bytes) == data.rawName ||
               anyReading(local.bytes,
                          [&](std::string_view text) { return leadsTo(text, path, isFolder); });
    }
    // Where the directory's letters were guessed, the guess may be wrong.
    return leadsTo(*said, path, isFolder) ||
           (data.legacyName && anyReading(asBytes(data.rawName), [&](std::string_view text) {
                std::string storage;
                const auto judged = judgeEntryName(text, storage);
                return judged && leadsTo(*said, judged->path, judged->isFolder);
            }));
}

}  // namespace pellumar::archive
