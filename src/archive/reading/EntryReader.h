#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

#include "archive/base/ByteSource.h"
#include "archive/base/Bytes.h"
#include "archive/base/DataSink.h"
#include "archive/base/Error.h"
#include "archive/base/ExtractionOptions.h"
#include "archive/codecs/Decoder.h"
#include "archive/codecs/OneShotInflater.h"
#include "archive/reading/EntryTable.h"

namespace pellumar::archive {

// What one entry may cost whoever reads it.
struct EntryLimits {
    std::uint64_t windowMemory = ExtractionLimits::kNone;  // for a decoder's window, in bytes
    // As those of ExtractionLimits, for a size that turns out larger than the directory claims.
    std::uint64_t bytes = ExtractionLimits::kNone;
    std::uint64_t ratio = ExtractionLimits::kNone;
};

// Whether an entry becomes more than `ratio` times as large.
[[nodiscard]] bool isOverRatio(const Entry& entry, std::uint64_t ratio);

// Reads entries' data out of an archive: holds the local header against the central directory,
// decompresses, and verifies sizes, data descriptor and checksum.
//
// Owns buffers of fixed size and the decoders, which serve one entry after another, so make one for
// each thread. A small entry is read by one system call at most, unpacked in one piece and verified
// before the sink sees any of it; a larger one streams, and the sink may have seen all of it before
// an error shows.
class EntryReader {
  public:
    // `file` and `password`, which may be null, outlive the reader; other readers may use them at
    // the same time.
    [[nodiscard]] static Result<std::unique_ptr<EntryReader>> create(
        const ByteSource& file,
        const Password* password = nullptr,
        const EntryLimits& limits = EntryLimits());

    // In place of the password that it was made with; it outlives the reader.
    void usePassword(const Password& password) { password_ = &password; }

    // Of an encrypted entry: kWrongPassword by its check bytes, kEncrypted if there is no password.
    [[nodiscard]] Result<> checkPassword(const EntryData& data);

    // Reads the entry's local header alone and holds it against the central directory:
    // kHeaderMismatch if they disagree, kOverlap if the data would not lie within the entry's slot.
    // `soonUntil` as for read(). Returns where in the rest of the slot another local header stands,
    // if one does: that of an entry which the directory does not list.
    [[nodiscard]] Result<std::optional<std::uint64_t>> checkHeader(const EntryData& data,
                                                                   std::uint64_t soonUntil = 0);

    // Where the entry's data begins; local header and descriptor are held against the directory.
    [[nodiscard]] Result<std::uint64_t> findData(const EntryData& data);

    // Begins with the data of `data`, a file or symbolic link, which pull() then gives piece by
    // piece. `data` lives until the last call; another begin(), read() or check ends it.
    [[nodiscard]] Result<> begin(const EntryData& data, bool skipChecksum);

    // The next bytes, into `output`: how many, 0 when all has come and was found right. To be
    // called no more after that, or after an error. Errors are as those of read().
    [[nodiscard]] Result<std::size_t> pull(MutableBytes output);

    // Hands the data of `data`, a file or symbolic link, to `sink`. Errors carry the entry's path
    // and the offset of its local header, or of what is wrong.
    //
    // What lies between the entry and `soonUntil` will be asked for next, so some of it may be read
    // by the same system call.
    [[nodiscard]] Result<> read(const EntryData& data,
                                bool skipChecksum,
                                DataSink& sink,
                                std::uint64_t soonUntil = 0);

  private:
    // Where an entry's compressed data lies, and what the input buffer holds from its start on.
    struct Located {
        std::uint64_t dataOffset = 0;
        std::uint64_t dataEnd = 0;
        bool described = false;  // a data descriptor follows
        Encryption encryption;   // as both headers tell
        ByteView buffered;
        std::uint64_t taken = 0;  // by the streaming so far

        // The next piece, read into `buffer`; empty at the end of the data.
        [[nodiscard]] Result<ByteView> next(const ByteSource& file, MutableBytes buffer);
    };

