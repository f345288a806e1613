#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Builds ZIP archives field by field, so that a test can say in a line what is wrong with one. All
// fields begin with the values a correct archive has; whatever a test changes afterwards is written
// as it stands.
namespace pellumar::test {

// The fields of a local or central header. Those after `extra` stand in the central one only.
struct ZipHeader {
    std::uint16_t versionNeeded = 20;
    std::uint16_t flags = 0;
    std::uint16_t method = 0;
    std::uint16_t time = 0;
    std::uint16_t date = (44U << 9U) | (5U << 5U) | 17U;  // 2024-05-17
    std::uint32_t crc32 = 0;
    std::uint64_t compressedSize = 0;
    std::uint64_t uncompressedSize = 0;
    std::string name;
    std::string extra;
    // Masks the sizes (and the offset) and puts the true ones in a ZIP64 field behind `extra`.
    bool zip64 = false;

    std::uint8_t host = 3;  // Unix
    std::uint16_t disk = 0;
    std::uint32_t attributes = 0;
    std::optional<std::uint64_t> offset;  // none: where the local header stands
    std::string comment;
};

struct ZipEntry {
    ZipHeader local;
    ZipHeader central;
    std::string before;  // bytes that belong to nothing, in front of the local header
    std::string data;    // as it stands in the archive
    std::string descriptor;
    bool inDirectory = true;
    bool inBody = true;  // false: only a central header, with an offset of its own

    // Changes both headers, by a pointer to the field: with(&ZipHeader::method, 8).
    template <typename Field, typename Value>
    ZipEntry& with(Field ZipHeader::*field, Value value) {
        local.*field = static_cast<Field>(value);
        central.*field = static_cast<Field>(value);
        return *this;
    }
    // Unix type and permissions, as stat tells them.
    ZipEntry& mode(std::uint32_t value);
    // Moves checksum and sizes behind the data.
    ZipEntry& described(bool signature = true, bool wide = false);
};

[[nodiscard]] ZipEntry stored(std::string name, std::string data);
[[nodiscard]] ZipEntry deflated(std::string name, const std::string& data);
[[nodiscard]] ZipEntry folder(std::string name, std::uint32_t permissions = 0755);
[[nodiscard]] ZipEntry symbolicLink(std::string name, std::string target);
// An entry whose data some other encoder made.
[[nodiscard]] ZipEntry packed(std::string name,
                              std::uint16_t method,
                              std::string compressed,
                              std::string_view plain);

// An extra field.
[[nodiscard]] std::string extraField(std::uint16_t identifier, std::string_view data);
// `size` bytes of `value`, little-endian.
[[nodiscard]] std::string littleEndian(std::uint64_t value, std::size_t size);
// Text of that many bytes that shrinks about as well as prose.
[[nodiscard]] std::string prose(std::size_t size, unsigned seed = 1);

class ZipBuilder {
  public:
    // The end of central directory record, and the ZIP64 one if there is one. Fields without a
    // value are right.
    struct End {
        std::uint64_t disk = 0;
        std::uint64_t directoryDisk = 0;
        std::optional<std::uint64_t> entriesOnDisk;
        std::optional<std::uint64_t> entries;
        std::optional<std::uint64_t> directorySize;
        std::optional<std::uint64_t> directoryOffset;
    };

    ZipBuilder& add(ZipEntry entry);
    ZipBuilder& file(std::string name, std::string data);

    [[nodiscard]] std::string build() const;
    void writeTo(const std::filesystem::path& path) const;

    std::string prefix;             // in front of the archive
    bool offsetsKnowPrefix = true;  // whether they count from the start of the file
    std::string beforeDirectory;    // between the last entry and the directory
    End end;
    std::string comment;
    std::optional<std::uint16_t> commentSize;
    std::string suffix;  // behind the archive
    bool zip64 = false;  // with the ZIP64 record and locator, and the other one's fields masked
    End zip64End;
    std::optional<std::uint64_t> locatorOffset;
    std::uint32_t locatorDisks = 1;

  private:
    std::vector<ZipEntry> entries_;
};

}  // namespace pellumar::test
