#include "archive/hostile/Deceit.h"

#include <sys/stat.h>

#include <array>
#include <cstdint>
#include <limits>
#include <string_view>
#include <utility>

#include "support/ZipBuilder.h"

namespace pellumar::test {

namespace {

using Entries = std::vector<ZipEntry>;
using Change = std::function<void(ZipHeader&)>;

struct NamedChange {
    std::string name;
    Change apply;
};

std::string repeated(const std::string& piece, unsigned times) {
    std::string text;
    for (unsigned i = 0; i < times; ++i) {
        text += piece;
    }
    return text;
}

const std::string& smallText() {
    static const std::string kText = prose(300, 1);
    return kText;
}

const std::string& shrunkText() {
    static const std::string kText = prose(3000, 2);
    return kText;
}

// Shrinks to little, and is too large to be unpacked at once.
const std::string& streamedText() {
    static const std::string kText = repeated(prose(1000, 3), 600);
    return kText;
}

// One of each kind; `large` adds one that streams.
Entries usualEntries(bool large) {
    static const Entries kSmall = {folder("d/"),
                                   stored("d/stored", smallText()),
                                   deflated("deflated", shrunkText()),
                                   deflated("d/described", shrunkText()).described(),
                                   symbolicLink("d/link", "../deflated")};
    static const ZipEntry kLarge = deflated("large", streamedText()).described();
    Entries entries = kSmall;
    if (large) {
        entries.push_back(kLarge);
    }
    return entries;
}

std::string build(const Entries& entries) {
    ZipBuilder zip;
    for (const ZipEntry& entry : entries) {
        zip.add(entry);
    }
    return zip.build();
}

// ---- Names

using namespace std::string_view_literals;

constexpr std::array<std::string_view, 66> kShortNames = {"plain",
                                                          "d",
                                                          "d/",
                                                          "d/stored",
                                                          "D/Stored",
                                                          "d//stored",
                                                          "./d/stored",
                                                          "d/./stored",
                                                          "d\\stored",
                                                          "d/stored/",
                                                          "d/link/x",
                                                          "link",
                                                          "link/x",
                                                          "",
                                                          "/",
                                                          ".",
                                                          "./",
                                                          "..",
                                                          "../",
                                                          "../x",
                                                          "../../../../tmp/x",
                                                          "d/..",
                                                          "d/../..",
                                                          "d/../../x",
                                                          "..\\x",
                                                          "d\\..\\..\\x",
                                                          "/x",
                                                          "//x",
                                                          "\\x",
                                                          "\\\\server\\x",
                                                          "C:x",
                                                          "C:\\x",
                                                          "c:/x",
                                                          "x:",
                                                          "x:stream",
                                                          "~",
                                                          "~/x",
                                                          "a\0b"sv,
                                                          "\0"sv,
                                                          "..\0/x"sv,
                                                          "a\nb",
                                                          "\x1B[2Jx",
                                                          "con",
                                                          "nul.txt",
                                                          "x.",
                                                          "x ",
                                                          " ",
                                                          "...",
                                                          "....//x",
                                                          "\xC0\xAE\xC0\xAE/x",
                                                          "\xC0\xAF",
                                                          "\xFF\xFE",
                                                          "\xED\xA0\x80",
                                                          "\xE2\x80\xAEgpj",
                                                          "\x82\xA0/x",
                                                          "\x8E\xCA\x90\x5E",
                                                          "\xC3\xA9",
                                                          "e\xCC\x81",
                                                          "%2e%2e/x",
                                                          "-rf",
                                                          "*",
                                                          "a|b",
                                                          ".part",
                                                          "a/b",
                                                          "a/b/c",
                                                          "a"};

const std::vector<std::string>& names() {
    static const std::vector<std::string> kNames = [] {
        std::vector<std::string> all(kShortNames.begin(), kShortNames.end());
        for (std::string name : {std::string(255, 'n'),
                                 std::string(256, 'n'),
                                 repeated("d/", 100) + "x",
                                 repeated("d/", 2100) + "x",
                                 std::string(65535, 'n'),
                                 repeated("../", 100) + "x",
                                 repeated("\xE2\x82\xAC", 90),
                                 std::string(300, '/') + "x"}) {
            all.push_back(std::move(name));
        }
        return all;
    }();
    return kNames;
}

// ---- Fields

std::vector<std::string> extras() {
    std::vector<std::string> extras = {"x",
                                       "xx",
                                       "xxx",
                                       littleEndian(1, 2) + littleEndian(9, 2),
                                       std::string(65535, '\xFF'),
                                       std::string(65000, '\0')};
    for (const std::uint16_t identifier :
         {0x0001, 0x000A, 0x5455, 0x5855, 0x6375, 0x7075, 0x7855, 0x7875, 0x9901, 0x0017, 0xFFFF}) {
        for (const std::size_t size : {0, 1, 4, 7, 8, 16, 24, 28, 60}) {
            for (const char fill : {'\0', '\1', '\x7F', '\xFF'}) {
                extras.push_back(extraField(identifier, std::string(size, fill)));
            }
        }
        extras.push_back(littleEndian(identifier, 2) + littleEndian(0xFFFF, 2) + "short");
        extras.push_back(extraField(identifier, "one of two") + extraField(identifier, "2 of two"));
    }
    return extras;
}

// Sets one field to each of its values.
template <typename Field>
void addValues(std::vector<NamedChange>& changes,
               const std::string& name,
               Field ZipHeader::*field,
               const std::vector<std::uint64_t>& values) {
    for (const std::uint64_t value : values) {
        changes.push_back({name + "=" + std::to_string(value), [field, value](ZipHeader& header) {
                               header.*field = static_cast<Field>(value);
                           }});
    }
}

// Moves one field by a little, or turns its bits.
template <typename Field>
void addMoves(std::vector<NamedChange>& changes,
              const std::string& name,
              Field ZipHeader::*field,
              unsigned bits) {
    for (const int by : {-30, -1, 1, 2, 30}) {
        changes.push_back({name + "+" + std::to_string(by), [field, by](ZipHeader& header) {
                               header.*field =
                                   static_cast<Field>(header.*field + static_cast<Field>(by));
                           }});
    }
    for (unsigned bit = 0; bit < bits; ++bit) {
        changes.push_back({name + "^" + std::to_string(bit), [field, bit](ZipHeader& header) {
                               header.*field = static_cast<Field>(
                                   header.*field ^ static_cast<Field>(std::uint64_t{1} << bit));
                           }});
    }
}

std::vector<NamedChange> headerChanges() {
    constexpr std::uint64_t kMost32 = std::numeric_limits<std::uint32_t>::max();
    constexpr std::uint64_t kMost64 = std::numeric_limits<std::uint64_t>::max();
    const std::vector<std::uint64_t> sizes = {0,
                                              1,
                                              11,
                                              12,
                                              300,
                                              3000,
                                              65535,
                                              65536,
                                              kMost32 - 1,
                                              kMost32,
                                              kMost32 + 1,
                                              kMost64 / 2,
                                              kMost64 / 2 + 1,
                                              kMost64 - 29,
                                              kMost64};
    std::vector<NamedChange> changes;
    std::vector<std::uint64_t> methods = {255, 0x8000, 0xFFFF};
    for (std::uint64_t method = 0; method <= 100; ++method) {
        methods.push_back(method);
    }
    addValues(changes, "method", &ZipHeader::method, methods);
    addValues(changes, "version", &ZipHeader::versionNeeded, {0, 9, 45, 63, 99, 0xFFFF});
    addMoves(changes, "flags", &ZipHeader::flags, 16);
    addValues(changes, "flags", &ZipHeader::flags, {0x41, 0x2041, 0x809, 0xFFFF});
    addValues(changes, "time", &ZipHeader::time, {0, 0xFFFF});
    addValues(changes, "date", &ZipHeader::date, {0, 0xFFFF});
    addMoves(changes, "crc", &ZipHeader::crc32, 32);
    addValues(changes, "packed", &ZipHeader::compressedSize, sizes);
    addMoves(changes, "packed", &ZipHeader::compressedSize, 12);
    addValues(changes, "size", &ZipHeader::uncompressedSize, sizes);
    addMoves(changes, "size", &ZipHeader::uncompressedSize, 12);
    addValues(changes, "host", &ZipHeader::host, {0, 1, 3, 7, 10, 11, 19, 255});
    addValues(changes, "disk", &ZipHeader::disk, {1, 0xFFFF});
    addMoves(changes, "attributes", &ZipHeader::attributes, 32);
    for (std::uint64_t type = 0; type < 16; ++type) {
        addValues(changes, "attributes", &ZipHeader::attributes, {(type << 28U) | (0777U << 16U)});
    }
    for (const std::uint64_t offset : sizes) {
        changes.push_back({"offset=" + std::to_string(offset),
                           [offset](ZipHeader& header) { header.offset = offset; }});
    }
    changes.push_back({"zip64", [](ZipHeader& header) { header.zip64 = true; }});
    changes.push_back({"comment", [](ZipHeader& header) { header.comment.assign(65535, 'P'); }});
    for (const std::string& name : names()) {
        changes.push_back(
            {"name=" + name.substr(0, 30), [&name](ZipHeader& header) { header.name = name; }});
    }
    for (const std::string& extra : extras()) {
        changes.push_back({"extra", [extra](ZipHeader& header) { header.extra = extra; }});
    }
    return changes;
}

// Counts, and lets through what is not left out.
class Hand {
  public:
    Hand(std::size_t stride, const std::function<void(const Deceit&)>& take)
        : stride_(stride), take_(take) {}

