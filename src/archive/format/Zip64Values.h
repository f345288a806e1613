#pragma once

#include <cstdint>

#include "archive/base/Bytes.h"
#include "archive/format/ExtraFields.h"
#include "archive/format/ZipFormat.h"

namespace pellumar::archive::format {

// Hands out the values of a header's ZIP64 extra field (APPNOTE 4.5.3): they stand there in a fixed
// order, each only if its field in the header is at its maximum.
class Zip64Values {
  public:
    explicit Zip64Values(ByteView extra) {
        if (const auto field = findExtraField(extra, kExtraZip64)) {
            present_ = true;
            rest_ = *field;
        }
    }

    // Puts the 64 bit value into `value` if that is masked. Without a ZIP64 field a value at its
    // maximum means itself. False if the field is too short for the value.
    [[nodiscard]] bool resolve(std::uint64_t& value) {
        if (value != kMax32 || !present_) {
            return true;
        }
        if (rest_.size() < sizeof(std::uint64_t)) {
            return false;
        }
        value = loadLittleEndian<std::uint64_t>(rest_);
        rest_ = rest_.subspan(sizeof(std::uint64_t));
        return true;
    }

    // The same for the disk number, a field of 16 bits that becomes one of 32.
    [[nodiscard]] bool resolveDisk(std::uint32_t& disk) {
        if (disk != kMax16 || !present_) {
            return true;
        }
        if (rest_.size() < sizeof(std::uint32_t)) {
            return false;
        }
        disk = loadLittleEndian<std::uint32_t>(rest_);
        return true;
    }

  private:
    bool present_ = false;
    ByteView rest_;
};

}  // namespace pellumar::archive::format
