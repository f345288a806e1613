#include "archive/codecs/PpmdMemory.h"

#include <new>

namespace pellumar::archive {

const PpmdMemory::SizeTables PpmdMemory::kTables = makeTables();

PpmdMemory::SizeTables PpmdMemory::makeTables() {
    SizeTables tables;
    unsigned units = 0;
    for (std::size_t i = 0; i < kSizes; ++i) {
        const unsigned step = i >= 12 ? 4 : static_cast<unsigned>(i / 4) + 1;
        for (unsigned k = 0; k < step; ++k) {
            tables.index[units++] = static_cast<std::uint8_t>(i);
        }
        tables.units[i] = static_cast<std::uint8_t>(units);
    }
    return tables;
}

bool PpmdMemory::create(std::uint32_t size) {
    size_ = size;
    // A guard behind the end, which a block at the very end would look at.
    bytes_.reset(new (std::nothrow) std::uint8_t[std::size_t{kTextStart} + size + kUnit]);
    return bytes_ != nullptr;
}

void PpmdMemory::clear() {
    free_.fill(kNone);
    freeCount_.fill(0);
    text_ = kTextStart;
    high_ = text_ + size_;
    low_ = unitsStart_ = high_ - size_ / 8 / kUnit * 7 * kUnit;
    glueCount_ = 0;
}

void PpmdMemory::insert(Place block, std::size_t index) {
    setMark(block, kFreeMark);
    setNext(block, free_[index]);
    setUnits(block, unitsOf(index));
    free_[index] = block;
    ++freeCount_[index];
}

PpmdMemory::Place PpmdMemory::remove(std::size_t index) {
    const Place block = free_[index];
    free_[index] = next(block);
    --freeCount_[index];
    return block;
}

// A run of units of which there may be no size becomes two blocks.
void PpmdMemory::freeRun(Place block, unsigned count) {
    std::size_t index = indexOf(count);
    if (unitsOf(index) != count) {
        --index;
        const unsigned first = unitsOf(index);
        insert(block + first * kUnit, count - first - 1);
    }
    insert(block, index);
}

void PpmdMemory::split(Place block, unsigned whole, unsigned used) {
    freeRun(block + used * kUnit, whole - used);
}

PpmdMemory::Place PpmdMemory::allocateContext() {
    if (high_ != low_) {
        return high_ -= kUnit;
    }
    return free_[0] != kNone ? remove(0) : allocateRarely(0);
}

PpmdMemory::Place PpmdMemory::allocate(unsigned units) {
    const std::size_t index = indexOf(units);
    if (free_[index] != kNone) {
        return remove(index);
    }
    const std::uint32_t bytes = unitsOf(index) * kUnit;
    if (bytes <= high_ - low_) {
        const Place place = low_;
        low_ += bytes;
        return place;
    }
    return allocateRarely(index);
}

PpmdMemory::Place PpmdMemory::allocateRarely(std::size_t index) {
    if (glueCount_ == 0) {
        glue();
        if (free_[index] != kNone) {
            return remove(index);
        }
    }
    for (std::size_t larger = index + 1; larger < kSizes; ++larger) {
        if (free_[larger] != kNone) {
            const Place block = remove(larger);
            split(block, unitsOf(larger), unitsOf(index));
            return block;
        }
    }
    --glueCount_;
    const std::uint32_t bytes = unitsOf(index) * kUnit;
    return unitsStart_ - text_ > bytes ? unitsStart_ -= bytes : kNone;
}

PpmdMemory::Place PpmdMemory::expand(Place place, unsigned units) {
    const std::size_t index = indexOf(units);
    if (index == indexOf(units + 1)) {
        return place;
    }
    const Place larger = allocate(units + 1);
    if (larger != kNone) {
        move(larger, place, std::size_t{units} * kUnit);
        insert(place, index);
    }
    return larger;
}

PpmdMemory::Place PpmdMemory::shrink(Place place, unsigned oldUnits, unsigned newUnits) {
    const std::size_t oldIndex = indexOf(oldUnits);
    const std::size_t newIndex = indexOf(newUnits);
    if (oldIndex == newIndex) {
        return place;
    }
    if (free_[newIndex] != kNone) {
        const Place smaller = remove(newIndex);
        move(smaller, place, std::size_t{newUnits} * kUnit);
        insert(place, oldIndex);
        return smaller;
    }
    split(place, unitsOf(oldIndex), unitsOf(newIndex));
    return place;
}

void PpmdMemory::release(Place place, unsigned units) {
    insert(place, indexOf(units));
}

void PpmdMemory::releaseToText(Place place) {
    if (place == unitsStart_) {
        unitsStart_ += kUnit;
    } else {
        insert(place, 0);
    }
}

PpmdMemory::Place PpmdMemory::moveUp(Place place, unsigned units) {
    constexpr std::uint32_t kNear = 16U * 1024;
    const std::size_t index = indexOf(units);
    if (place > unitsStart_ + kNear || place > free_[index]) {
        return place;
    }
    const Place lower = remove(index);
    move(lower, place, std::size_t{units} * kUnit);
    if (place == unitsStart_) {
        unitsStart_ += unitsOf(index) * kUnit;
    } else {
        insert(place, index);
    }
    return lower;
}

void PpmdMemory::expandText() {
    if (low_ != high_) {
        setMark(low_, 0);
    }
    std::array<std::uint32_t, kSizes> taken{};
    while (mark(unitsStart_) == kFreeMark) {
        setMark(unitsStart_, 0);
        ++taken[indexOf(units(unitsStart_))];
        unitsStart_ += units(unitsStart_) * kUnit;
    }
    for (std::size_t i = 0; i < kSizes; ++i) {
        Place before = kNone;
        for (Place block = free_[i]; taken[i] > 0 && block != kNone; block = next(block)) {
            if (mark(block) != 0) {
                before = block;
                continue;
            }
            if (before == kNone) {
                free_[i] = next(block);
            } else {
                setNext(before, next(block));
            }
            --freeCount_[i];
            --taken[i];
        }
    }
}

// Joins neighbours that are free, and hands them out by size again.
void PpmdMemory::glue() {
    constexpr unsigned kAllocationsUntilNext = 1U << 13U;
    // The units at the upper end are contexts; what is between was never marked.
    if (low_ != high_) {
        setMark(low_, 0);
    }
    Place first = kNone;
    Place last = kNone;
    for (std::size_t i = 0; i < kSizes; ++i) {
        Place block = free_[i];
        while (block != kNone) {
            const Place following = next(block);
            if (units(block) != 0) {
                if (last == kNone) {
                    first = block;
                } else {
                    setNext(last, block);
                }
                last = block;
                for (Place neighbour = block + units(block) * kUnit; mark(neighbour) == kFreeMark;
                     neighbour = block + units(block) * kUnit) {
                    setUnits(block, units(block) + units(neighbour));
                    setUnits(neighbour, 0);
                }
            }
            block = following;
        }
    }
    if (last != kNone) {
        setNext(last, kNone);
    }
    free_.fill(kNone);
    freeCount_.fill(0);
    while (first != kNone) {
        Place block = first;
        first = next(block);
        std::uint32_t count = units(block);
        if (count == 0) {
            continue;
        }
        for (; count > kMostUnits; count -= kMostUnits, block += kMostUnits * kUnit) {
            insert(block, kSizes - 1);
        }
        freeRun(block, count);
    }
    glueCount_ = kAllocationsUntilNext;
}

std::uint32_t PpmdMemory::used() const {
    std::uint32_t freeUnits = 0;
    for (std::size_t i = 0; i < kSizes; ++i) {
        freeUnits += freeCount_[i] * unitsOf(i);
    }
    return size_ - (high_ - low_) - (unitsStart_ - text_) - freeUnits * kUnit;
}

bool PpmdMemory::appendText(std::uint8_t byte) {
    bytes_[text_++] = byte;
    return text_ < unitsStart_;
}

}  // namespace pellumar::archive