    // What is under way between start() and the end of the data.
    struct Running {
        const EntryData* data = nullptr;
        Located located;
        Decoder* decoder = nullptr;
        std::unique_ptr<Decryptor> decryptor;
        std::array<std::uint8_t, Encryption::kLongestTrailer> trailer{};
        ByteView input;  // decrypted, not yet decoded
        std::uint64_t produced = 0;
        // Grows where a size may be told modulo 2^32; by how much since the sink was told.
        std::uint64_t declared = 0;
        std::uint64_t grown = 0;
        std::uint32_t checksum = 0;
        bool skipChecksum = false;
        bool ended = false;
    };

    EntryReader(const ByteSource& file,
                const Password* password,
                const EntryLimits& limits,
                OneShotInflater inflater);

    [[nodiscard]] Result<> readUnnamed(const EntryData& data,
                                       bool skipChecksum,
                                       DataSink& sink,
                                       std::uint64_t soonUntil);
    // Reads about `wanted` bytes from the local header on, and checks the header.
    [[nodiscard]] Result<Located> locate(const EntryData& data,
                                         std::uint64_t wanted,
                                         std::uint64_t soonUntil);
    // The `size` bytes at `offset`, and as many of those behind up to `soonUntil` as come with
    // them.
    [[nodiscard]] Result<ByteView> window(std::uint64_t offset,
                                          std::size_t size,
                                          std::uint64_t soonUntil);
    [[nodiscard]] Result<> unpackWhole(const Entry& entry,
                                       ByteView compressed,
                                       bool skipChecksum,
                                       DataSink& sink);
    // Takes the entry up; what is needed of the located part's buffer stays where it is.
    [[nodiscard]] Result<> start(const EntryData& data, const Located& located, bool skipChecksum);
    [[nodiscard]] Result<> startDecrypting();
    // As pull(), with errors that are not yet told of the entry.
    [[nodiscard]] Result<std::size_t> pullUnnamed(MutableBytes output);
    // Puts what comes next into `output`, stored data straight from the file; how much it was,
    // which may be nothing before the end.
    [[nodiscard]] Result<std::size_t> decode(MutableBytes output);
    // The next piece of data, decrypted if there is a decryptor. Lies in input_.
    [[nodiscard]] Result<ByteView> nextInput();
    // Where more came out than is declared: goes on if the size may be told modulo 2^32, unless
    // that is over the limits.
    [[nodiscard]] Result<> expectMore();
    // Holds what has come against what was declared.
    [[nodiscard]] Result<> verifyEnd();
    // Where the next bytes go: the sink's own room, or output_ if it has none.
    [[nodiscard]] MutableBytes roomFor(DataSink& sink);
    // Hands all of what was started to the sink.
    [[nodiscard]] Result<> stream(DataSink& sink);
    [[nodiscard]] Result<std::unique_ptr<Decryptor>> decryptorFor(const Located& located) const;
    // In front of an encrypted entry's data, if there is a password to try on it.
    using EncryptionHeader = std::array<std::uint8_t, Encryption::kLongestHeader>;
    [[nodiscard]] Result<EncryptionHeader> encryptionHeaderOf(const Located& located) const;
    [[nodiscard]] Result<> checkDescriptor(const EntryData& data, const Located& located);
    [[nodiscard]] Result<Decoder*> decoderFor(const EntryData& data);

    const ByteSource& file_;
    const Password* password_;
    const EntryLimits limits_;
    OneShotInflater inflater_;
    std::unique_ptr<Decoder> inflateDecoder_;  // kept: nearly every large entry needs it
    std::unique_ptr<Decoder> otherDecoder_;
    std::unique_ptr<std::uint8_t[]> input_;
    std::uint64_t inputOffset_ = 0;  // where in the file it was read
    std::size_t inputSize_ = 0;      // how much of it is good
    std::unique_ptr<std::uint8_t[]> output_;
    Running running_;
};

}  // namespace pellumar::archive
