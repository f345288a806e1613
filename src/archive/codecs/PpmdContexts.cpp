#include "archive/codecs/PpmdContexts.h"

#include <array>

namespace pellumar::archive {

PpmdContexts::Place PpmdContexts::makeRoot() {
    constexpr unsigned kAllSymbols = 255;  // the count of a context that has seen all
    const Place root = memory_.allocateContext();
    const Place states = memory_.allocate((kAllSymbols + 1) / 2);
    setCount(root, kAllSymbols);
    setFlags(root, 0);
    setSum(root, kAllSymbols + 2);
    setStates(root, states);
    memory_.store(root + kSuffixAt, PpmdMemory::kNone);
    for (unsigned symbol = 0; symbol <= kAllSymbols; ++symbol) {
        const Place state = states + symbol * kStateSize;
        memory_.setByte(state, static_cast<std::uint8_t>(symbol));
        setFrequency(state, 1);
        setSuccessor(state, PpmdMemory::kNone);
    }
    return root;
}

void PpmdContexts::swapStates(Place one, Place other) {
    std::array<std::uint8_t, kStateSize> kept{};
    for (Place i = 0; i < kStateSize; ++i) {
        kept[i] = memory_.byteAt(one + i);
        memory_.setByte(one + i, memory_.byteAt(other + i));
        memory_.setByte(other + i, kept[i]);
    }
}

PpmdContexts::Place PpmdContexts::findState(Place context, unsigned symbol) const {
    Place state = statesOf(context);
    while (symbolOf(state) != symbol) {
        state += kStateSize;
    }
    return state;
}

void PpmdContexts::refresh(Place context, unsigned oldUnits, unsigned scale) {
    const unsigned count = countOf(context);
    Place state = memory_.shrink(statesOf(context), oldUnits, unitsFor(count));
    setStates(context, state);
    unsigned flags = flagsOf(context) & (kAfterHighSymbol + kRescaled * scale);
    unsigned escapes = sumOf(context);
    unsigned sum = 0;
    for (unsigned i = 0; i <= count; ++i, state += kStateSize) {
        escapes -= frequencyOf(state);
        setFrequency(state, (frequencyOf(state) + scale) >> scale);
        sum += frequencyOf(state);
        flags |= highFlag(symbolOf(state));
    }
    setSum(context, sum + ((escapes + scale) >> scale));
    setFlags(context, flags);
}

void PpmdContexts::becomeBinary(Place context) {
    const Place states = statesOf(context);
    setFlags(context, (flagsOf(context) & kAfterHighSymbol) + highFlag(symbolOf(states)));
    copyState(onlyState(context), states);
}

PpmdContexts::Place PpmdContexts::cutOffBinary(Place context, unsigned order, unsigned longest) {
    constexpr unsigned kKept = 9;  // contexts up to this length stay
    const Place state = onlyState(context);
    if (memory_.isUnit(successorOf(state))) {
        setSuccessor(
            state,
            order < longest ? cutOff(successorOf(state), order + 1, longest) : PpmdMemory::kNone);
        if (successorOf(state) != PpmdMemory::kNone || order <= kKept) {
            return context;
        }
    }
    memory_.releaseToText(context);
    return PpmdMemory::kNone;
}

// NOLINTNEXTLINE(misc-no-recursion)
PpmdContexts::Place PpmdContexts::cutOff(Place context, unsigned order, unsigned longest) {
    const unsigned count = countOf(context);
    if (count == 0) {
        return cutOffBinary(context, order, longest);
    }
    const unsigned units = unitsFor(count);
    const Place states = memory_.moveUp(statesOf(context), units);
    setStates(context, states);
    unsigned left = count + 1;
    for (unsigned i = count + 1; i-- > 0;) {
        const Place state = states + i * kStateSize;
        if (!memory_.isUnit(successorOf(state))) {
            setSuccessor(state, PpmdMemory::kNone);
            --left;
            swapStates(state, states + left * kStateSize);
        } else {
            setSuccessor(state,
                         order < longest ? cutOff(successorOf(state), order + 1, longest)
                                         : PpmdMemory::kNone);
        }
    }
    if (left == count + 1 || order == 0) {
        return context;
    }
    if (left == 0) {
        memory_.release(states, units);
        memory_.releaseToText(context);
        return PpmdMemory::kNone;
    }
    setCount(context, left - 1);
    if (left == 1) {
        becomeBinary(context);
        memory_.release(states, units);
        setFrequency(onlyState(context), (frequencyOf(onlyState(context)) + 11) >> 3U);
    } else {
        refresh(context, units, sumOf(context) > 16 * (left - 1) ? 1 : 0);
    }
    return context;
}

}  // namespace pellumar::archive
