#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "archive/codecs/PpmdContexts.h"
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

    [[nodiscard]] bool isBinary() const { return tree_.countOf(context_) == 0; }
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
    static constexpr Place kStateSize = PpmdContexts::kStateSize;

    // An adaptive chance of an escape.
    struct Estimate {
        std::uint16_t sum = 0;
        std::uint8_t shift = 0;
        std::uint8_t count = 0;
    };

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
    void restore(Place until);

    PpmdMemory memory_;
    PpmdContexts tree_{memory_};
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