    template <typename Make>
    void give(const std::string& what, Make make) {
        if (count_++ % stride_ == 0) {
            take_({what, make()});
        }
    }

  private:
    const std::size_t stride_;
    const std::function<void(const Deceit&)>& take_;
    std::size_t count_ = 0;
};

// Each change in one entry's local header, in its central one, and in both.
void giveHeaders(Hand& hand) {
    const std::vector<NamedChange> changes = headerChanges();
    const std::size_t entries = usualEntries(true).size();
    for (std::size_t i = 0; i < entries; ++i) {
        for (const NamedChange& change : changes) {
            for (const int places : {1, 2, 3}) {
                const std::string what = "entry " + std::to_string(i) + ", headers " +
                                         std::to_string(places) + ", " + change.name;
                hand.give(what, [&] {
                    Entries changed = usualEntries(i + 1 == entries);
                    if ((places & 1) != 0) {
                        change.apply(changed[i].local);
                    }
                    if ((places & 2) != 0) {
                        change.apply(changed[i].central);
                    }
                    return build(changed);
                });
            }
        }
    }
}

// Each name beside each other, as files, folders and links.
void giveNeighbours(Hand& hand) {
    const auto entry = [](const std::string& name, std::size_t kind) {
        return kind == 0   ? stored(name, smallText())
               : kind == 1 ? folder(name)
                           : symbolicLink(name, "../deflated");
    };
    std::size_t kind = 0;
    for (const std::string& one : names()) {
        for (const std::string& other : names()) {
            kind = (kind + 1) % 9;
            hand.give("names " + one.substr(0, 30) + " and " + other.substr(0, 30), [&] {
                return build({entry(one, kind / 3), entry(other, kind % 3)});
            });
        }
        hand.give("a link to " + one.substr(0, 30), [&] {
            return build({deflated("deflated", shrunkText()),
                          symbolicLink("link", one),
                          stored("link/below", smallText())});
        });
        hand.give("a link to " + one.substr(0, 30), [&] {
            return build(
                {folder("d/"), symbolicLink("d/l", ".."), symbolicLink("m", "d/l/" + one)});
        });
    }
}

constexpr std::uint64_t kMost = std::numeric_limits<std::uint64_t>::max();
constexpr std::array<std::uint64_t, 18> kEndValues = {0,
                                                      1,
                                                      2,
                                                      4,
                                                      5,
                                                      6,
                                                      46,
                                                      300,
                                                      0xFFFE,
                                                      0xFFFF,
                                                      0x10000,
                                                      0xFFFFFFFE,
                                                      0xFFFFFFFF,
                                                      0x100000000,
                                                      kMost / 2,
                                                      kMost / 46,
                                                      kMost - 100,
                                                      kMost};

// The end records.
void giveEnds(Hand& hand) {
    using End = ZipBuilder::End;
    const std::vector<std::function<void(End&, std::uint64_t)>> fields = {
        [](End& end, std::uint64_t value) { end.disk = value; },
        [](End& end, std::uint64_t value) { end.directoryDisk = value; },
        [](End& end, std::uint64_t value) { end.entriesOnDisk = value; },
        [](End& end, std::uint64_t value) { end.entries = value; },
        [](End& end, std::uint64_t value) { end.entries = end.entriesOnDisk = value; },
        [](End& end, std::uint64_t value) { end.directorySize = value; },
        [](End& end, std::uint64_t value) { end.directoryOffset = value; }};
    const auto archive = [] {
        ZipBuilder zip;
        for (const ZipEntry& entry : usualEntries(false)) {
            zip.add(entry);
        }
        return zip;
    };
    for (const std::uint64_t value : kEndValues) {
        for (std::size_t i = 0; i < fields.size(); ++i) {
            for (const int way : {0, 1, 2, 3, 4}) {
                hand.give("end, field " + std::to_string(i) + "=" + std::to_string(value), [&] {
                    ZipBuilder zip = archive();
                    zip.zip64 = way > 0;
                    zip.prefix = way == 4 ? "#!/bin/sh\n" : "";
                    fields[i](way == 1 || way == 3 ? zip.zip64End : zip.end, value);
                    if (way == 3) {
                        fields[i](zip.end, value);
                    }
                    return zip.build();
                });
            }
        }
        hand.give("locator", [&] {
            ZipBuilder zip = archive();
            zip.zip64 = true;
            zip.locatorOffset = value;
            return zip.build();
        });
        hand.give("comment's size", [&] {
            ZipBuilder zip = archive();
            zip.commentSize = static_cast<std::uint16_t>(value);
            return zip.build();
        });
        hand.give("two archives in one", [&] {
            return archive().build() + std::string(value % 1000, 'x') + archive().build();
        });
    }
}

// Cut anywhere, with any bit turned, and with pieces of it moved.
void giveDamage(Hand& hand) {
    for (unsigned variant = 0; variant < kSoundVariants; ++variant) {
        const std::string whole = soundArchive(variant);
        const std::string name = "variant " + std::to_string(variant) + ", ";
        const bool every = variant < 2;
        for (std::size_t size = 0; size < whole.size(); size += every ? 1 : 5) {
            hand.give(name + "cut at " + std::to_string(size),
                      [&] { return whole.substr(0, size); });
            hand.give(name + "without the first " + std::to_string(size),
                      [&] { return whole.substr(size); });
        }
        for (std::size_t bit = 0; bit < whole.size() * 8; bit += every ? 1 : 13) {
            hand.give(name + "bit " + std::to_string(bit), [&] {
                std::string bytes = whole;
                bytes[bit / 8] = static_cast<char>(bytes[bit / 8] ^ (1U << (bit % 8)));
                return bytes;
            });
        }
        for (std::size_t at = 0; at < whole.size(); at += 7) {
            const std::size_t other = (at * 31 + 17) % whole.size();
            hand.give(name + "moved " + std::to_string(at), [&] {
                std::string bytes = whole;
                return bytes.insert(other, bytes, at, 1 + at % 90);
            });
            hand.give(name + "masked " + std::to_string(at), [&] {
                std::string bytes = whole;
                return bytes.replace(at, 4, littleEndian(at % 2 == 0 ? 0xFFFFFFFF : 0, 4));
            });
        }
    }
}

}  // namespace

const std::set<std::string>& contentsOfDeceits() {
    // A header of another type makes a file of a link, and the other way round.
    static const std::set<std::string> kContents = [] {
        std::set<std::string> contents = {
            "", smallText(), shrunkText(), streamedText(), "../deflated", ".."};
        for (const std::string& name : names()) {
            contents.insert(name);
            contents.insert("d/l/" + name);
        }
        return contents;
    }();
    return kContents;
}

std::string soundArchive(unsigned variant) {
    ZipBuilder zip;
    zip.zip64 = variant % 2 == 1;
    zip.prefix = variant == 2 ? "#!/bin/sh\n" : "";
    zip.comment = variant == 3 ? "a comment" : "";
    if (variant < 2) {
        zip.add(folder("d/"))
            .add(stored("d/one", "..").described(variant == 0))
            .add(symbolicLink("d/link", "../deflated"))
            .add(deflated("deflated", smallText()));
    } else {
        for (ZipEntry& entry : usualEntries(variant >= 4)) {
            zip.add(entry.with(&ZipHeader::zip64, variant == 5));
        }
    }
    return zip.build();
}

void forEachDeceit(std::size_t stride, const std::function<void(const Deceit&)>& take) {
    Hand hand(stride, take);
    giveHeaders(hand);
    giveNeighbours(hand);
    giveEnds(hand);
    giveDamage(hand);
}

}  // namespace pellumar::test
