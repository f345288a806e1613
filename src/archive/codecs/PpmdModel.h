#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "archive/codecs/PpmdMemory.h"

namespace pellumar::archive {

// The statistics of Dmitry Shkarin's PPMd, variant I revision 1 (APPNOTE 5.10): what followed each
// context of up to so many bytes, and how often. Encoder and decoder ask it the same questions and
// tell it the same answers, so they change it in step.
//
// A symbol is coded in steps. The first asks binaryChance() if the present context has seen one
// symbol only, else states(); while a step ends in an escape, escape() goes to the next shorter
// context, which leaves out what was seen. Belongs to one thread.
class PpmdModel {
  public:
    using Place = PpmdMemory::Place;

    static constexpr unsigned kShortestOrder = 2;
    static constexpr unsigned kLongestOrder = 16;
    static constexpr unsigned kBinaryBits = 14;  // chances are of so many bits

    enum class WhenFull : std::uint8_t { kStartAnew, kCutOff };

    // A symbol of a context, by its place.
    struct State {
        Place place = PpmdMemory::kNone;
        std::uint8_t symbol = 0;
        std::uint8_t frequency = 0;
    };
    // The choice of a step: `count` states in order, then the escape, out of `total`.
    struct Choice {
        std::array<State, 256> states;
        unsigned count = 0;
        std::uint32_t statesTotal = 0;
        std::uint32_t total = 0;
    };

    // `memory` is how many bytes the statistics may take; false if there are none.
    [[nodiscard]] bool create(std::uint32_t memory);
    // Forgets all.
    void start(unsigned order, WhenFull whenFull);

    [[nodiscard]] bool isBinary() const { return countOf(context_) == 0; }
    // The chance that the only symbol follows.
    [[nodiscard]] std::uint16_t binaryChance();
    // It does; the symbol is returned.
    [[nodiscard]] std::uint8_t takeBinary();
    void escapeBinary();

    // The choice of the present context, without what was left out.
    void choose(Choice& choice);
    void take(const Choice& choice, unsigned index);
    void escape(const Choice& choice);

    // Goes to the next shorter context that knows more symbols; false if there is none: the end.
    [[nodiscard]] bool shorten();

  private:
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

    // An adaptive chance of an escape.
    struct Estimate {
        std::uint16_t sum = 0;
        std::uint8_t shift = 0;
        std::uint8_t count = 0;
    };

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

    void startAnew();
    void startChances();
    [[nodiscard]] std::uint16_t& chance();
    void estimateEscape(Choice& choice);
    // After the symbol of found_ was coded.
    void advance();
    void update();
    // The state of the found symbol in the next shorter context, seen once more; none if there is
    // no such context, or it is not to be told.
    [[nodiscard]] Place tellShorter();
    // Where the found symbol leads, in the contexts above the present one; kNone if memory is out.
    [[nodiscard]] Place followFound(Place shorter);
    // Adds the found symbol to the contexts from `context` on; false, and `context` the one that
    // could not be, if memory is out.
    [[nodiscard]] bool addFound(Place& context, Place successor, unsigned found);
    [[nodiscard]] bool makeRoom(Place context, unsigned presentCount);
    // The context's state for the symbol, seen once more.
    [[nodiscard]] Place countMore(Place context, unsigned symbol);
    [[nodiscard]] Place createSuccessors(bool skip, Place shorter, Place context);
    [[nodiscard]] unsigned inheritedFrequency(Place context, unsigned symbol) const;
    [[nodiscard]] Place reduceOrder(Place shorter, Place context);
    void rescale();
    void dropUnseen(unsigned unseen, unsigned escapes);
    void refresh(Place context, unsigned oldUnits, unsigned scale);
    [[nodiscard]] Place cutOff(Place context, unsigned order);
    [[nodiscard]] Place cutOffBinary(Place context, unsigned order);
    void restore(Place until);
    // Makes a context of one state of one that has lost all others.
    void becomeBinary(Place context);

    PpmdMemory memory_;
    unsigned order_ = kShortestOrder;
    WhenFull whenFull_ = WhenFull::kStartAnew;

    Place context_ = 0;         // the present one
    Place longestContext_ = 0;  // the longest of all that hold
    Place found_ = 0;           // the state that was coded last
    unsigned orderFall_ = 0;    // how much shorter the present context is than it may be
    unsigned leftOut_ = 0;      // how many symbols an escape has left out
    std::array<bool, 256> isLeftOut_{};
    unsigned initialEscape_ = 0;
    unsigned lastWasLikely_ = 0;
    std::int32_t runLength_ = 0;
    std::int32_t initialRunLength_ = 0;
    std::array<std::array<std::uint16_t, 64>, 25> chances_{};
    std::array<std::array<Estimate, 32>, 24> estimates_{};
    Estimate noEstimate_;
    Estimate* estimate_ = nullptr;  // of the escape that choose() has told
};

}  // namespace pellumar::archive
