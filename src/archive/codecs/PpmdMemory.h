#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>

namespace pellumar::archive {

// The memory of a PPMd model: contexts and their symbols in units of 12 bytes at the upper end, the
// text that was read at the lower one. The model depends on when the room runs out, so what is
// allocated where is part of the format: this is the allocator of Dmitry Shkarin's variant I.
//
// Places are offsets; 0 is none. Belongs to one model.
class PpmdMemory {
  public:
    using Place = std::uint32_t;
    static constexpr Place kNone = 0;
    static constexpr std::uint32_t kUnit = 12;

    // Allocates so many bytes, which are touched only as they are used; false if there are none.
    [[nodiscard]] bool create(std::uint32_t size);

    // Forgets all; then come units for the contexts of length 0.
    void clear();

    [[nodiscard]] Place allocateContext();
    // `units` is how many there are, 1 to 128. kNone if there is no more room.
    [[nodiscard]] Place allocate(unsigned units);
    // Makes room for one unit more than `units`, at another place if need be; kNone if there is
    // none: then the old place is still good.
    [[nodiscard]] Place expand(Place place, unsigned units);
    [[nodiscard]] Place shrink(Place place, unsigned oldUnits, unsigned newUnits);
    void release(Place place, unsigned units);
    // Of one unit, which goes to the text if it is next to that.
    void releaseToText(Place place);
    // To a lower place, if there is one free and this is near the text.
    [[nodiscard]] Place moveUp(Place place, unsigned units);
    // Gives the text what is free next to it.
    void expandText();
    void gluesAtOnce() { glueCount_ = 0; }

    [[nodiscard]] std::uint32_t size() const { return size_; }
    [[nodiscard]] std::uint32_t used() const;

    // ---- The text. It begins at kTextStart; a place below isUnit() lies in it.
    [[nodiscard]] Place textEnd() const { return text_; }
    [[nodiscard]] bool isUnit(Place place) const { return place >= unitsStart_; }
    // False if the text has now reached the units.
    [[nodiscard]] bool appendText(std::uint8_t byte);
    void dropText() { --text_; }
    void clearText() { text_ = kTextStart; }

    // ---- Reading and writing, little-endian or not as the machine likes.
    [[nodiscard]] std::uint8_t byteAt(Place place) const { return bytes_[place]; }
    void setByte(Place place, std::uint8_t value) { bytes_[place] = value; }
    template <typename T>
    [[nodiscard]] T load(Place place) const {
        T value;
        std::memcpy(&value, &bytes_[place], sizeof value);
        return value;
    }
    template <typename T>
    void store(Place place, T value) {
        std::memcpy(&bytes_[place], &value, sizeof value);
    }
    void move(Place to, Place from, std::size_t size) {
        std::memmove(&bytes_[to], &bytes_[from], size);
    }

  private:
    // Free blocks come in 38 sizes: 1 to 4 units one by one, then in steps of 2, 3 and 4 up to 128.
    static constexpr std::size_t kSizes = 38;
    static constexpr unsigned kMostUnits = 128;
    // So that no place is 0, and units lie on boundaries of four bytes.
    static constexpr Place kTextStart = kUnit;
    static constexpr std::uint32_t kFreeMark = 0xFFFFFFFF;

    struct SizeTables {
        std::array<std::uint8_t, kSizes> units{};
        std::array<std::uint8_t, kMostUnits> index{};  // of so many units and one
    };
    [[nodiscard]] static SizeTables makeTables();
    static const SizeTables kTables;

    [[nodiscard]] static unsigned unitsOf(std::size_t index) { return kTables.units[index]; }
    [[nodiscard]] static std::size_t indexOf(unsigned units) { return kTables.index[units - 1]; }

    // A free block holds the mark, the place of the next one, and its units.
    [[nodiscard]] std::uint32_t mark(Place block) const { return load<std::uint32_t>(block); }
    void setMark(Place block, std::uint32_t value) { store(block, value); }
    [[nodiscard]] Place next(Place block) const { return load<std::uint32_t>(block + 4); }
    void setNext(Place block, Place value) { store(block + 4, value); }
    [[nodiscard]] std::uint32_t units(Place block) const { return load<std::uint32_t>(block + 8); }
    void setUnits(Place block, std::uint32_t value) { store(block + 8, value); }

    void insert(Place block, std::size_t index);
    [[nodiscard]] Place remove(std::size_t index);
    // Cuts off all but the first `used` units and makes the rest free.
    void split(Place block, unsigned whole, unsigned used);
    void freeRun(Place block, unsigned count);
    [[nodiscard]] Place allocateRarely(std::size_t index);
    void glue();

    std::unique_ptr<std::uint8_t[]> bytes_;
    std::uint32_t size_ = 0;
    Place text_ = 0;        // the end of the text
    Place unitsStart_ = 0;  // the first byte that is no text's
    Place low_ = 0;         // between these two nothing was allocated yet
    Place high_ = 0;
    unsigned glueCount_ = 0;
    std::array<Place, kSizes> free_{};
    std::array<std::uint32_t, kSizes> freeCount_{};
};

}  // namespace pellumar::archive
