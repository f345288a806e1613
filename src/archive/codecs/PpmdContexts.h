#pragma once

#include <cstdint>

#include "archive/codecs/PpmdMemory.h"

namespace pellumar::archive {

// The contexts of a PPMd model as records in its memory: a tree by what follows what, in which each
// context also knows the next shorter one. Knows how they lie there and how they are kept in shape,
// and nothing of coding. Belongs to one thread.
class PpmdContexts {
  public:
    using Place = PpmdMemory::Place;

    // Records. Contexts: number of states less one, flags, sum of frequencies, place of the states,
    // next shorter context. A context of one state holds it instead of sum and states.
    // States: symbol, frequency, successor: in the text, or a context.
    static constexpr Place kFlagsAt = 1;
    static constexpr Place kSumAt = 2;
    static constexpr Place kOnlyStateAt = 2;
    static constexpr Place kStatesAt = 4;
    static constexpr Place kSuffixAt = 8;
    static constexpr Place kStateSize = 6;
    static constexpr Place kFrequencyAt = 1;
    static constexpr Place kSuccessorAt = 2;

    // Flags.
    static constexpr unsigned kRescaled = 0x04;
    static constexpr unsigned kHighSymbols = 0x08;      // some are 64 or more
    static constexpr unsigned kAfterHighSymbol = 0x10;  // so was the one before

    // `memory` outlives the contexts.
    explicit PpmdContexts(PpmdMemory& memory) : memory_(memory) {}

    // How many units so many states, less one, take.
    [[nodiscard]] static unsigned unitsFor(unsigned count) { return (count + 2) >> 1U; }
    // The part of a context's flags that a symbol of its own asks for.
    [[nodiscard]] static unsigned highFlag(unsigned symbol) {
        return symbol >= kFirstHighSymbol ? kHighSymbols : 0;
    }
    // The part that the symbol before the context asks for.
    [[nodiscard]] static unsigned afterHighFlag(unsigned symbol) {
        return symbol >= kFirstHighSymbol ? kAfterHighSymbol : 0;
    }

    // Makes the context that has seen every symbol once, in memory that is empty.
    [[nodiscard]] Place makeRoot();

    [[nodiscard]] unsigned countOf(Place context) const { return memory_.byteAt(context); }
    void setCount(Place context, unsigned count) {
        memory_.setByte(context, static_cast<std::uint8_t>(count));
    }
    [[nodiscard]] unsigned flagsOf(Place context) const {
        return memory_.byteAt(context + kFlagsAt);
    }
    void setFlags(Place context, unsigned flags) {
        memory_.setByte(context + kFlagsAt, static_cast<std::uint8_t>(flags));
    }
    [[nodiscard]] unsigned sumOf(Place context) const {
        return memory_.load<std::uint16_t>(context + kSumAt);
    }
    void setSum(Place context, unsigned sum) {
        memory_.store(context + kSumAt, static_cast<std::uint16_t>(sum));
    }
    [[nodiscard]] Place statesOf(Place context) const {
        return memory_.load<Place>(context + kStatesAt);
    }
    void setStates(Place context, Place states) { memory_.store(context + kStatesAt, states); }
    [[nodiscard]] Place suffixOf(Place context) const {
        return memory_.load<Place>(context + kSuffixAt);
    }
    [[nodiscard]] static Place onlyState(Place context) { return context + kOnlyStateAt; }
    [[nodiscard]] unsigned symbolOf(Place state) const { return memory_.byteAt(state); }
    [[nodiscard]] unsigned frequencyOf(Place state) const {
        return memory_.byteAt(state + kFrequencyAt);
    }
    void setFrequency(Place state, unsigned frequency) {
        memory_.setByte(state + kFrequencyAt, static_cast<std::uint8_t>(frequency));
    }
    [[nodiscard]] Place successorOf(Place state) const {
        return memory_.load<Place>(state + kSuccessorAt);
    }
    void setSuccessor(Place state, Place successor) {
        memory_.store(state + kSuccessorAt, successor);
    }
    void copyState(Place to, Place from) { memory_.move(to, from, kStateSize); }
    void swapStates(Place one, Place other);
    [[nodiscard]] Place findState(Place context, unsigned symbol) const;
    // After some states have gone: gives the others less room, which took `oldUnits`, and halves
    // their frequencies if `scale` is 1; sums and flags follow.
    void refresh(Place context, unsigned oldUnits, unsigned scale);
    // Makes a context of one state of one that has lost all others.
    void becomeBinary(Place context);
    // Takes out of the tree, from a context of that order on, what leads into the text or is longer
    // than `longest`. The context's place, or none if it is gone. As deep as contexts are long.
    [[nodiscard]] Place cutOff(Place context, unsigned order, unsigned longest);

  private:
    static constexpr unsigned kFirstHighSymbol = 0x40;

    [[nodiscard]] Place cutOffBinary(Place context, unsigned order, unsigned longest);

    PpmdMemory& memory_;
};

}  // namespace pellumar::archive
