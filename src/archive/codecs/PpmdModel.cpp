#include "archive/codecs/PpmdModel.h"

#include <algorithm>
#include <utility>

namespace pellumar::archive {

namespace {

// Numbers of the method.
constexpr unsigned kHighestFrequency = 124;
constexpr unsigned kChanceBits = 7;  // how far a chance moves at a time
constexpr unsigned kPeriodBits = 7;
constexpr unsigned kAllSymbols = 255;  // count of a context that has seen all
constexpr unsigned kRescaled = 0x04;
constexpr unsigned kHighSymbols = 0x08;      // some are 64 or more
constexpr unsigned kAfterHighSymbol = 0x10;  // so was the one before
constexpr unsigned kFirstHighSymbol = 0x40;

constexpr std::array<std::uint16_t, 8> kInitialEscapes =
    {0x3CDD, 0x1F3F, 0x59BF, 0x48F3, 0x64A1, 0x5ABC, 0x6632, 0x6051};
constexpr std::array<std::uint8_t, 16> kEscapesByChance =
    {25, 14, 9, 7, 5, 5, 4, 4, 4, 3, 3, 3, 2, 2, 2, 2};

// Frequencies and counts fall into classes that grow wider, each one step wider than the last.
constexpr std::array<std::uint8_t, 260> kClasses = [] {
    std::array<std::uint8_t, 260> classes{};
    for (unsigned i = 0; i < 5; ++i) {
        classes[i] = static_cast<std::uint8_t>(i);
    }
    unsigned width = 1;
    unsigned number = 5;
    for (unsigned i = 5; i < classes.size(); ++i) {
        classes[i] = static_cast<std::uint8_t>(number);
        if (--width == 0) {
            ++number;
            width = number - 4;
        }
    }
    return classes;
}();

// How many symbols the next shorter context knows, as a part of an index.
unsigned classOfCount(unsigned count) {
    return count == 0 ? 0 : count == 1 ? 2 : count < 11 ? 4 : 6;
}

unsigned highFlag(unsigned symbol) {
    return symbol >= kFirstHighSymbol ? kHighSymbols : 0;
}

unsigned unitsFor(unsigned count) {
    return (count + 2) >> 1U;
}

std::uint16_t stepOf(std::uint16_t chance) {
    constexpr unsigned kRound = 1U << (kPeriodBits - 2);
    return static_cast<std::uint16_t>((chance + kRound) >> kPeriodBits);
}

}  // namespace

bool PpmdModel::create(std::uint32_t memory) {
    return memory_.create(memory);
}

void PpmdModel::start(unsigned order, WhenFull whenFull) {
    order_ = order;
    whenFull_ = whenFull;
    initialEscape_ = 0;
    noEstimate_ = {.sum = 0, .shift = kPeriodBits, .count = 64};
    leftOut_ = 0;
    isLeftOut_.fill(false);
    startAnew();
}

void PpmdModel::startAnew() {
    memory_.clear();
    orderFall_ = order_;
    initialRunLength_ = -static_cast<std::int32_t>(std::min(order_, 12U)) - 1;
    runLength_ = initialRunLength_;
    lastWasLikely_ = 0;
    context_ = longestContext_ = memory_.allocateContext();
    found_ = memory_.allocate((kAllSymbols + 1) / 2);
    setCount(context_, kAllSymbols);
    setFlags(context_, 0);
    setSum(context_, kAllSymbols + 2);
    setStates(context_, found_);
    memory_.store(context_ + kSuffixAt, PpmdMemory::kNone);
    for (unsigned symbol = 0; symbol <= kAllSymbols; ++symbol) {
        const Place state = found_ + symbol * kStateSize;
        memory_.setByte(state, static_cast<std::uint8_t>(symbol));
        setFrequency(state, 1);
        setSuccessor(state, PpmdMemory::kNone);
    }
    startChances();
}

void PpmdModel::startChances() {
    unsigned i = 0;
    for (unsigned number = 0; number < chances_.size(); ++number) {
        while (kClasses[i] == number) {
            ++i;
        }
        for (std::size_t k = 0; k < chances_[number].size(); ++k) {
            chances_[number][k] = static_cast<std::uint16_t>(
                (1U << kBinaryBits) - kInitialEscapes[k % kInitialEscapes.size()] / (i + 1));
        }
    }
    i = 0;
    for (unsigned number = 0; number < estimates_.size(); ++number) {
        while (kClasses[i + 3] == number + 3) {
            ++i;
        }
        constexpr std::uint8_t kShift = kPeriodBits - 4;
        estimates_[number].fill({.sum = static_cast<std::uint16_t>((2 * i + 5) << kShift),
                                 .shift = kShift,
                                 .count = 7});
    }
}

void PpmdModel::swapStates(Place one, Place other) {
    std::array<std::uint8_t, kStateSize> kept{};
    for (Place i = 0; i < kStateSize; ++i) {
        kept[i] = memory_.byteAt(one + i);
        memory_.setByte(one + i, memory_.byteAt(other + i));
        memory_.setByte(other + i, kept[i]);
    }
}

PpmdModel::Place PpmdModel::findState(Place context, unsigned symbol) const {
    Place state = statesOf(context);
    while (symbolOf(state) != symbol) {
        state += kStateSize;
    }
    return state;
}

std::uint16_t& PpmdModel::chance() {
    const std::size_t row = std::min<std::size_t>(
        kClasses[std::max(frequencyOf(onlyState(context_)), 1U) - 1], chances_.size() - 1);
    const std::size_t run = runLength_ < 0 ? 0x20 : 0;
    return chances_[row][classOfCount(countOf(suffixOf(context_))) + lastWasLikely_ +
                         flagsOf(context_) + run];
}

std::uint16_t PpmdModel::binaryChance() {
    return chance();
}

std::uint8_t PpmdModel::takeBinary() {
    std::uint16_t& likely = chance();
    likely = static_cast<std::uint16_t>(likely + (1U << kChanceBits) - stepOf(likely));
    found_ = onlyState(context_);
    const auto symbol = static_cast<std::uint8_t>(symbolOf(found_));
    const unsigned frequency = frequencyOf(found_);
    setFrequency(found_, frequency + (frequency < 196 ? 1 : 0));
    lastWasLikely_ = 1;
    ++runLength_;
    advance();
    return symbol;
}

void PpmdModel::escapeBinary() {
    std::uint16_t& likely = chance();
    likely = static_cast<std::uint16_t>(likely - stepOf(likely));
    initialEscape_ = kEscapesByChance[likely >> 10U];
    isLeftOut_[symbolOf(onlyState(context_))] = true;
    leftOut_ = 1;
    lastWasLikely_ = 0;
}

void PpmdModel::choose(Choice& choice) {
    choice.count = 0;
    choice.statesTotal = 0;
    Place state = statesOf(context_);
    for (unsigned i = 0; i <= countOf(context_); ++i, state += kStateSize) {
        const auto symbol = static_cast<std::uint8_t>(symbolOf(state));
        if (leftOut_ > 0 && isLeftOut_[symbol]) {
            continue;
        }
        const auto frequency = static_cast<std::uint8_t>(frequencyOf(state));
        choice.states[choice.count++] = {.place = state, .symbol = symbol, .frequency = frequency};
        choice.statesTotal += frequency;
    }
    if (leftOut_ == 0) {
        choice.total = sumOf(context_);
    } else {
        estimateEscape(choice);
    }
}

void PpmdModel::estimateEscape(Choice& choice) {
    const unsigned count = countOf(context_);
    if (count == kAllSymbols) {
        estimate_ = &noEstimate_;
        choice.total = choice.statesTotal + 1;
        return;
    }
    const std::size_t column = (sumOf(context_) > 11 * (count + 1) ? 1U : 0U) +
                               (2 * count < countOf(suffixOf(context_)) + leftOut_ - 1 ? 2U : 0U) +
                               flagsOf(context_);
    estimate_ = &estimates_[kClasses[count + 2] - 3U][column];
    const unsigned mean = unsigned{estimate_->sum} >> estimate_->shift;
    estimate_->sum = static_cast<std::uint16_t>(estimate_->sum - mean);
    choice.total = choice.statesTotal + std::max(mean, 1U);
}

void PpmdModel::take(const Choice& choice, unsigned index) {
    constexpr unsigned kMore = 4;
    found_ = choice.states[index].place;
    const unsigned frequency = frequencyOf(found_);
    if (leftOut_ > 0) {
        if (estimate_->shift < kPeriodBits && --estimate_->count == 0) {
            estimate_->sum = static_cast<std::uint16_t>(estimate_->sum << 1U);
            estimate_->count = static_cast<std::uint8_t>(3U << estimate_->shift++);
        }
        runLength_ = initialRunLength_;
    } else if (index == 0) {
        lastWasLikely_ = 2 * frequency >= sumOf(context_) ? 1 : 0;
        runLength_ += static_cast<std::int32_t>(lastWasLikely_);
    } else {
        lastWasLikely_ = 0;
    }
    setSum(context_, sumOf(context_) + kMore);
    setFrequency(found_, frequency + kMore);
    // Only symbols found at once move up one by one.
    const bool isSorted = leftOut_ > 0 || index == 0;
    bool isHigh = frequency + kMore > kHighestFrequency;
    if (!isSorted) {
        const Place before = found_ - kStateSize;
        if (frequency + kMore > frequencyOf(before)) {
            swapStates(found_, before);
            found_ = before;
        } else {
            isHigh = false;
        }
    }
    if (isHigh) {
        rescale();
    }
    advance();
}

void PpmdModel::escape(const Choice& choice) {
    if (leftOut_ == 0) {
        lastWasLikely_ = 0;
    } else {
        estimate_->sum = static_cast<std::uint16_t>(estimate_->sum + choice.total);
    }
    for (unsigned i = 0; i < choice.count; ++i) {
        isLeftOut_[choice.states[i].symbol] = true;
    }
    leftOut_ += choice.count;
}

bool PpmdModel::shorten() {
    do {
        ++orderFall_;
        if (suffixOf(context_) == PpmdMemory::kNone) {
            return false;
        }
        context_ = suffixOf(context_);
    } while (countOf(context_) + 1 == leftOut_);
    return true;
}

void PpmdModel::advance() {
    if (leftOut_ > 0) {
        isLeftOut_.fill(false);
    }
    const Place successor = successorOf(found_);
    if (leftOut_ == 0 && orderFall_ == 0 && memory_.isUnit(successor)) {
        context_ = longestContext_ = successor;
    } else {
        update();
        context_ = longestContext_;
    }
    leftOut_ = 0;
}

PpmdModel::Place PpmdModel::tellShorter() {
    const Place suffix = suffixOf(context_);
    if (frequencyOf(found_) >= kHighestFrequency / 4 || suffix == PpmdMemory::kNone) {
        return PpmdMemory::kNone;
    }
    if (countOf(suffix) == 0) {
        const Place state = onlyState(suffix);
        setFrequency(state, frequencyOf(state) + (frequencyOf(state) < 32 ? 1 : 0));
        return state;
    }
    Place state = findState(suffix, symbolOf(found_));
    if (state != statesOf(suffix) && frequencyOf(state) >= frequencyOf(state - kStateSize)) {
        swapStates(state, state - kStateSize);
        state -= kStateSize;
    }
    if (frequencyOf(state) < kHighestFrequency - 9) {
        setFrequency(state, frequencyOf(state) + 2);
        setSum(suffix, sumOf(suffix) + 2);
    }
    return state;
}

void PpmdModel::update() {
    const Place shorter = tellShorter();
    Place context = longestContext_;
    if (orderFall_ == 0 && successorOf(found_) != PpmdMemory::kNone) {
        const Place made = createSuccessors(true, shorter, context_);
        setSuccessor(found_, made);
        if (made == PpmdMemory::kNone) {
            restore(context);
        } else {
            longestContext_ = made;
        }
        return;
    }
    const unsigned frequency = frequencyOf(found_);
    const unsigned symbol = symbolOf(found_);
    const bool hasRoom = memory_.appendText(static_cast<std::uint8_t>(symbol));
    Place successor = memory_.textEnd();
    if (!hasRoom) {
        restore(context);
        return;
    }
    const Place following = followFound(shorter);
    if (following == PpmdMemory::kNone) {
        restore(context);
        return;
    }
    if (--orderFall_ == 0) {
        successor = following;
        if (longestContext_ != context_) {
            memory_.dropText();
        }
    }
    found_ = PpmdMemory::kNone;
    if (!addFound(context, successor, frequency << 8U | symbol)) {
        restore(context);
        return;
    }
    longestContext_ = context_ = following;
}

PpmdModel::Place PpmdModel::followFound(Place shorter) {
    const Place following = successorOf(found_);
    if (following == PpmdMemory::kNone) {
        return reduceOrder(shorter, context_);
    }
    return memory_.isUnit(following) ? following : createSuccessors(false, shorter, context_);
}

// `found` is a frequency and a symbol.
bool PpmdModel::addFound(Place& context, Place successor, unsigned found) {
    const unsigned frequency = found >> 8U;
    const unsigned symbol = found & 0xFFU;
    const unsigned presentCount = countOf(context_);
    const std::uint32_t others = sumOf(context_) - presentCount - frequency;
    for (; context != context_; context = suffixOf(context)) {
        if (!makeRoom(context, presentCount)) {
            return false;
        }
        const std::uint32_t sum = sumOf(context);
        const std::uint32_t weight = 2 * frequency * (sum + 6);
        const std::uint32_t whole = others + sum;
        unsigned initial = 0;
        if (weight < 6 * whole) {
            initial = 1 + (weight > whole ? 1U : 0U) + (weight >= 4 * whole ? 1U : 0U);
            setSum(context, sum + 4);
        } else {
            initial = 4 + (weight > 9 * whole ? 1U : 0U) + (weight > 12 * whole ? 1U : 0U) +
                      (weight > 15 * whole ? 1U : 0U);
            setSum(context, sum + initial);
        }
        const unsigned count = countOf(context) + 1;
        const Place state = statesOf(context) + count * kStateSize;
        memory_.setByte(state, static_cast<std::uint8_t>(symbol));
        setFrequency(state, initial);
        setSuccessor(state, successor);
        setFlags(context, flagsOf(context) | highFlag(symbol));
        setCount(context, count);
    }
    return true;
}

// For one more state; `presentCount` is the count of the present context.
bool PpmdModel::makeRoom(Place context, unsigned presentCount) {
    const unsigned count = countOf(context);
    if (count == 0) {
        const Place states = memory_.allocate(1);
        if (states == PpmdMemory::kNone) {
            return false;
        }
        copyState(states, onlyState(context));
        setStates(context, states);
        const unsigned frequency = frequencyOf(states);
        setFrequency(states,
                     frequency < kHighestFrequency / 4 - 1 ? 2 * frequency : kHighestFrequency - 4);
        setSum(context, frequencyOf(states) + initialEscape_ + (presentCount > 2 ? 1 : 0));
        return true;
    }
    if (count % 2 != 0) {
        const Place states = memory_.expand(statesOf(context), (count + 1) / 2);
        if (states == PpmdMemory::kNone) {
            return false;
        }
        setStates(context, states);
    }
    setSum(context, sumOf(context) + (3 * count + 1 < presentCount ? 1 : 0));
    return true;
}

PpmdModel::Place PpmdModel::countMore(Place context, unsigned symbol) {
    if (countOf(context) == 0) {
        const Place only = onlyState(context);
        const bool more = countOf(suffixOf(context)) == 0 && frequencyOf(only) < 24;
        setFrequency(only, frequencyOf(only) + (more ? 1 : 0));
        return only;
    }
    const Place state = findState(context, symbol);
    if (frequencyOf(state) < kHighestFrequency - 9) {
        setFrequency(state, frequencyOf(state) + 1);
        setSum(context, sumOf(context) + 1);
    }
    return state;
}

PpmdModel::Place PpmdModel::createSuccessors(bool skip, Place shorter, Place context) {
    const unsigned symbol = symbolOf(found_);
    const Place branch = successorOf(found_);
    std::array<Place, kLongestOrder + 1> states{};
    std::size_t count = 0;
    if (!skip) {
        states[count++] = found_;
    }
    while (suffixOf(context) != PpmdMemory::kNone) {
        context = suffixOf(context);
        const Place known = std::exchange(shorter, PpmdMemory::kNone);
        const Place state = known == PpmdMemory::kNone ? countMore(context, symbol) : known;
        if (successorOf(state) != branch) {
            context = successorOf(state);
            if (count == 0) {
                return context;
            }
            break;
        }
        states[count++] = state;
    }
    const unsigned next = memory_.byteAt(branch);
    const unsigned flags = (symbol >= kFirstHighSymbol ? kAfterHighSymbol : 0) + highFlag(next);
    const unsigned frequency = inheritedFrequency(context, next);
    while (count > 0) {
        const Place child = memory_.allocateContext();
        if (child == PpmdMemory::kNone) {
            return child;
        }
        setCount(child, 0);
        setFlags(child, flags);
        memory_.setByte(onlyState(child), static_cast<std::uint8_t>(next));
        setFrequency(onlyState(child), frequency);
        setSuccessor(onlyState(child), branch + 1);
        memory_.store(child + kSuffixAt, context);
        setSuccessor(states[--count], child);
        context = child;
    }
    return context;
}

unsigned PpmdModel::inheritedFrequency(Place context, unsigned symbol) const {
    if (countOf(context) == 0) {
        return frequencyOf(onlyState(context));
    }
    const std::uint32_t own = frequencyOf(findState(context, symbol)) - 1;
    const std::uint32_t others = std::max(sumOf(context) - countOf(context) - own, 1U);
    if (2 * own <= others) {
        return 1 + (5 * own > others ? 1U : 0U);
    }
    return static_cast<std::uint8_t>(1 + (own + 2 * others - 3) / others);
}

PpmdModel::Place PpmdModel::reduceOrder(Place shorter, Place context) {
    const Place first = context;
    const Place branch = memory_.textEnd();
    const unsigned symbol = symbolOf(found_);
    setSuccessor(found_, branch);
    ++orderFall_;
    Place state = PpmdMemory::kNone;
    while (true) {
        if (suffixOf(context) == PpmdMemory::kNone) {
            return context;
        }
        context = suffixOf(context);
        state = shorter;
        shorter = PpmdMemory::kNone;
        if (state == PpmdMemory::kNone) {
            if (countOf(context) != 0) {
                state = findState(context, symbol);
                if (frequencyOf(state) < kHighestFrequency - 9) {
                    setFrequency(state, frequencyOf(state) + 2);
                    setSum(context, sumOf(context) + 2);
                }
            } else {
                state = onlyState(context);
                setFrequency(state, frequencyOf(state) + (frequencyOf(state) < 32 ? 1 : 0));
            }
        }
        if (successorOf(state) != PpmdMemory::kNone) {
            break;
        }
        setSuccessor(state, branch);
        ++orderFall_;
    }
    if (successorOf(state) <= branch) {
        const Place kept = found_;
        found_ = state;
        setSuccessor(state, createSuccessors(false, PpmdMemory::kNone, context));
        found_ = kept;
    }
    if (orderFall_ == 1 && first == longestContext_) {
        setSuccessor(found_, successorOf(state));
        memory_.dropText();
    }
    return successorOf(state);
}

// Halves the frequencies of the present context, the found symbol first and the others in order.
void PpmdModel::rescale() {
    const Place states = statesOf(context_);
    for (; found_ != states; found_ -= kStateSize) {
        swapStates(found_, found_ - kStateSize);
    }
    const unsigned round = orderFall_ != 0 ? 1 : 0;
    Place state = states;
    unsigned escapes = sumOf(context_) - frequencyOf(state);
    setFrequency(state, (frequencyOf(state) + 4 + round) >> 1U);
    unsigned sum = frequencyOf(state);
    for (unsigned i = countOf(context_); i > 0; --i) {
        state += kStateSize;
        escapes -= frequencyOf(state);
        setFrequency(state, (frequencyOf(state) + round) >> 1U);
        sum += frequencyOf(state);
        for (Place at = state; at != states && frequencyOf(at) > frequencyOf(at - kStateSize);
             at -= kStateSize) {
            swapStates(at, at - kStateSize);
        }
    }
    unsigned unseen = 0;
    for (; frequencyOf(state) == 0; state -= kStateSize) {
        ++unseen;
    }
    if (unseen > 0) {
        escapes += unseen;
        dropUnseen(unseen, escapes);
        if (countOf(context_) == 0) {
            return;
        }
    }
    setSum(context_, sum + escapes - (escapes >> 1U));
    setFlags(context_, flagsOf(context_) | kRescaled);
    found_ = statesOf(context_);
}

void PpmdModel::dropUnseen(unsigned unseen, unsigned escapes) {
    const unsigned oldUnits = unitsFor(countOf(context_));
    const Place states = statesOf(context_);
    setCount(context_, countOf(context_) - unseen);
    if (countOf(context_) == 0) {
        const unsigned frequency = (2 * frequencyOf(states) + escapes - 1) / escapes;
        const unsigned flags = flagsOf(context_) & kAfterHighSymbol;
        found_ = onlyState(context_);
        copyState(found_, states);
        setFrequency(found_, std::min(frequency & 0xFFU, kHighestFrequency / 3));
        memory_.release(states, oldUnits);
        setFlags(context_, flags + highFlag(symbolOf(found_)));
        return;
    }
    const unsigned newUnits = unitsFor(countOf(context_));
    setStates(context_, memory_.shrink(states, oldUnits, newUnits));
    unsigned flags = flagsOf(context_) & ~kHighSymbols;
    for (unsigned i = 0; i <= countOf(context_); ++i) {
        flags |= highFlag(symbolOf(statesOf(context_) + i * kStateSize));
    }
    setFlags(context_, flags);
}

void PpmdModel::refresh(Place context, unsigned oldUnits, unsigned scale) {
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

void PpmdModel::becomeBinary(Place context) {
    const Place states = statesOf(context);
    setFlags(context, (flagsOf(context) & kAfterHighSymbol) + highFlag(symbolOf(states)));
    copyState(onlyState(context), states);
}

PpmdModel::Place PpmdModel::cutOffBinary(Place context, unsigned order) {
    constexpr unsigned kKept = 9;  // contexts up to this length stay
    const Place state = onlyState(context);
    if (memory_.isUnit(successorOf(state))) {
        setSuccessor(state,
                     order < order_ ? cutOff(successorOf(state), order + 1) : PpmdMemory::kNone);
        if (successorOf(state) != PpmdMemory::kNone || order <= kKept) {
            return context;
        }
    }
    memory_.releaseToText(context);
    return PpmdMemory::kNone;
}

// Takes out of the tree what leads into the text. As deep as contexts are long.
// NOLINTNEXTLINE(misc-no-recursion)
PpmdModel::Place PpmdModel::cutOff(Place context, unsigned order) {
    const unsigned count = countOf(context);
    if (count == 0) {
        return cutOffBinary(context, order);
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
            setSuccessor(
                state, order < order_ ? cutOff(successorOf(state), order + 1) : PpmdMemory::kNone);
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

// Memory is out, in the middle of an update: contexts up to `until` know the found symbol already.
void PpmdModel::restore(Place until) {
    memory_.clearText();
    Place context = longestContext_;
    for (; context != until; context = suffixOf(context)) {
        setCount(context, countOf(context) - 1);
        if (countOf(context) == 0) {
            const Place states = statesOf(context);
            becomeBinary(context);
            memory_.releaseToText(states);
            setFrequency(onlyState(context), (frequencyOf(onlyState(context)) + 11) >> 3U);
        } else {
            refresh(context, (countOf(context) + 3) >> 1U, 0);
        }
    }
    for (; context != context_; context = suffixOf(context)) {
        if (countOf(context) == 0) {
            const unsigned frequency = frequencyOf(onlyState(context));
            setFrequency(onlyState(context), frequency - (frequency >> 1U));
        } else {
            setSum(context, sumOf(context) + 4);
            if (sumOf(context) > 128 + 4 * countOf(context)) {
                refresh(context, unitsFor(countOf(context)), 1);
            }
        }
    }
    if (whenFull_ == WhenFull::kStartAnew || memory_.used() < memory_.size() / 2) {
        startAnew();
        return;
    }
    while (suffixOf(longestContext_) != PpmdMemory::kNone) {
        longestContext_ = suffixOf(longestContext_);
    }
    do {
        static_cast<void>(cutOff(longestContext_, 0));
        memory_.expandText();
    } while (memory_.used() > 3 * (memory_.size() / 4));
    memory_.gluesAtOnce();
    orderFall_ = order_;
}

}  // namespace pellumar::archive
