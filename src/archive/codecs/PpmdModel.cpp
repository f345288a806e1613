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
    context_ = longestContext_ = tree_.makeRoot();
    found_ = tree_.statesOf(context_);
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

std::uint16_t& PpmdModel::chance() {
    const std::size_t row = std::min<std::size_t>(
        kClasses[std::max(tree_.frequencyOf(tree_.onlyState(context_)), 1U) - 1],
        chances_.size() - 1);
    const std::size_t run = runLength_ < 0 ? 0x20 : 0;
    return chances_[row][classOfCount(tree_.countOf(tree_.suffixOf(context_))) + lastWasLikely_ +
                         tree_.flagsOf(context_) + run];
}

std::uint16_t PpmdModel::binaryChance() {
    return chance();
}

std::uint8_t PpmdModel::takeBinary() {
    std::uint16_t& likely = chance();
    likely = static_cast<std::uint16_t>(likely + (1U << kChanceBits) - stepOf(likely));
    found_ = tree_.onlyState(context_);
    const auto symbol = static_cast<std::uint8_t>(tree_.symbolOf(found_));
    const unsigned frequency = tree_.frequencyOf(found_);
    tree_.setFrequency(found_, frequency + (frequency < 196 ? 1 : 0));
    lastWasLikely_ = 1;
    ++runLength_;
    advance();
    return symbol;
}

void PpmdModel::escapeBinary() {
    std::uint16_t& likely = chance();
    likely = static_cast<std::uint16_t>(likely - stepOf(likely));
    initialEscape_ = kEscapesByChance[likely >> 10U];
    isLeftOut_[tree_.symbolOf(tree_.onlyState(context_))] = true;
    leftOut_ = 1;
    lastWasLikely_ = 0;
}

void PpmdModel::choose(Choice& choice) {
    choice.count = 0;
    choice.statesTotal = 0;
    Place state = tree_.statesOf(context_);
    for (unsigned i = 0; i <= tree_.countOf(context_); ++i, state += kStateSize) {
        const auto symbol = static_cast<std::uint8_t>(tree_.symbolOf(state));
        if (leftOut_ > 0 && isLeftOut_[symbol]) {
            continue;
        }
        const auto frequency = static_cast<std::uint8_t>(tree_.frequencyOf(state));
        choice.states[choice.count++] = {.place = state, .symbol = symbol, .frequency = frequency};
        choice.statesTotal += frequency;
    }
    if (leftOut_ == 0) {
        choice.total = tree_.sumOf(context_);
    } else {
        estimateEscape(choice);
    }
}

void PpmdModel::estimateEscape(Choice& choice) {
    const unsigned count = tree_.countOf(context_);
    if (count == kAllSymbols) {
        estimate_ = &noEstimate_;
        choice.total = choice.statesTotal + 1;
        return;
    }
    const std::size_t column =
        (tree_.sumOf(context_) > 11 * (count + 1) ? 1U : 0U) +
        (2 * count < tree_.countOf(tree_.suffixOf(context_)) + leftOut_ - 1 ? 2U : 0U) +
        tree_.flagsOf(context_);
    estimate_ = &estimates_[kClasses[count + 2] - 3U][column];
    const unsigned mean = unsigned{estimate_->sum} >> estimate_->shift;
    estimate_->sum = static_cast<std::uint16_t>(estimate_->sum - mean);
    choice.total = choice.statesTotal + std::max(mean, 1U);
}

void PpmdModel::take(const Choice& choice, unsigned index) {
    constexpr unsigned kMore = 4;
    found_ = choice.states[index].place;
    const unsigned frequency = tree_.frequencyOf(found_);
    if (leftOut_ > 0) {
        if (estimate_->shift < kPeriodBits && --estimate_->count == 0) {
            estimate_->sum = static_cast<std::uint16_t>(estimate_->sum << 1U);
            estimate_->count = static_cast<std::uint8_t>(3U << estimate_->shift++);
        }
        runLength_ = initialRunLength_;
    } else if (index == 0) {
        lastWasLikely_ = 2 * frequency >= tree_.sumOf(context_) ? 1 : 0;
        runLength_ += static_cast<std::int32_t>(lastWasLikely_);
    } else {
        lastWasLikely_ = 0;
    }
    tree_.setSum(context_, tree_.sumOf(context_) + kMore);
    tree_.setFrequency(found_, frequency + kMore);
    // Only symbols found at once move up one by one.
    const bool isSorted = leftOut_ > 0 || index == 0;
    bool isHigh = frequency + kMore > kHighestFrequency;
    if (!isSorted) {
        const Place before = found_ - kStateSize;
        if (frequency + kMore > tree_.frequencyOf(before)) {
            tree_.swapStates(found_, before);
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
        if (tree_.suffixOf(context_) == PpmdMemory::kNone) {
            return false;
        }
        context_ = tree_.suffixOf(context_);
    } while (tree_.countOf(context_) + 1 == leftOut_);
    return true;
}

void PpmdModel::advance() {
    if (leftOut_ > 0) {
        isLeftOut_.fill(false);
    }
    const Place successor = tree_.successorOf(found_);
    if (leftOut_ == 0 && orderFall_ == 0 && memory_.isUnit(successor)) {
        context_ = longestContext_ = successor;
    } else {
        update();
        context_ = longestContext_;
    }
    leftOut_ = 0;
}

PpmdModel::Place PpmdModel::tellShorter() {
    const Place suffix = tree_.suffixOf(context_);
    if (tree_.frequencyOf(found_) >= kHighestFrequency / 4 || suffix == PpmdMemory::kNone) {
        return PpmdMemory::kNone;
    }
    if (tree_.countOf(suffix) == 0) {
        const Place state = tree_.onlyState(suffix);
        tree_.setFrequency(state,
                           tree_.frequencyOf(state) + (tree_.frequencyOf(state) < 32 ? 1 : 0));
        return state;
    }
    Place state = tree_.findState(suffix, tree_.symbolOf(found_));
    if (state != tree_.statesOf(suffix) &&
        tree_.frequencyOf(state) >= tree_.frequencyOf(state - kStateSize)) {
        tree_.swapStates(state, state - kStateSize);
        state -= kStateSize;
    }
    if (tree_.frequencyOf(state) < kHighestFrequency - 9) {
        tree_.setFrequency(state, tree_.frequencyOf(state) + 2);
        tree_.setSum(suffix, tree_.sumOf(suffix) + 2);
    }
    return state;
}

void PpmdModel::update() {
    const Place shorter = tellShorter();
    Place context = longestContext_;
    if (orderFall_ == 0 && tree_.successorOf(found_) != PpmdMemory::kNone) {
        const Place made = createSuccessors(true, shorter, context_);
        tree_.setSuccessor(found_, made);
        if (made == PpmdMemory::kNone) {
            restore(context);
        } else {
            longestContext_ = made;
        }
        return;
    }
    const unsigned frequency = tree_.frequencyOf(found_);
    const unsigned symbol = tree_.symbolOf(found_);
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
    const Place following = tree_.successorOf(found_);
    if (following == PpmdMemory::kNone) {
        return reduceOrder(shorter, context_);
    }
    return memory_.isUnit(following) ? following : createSuccessors(false, shorter, context_);
}

// `found` is a frequency and a symbol.
bool PpmdModel::addFound(Place& context, Place successor, unsigned found) {
    const unsigned frequency = found >> 8U;
    const unsigned symbol = found & 0xFFU;
    const unsigned presentCount = tree_.countOf(context_);
    const std::uint32_t others = tree_.sumOf(context_) - presentCount - frequency;
    for (; context != context_; context = tree_.suffixOf(context)) {
        if (!makeRoom(context, presentCount)) {
            return false;
        }
        const std::uint32_t sum = tree_.sumOf(context);
        const std::uint32_t weight = 2 * frequency * (sum + 6);
        const std::uint32_t whole = others + sum;
        unsigned initial = 0;
        if (weight < 6 * whole) {
            initial = 1 + (weight > whole ? 1U : 0U) + (weight >= 4 * whole ? 1U : 0U);
            tree_.setSum(context, sum + 4);
        } else {
            initial = 4 + (weight > 9 * whole ? 1U : 0U) + (weight > 12 * whole ? 1U : 0U) +
                      (weight > 15 * whole ? 1U : 0U);
            tree_.setSum(context, sum + initial);
        }
        const unsigned count = tree_.countOf(context) + 1;
        const Place state = tree_.statesOf(context) + count * kStateSize;
        memory_.setByte(state, static_cast<std::uint8_t>(symbol));
        tree_.setFrequency(state, initial);
        tree_.setSuccessor(state, successor);
        tree_.setFlags(context, tree_.flagsOf(context) | tree_.highFlag(symbol));
        tree_.setCount(context, count);
    }
    return true;
}

// For one more state; `presentCount` is the count of the present context.
bool PpmdModel::makeRoom(Place context, unsigned presentCount) {
    const unsigned count = tree_.countOf(context);
    if (count == 0) {
        const Place states = memory_.allocate(1);
        if (states == PpmdMemory::kNone) {
            return false;
        }
        tree_.copyState(states, tree_.onlyState(context));
        tree_.setStates(context, states);
        const unsigned frequency = tree_.frequencyOf(states);
        tree_.setFrequency(
            states, frequency < kHighestFrequency / 4 - 1 ? 2 * frequency : kHighestFrequency - 4);
        tree_.setSum(context,
                     tree_.frequencyOf(states) + initialEscape_ + (presentCount > 2 ? 1 : 0));
        return true;
    }
    if (count % 2 != 0) {
        const Place states = memory_.expand(tree_.statesOf(context), (count + 1) / 2);
        if (states == PpmdMemory::kNone) {
            return false;
        }
        tree_.setStates(context, states);
    }
    tree_.setSum(context, tree_.sumOf(context) + (3 * count + 1 < presentCount ? 1 : 0));
    return true;
}

PpmdModel::Place PpmdModel::countMore(Place context, unsigned symbol) {
    if (tree_.countOf(context) == 0) {
        const Place only = tree_.onlyState(context);
        const bool more =
            tree_.countOf(tree_.suffixOf(context)) == 0 && tree_.frequencyOf(only) < 24;
        tree_.setFrequency(only, tree_.frequencyOf(only) + (more ? 1 : 0));
        return only;
    }
    const Place state = tree_.findState(context, symbol);
    if (tree_.frequencyOf(state) < kHighestFrequency - 9) {
        tree_.setFrequency(state, tree_.frequencyOf(state) + 1);
        tree_.setSum(context, tree_.sumOf(context) + 1);
    }
    return state;
}

PpmdModel::Place PpmdModel::createSuccessors(bool skip, Place shorter, Place context) {
    const unsigned symbol = tree_.symbolOf(found_);
    const Place branch = tree_.successorOf(found_);
    std::array<Place, kLongestOrder + 1> states{};
    std::size_t count = 0;
    if (!skip) {
        states[count++] = found_;
    }
    while (tree_.suffixOf(context) != PpmdMemory::kNone) {
        context = tree_.suffixOf(context);
        const Place known = std::exchange(shorter, PpmdMemory::kNone);
        const Place state = known == PpmdMemory::kNone ? countMore(context, symbol) : known;
        if (tree_.successorOf(state) != branch) {
            context = tree_.successorOf(state);
            if (count == 0) {
                return context;
            }
            break;
        }
        states[count++] = state;
    }
    const unsigned next = memory_.byteAt(branch);
    const unsigned flags = PpmdContexts::afterHighFlag(symbol) + tree_.highFlag(next);
    const unsigned frequency = inheritedFrequency(context, next);
    while (count > 0) {
        const Place child = memory_.allocateContext();
        if (child == PpmdMemory::kNone) {
            return child;
        }
        tree_.setCount(child, 0);
        tree_.setFlags(child, flags);
        memory_.setByte(tree_.onlyState(child), static_cast<std::uint8_t>(next));
        tree_.setFrequency(tree_.onlyState(child), frequency);
        tree_.setSuccessor(tree_.onlyState(child), branch + 1);
        memory_.store(child + PpmdContexts::kSuffixAt, context);
        tree_.setSuccessor(states[--count], child);
        context = child;
    }
    return context;
}

unsigned PpmdModel::inheritedFrequency(Place context, unsigned symbol) const {
    if (tree_.countOf(context) == 0) {
        return tree_.frequencyOf(tree_.onlyState(context));
    }
    const std::uint32_t own = tree_.frequencyOf(tree_.findState(context, symbol)) - 1;
    const std::uint32_t others = std::max(tree_.sumOf(context) - tree_.countOf(context) - own, 1U);
    if (2 * own <= others) {
        return 1 + (5 * own > others ? 1U : 0U);
    }
    return static_cast<std::uint8_t>(1 + (own + 2 * others - 3) / others);
}

PpmdModel::Place PpmdModel::reduceOrder(Place shorter, Place context) {
    const Place first = context;
    const Place branch = memory_.textEnd();
    const unsigned symbol = tree_.symbolOf(found_);
    tree_.setSuccessor(found_, branch);
    ++orderFall_;
    Place state = PpmdMemory::kNone;
    while (true) {
        if (tree_.suffixOf(context) == PpmdMemory::kNone) {
            return context;
        }
        context = tree_.suffixOf(context);
        state = shorter;
        shorter = PpmdMemory::kNone;
        if (state == PpmdMemory::kNone) {
            if (tree_.countOf(context) != 0) {
                state = tree_.findState(context, symbol);
                if (tree_.frequencyOf(state) < kHighestFrequency - 9) {
                    tree_.setFrequency(state, tree_.frequencyOf(state) + 2);
                    tree_.setSum(context, tree_.sumOf(context) + 2);
                }
            } else {
                state = tree_.onlyState(context);
                tree_.setFrequency(
                    state, tree_.frequencyOf(state) + (tree_.frequencyOf(state) < 32 ? 1 : 0));
            }
        }
        if (tree_.successorOf(state) != PpmdMemory::kNone) {
            break;
        }
        tree_.setSuccessor(state, branch);
        ++orderFall_;
    }
    if (tree_.successorOf(state) <= branch) {
        const Place kept = found_;
        found_ = state;
        tree_.setSuccessor(state, createSuccessors(false, PpmdMemory::kNone, context));
        found_ = kept;
    }
    if (orderFall_ == 1 && first == longestContext_) {
        tree_.setSuccessor(found_, tree_.successorOf(state));
        memory_.dropText();
    }
    return tree_.successorOf(state);
}

// Halves the frequencies of the present context, the found symbol first and the others in order.
void PpmdModel::rescale() {
    const Place states = tree_.statesOf(context_);
    for (; found_ != states; found_ -= kStateSize) {
        tree_.swapStates(found_, found_ - kStateSize);
    }
    const unsigned round = orderFall_ != 0 ? 1 : 0;
    Place state = states;
    unsigned escapes = tree_.sumOf(context_) - tree_.frequencyOf(state);
    tree_.setFrequency(state, (tree_.frequencyOf(state) + 4 + round) >> 1U);
    unsigned sum = tree_.frequencyOf(state);
    for (unsigned i = tree_.countOf(context_); i > 0; --i) {
        state += kStateSize;
        escapes -= tree_.frequencyOf(state);
        tree_.setFrequency(state, (tree_.frequencyOf(state) + round) >> 1U);
        sum += tree_.frequencyOf(state);
        for (Place at = state;
             at != states && tree_.frequencyOf(at) > tree_.frequencyOf(at - kStateSize);
             at -= kStateSize) {
            tree_.swapStates(at, at - kStateSize);
        }
    }
    unsigned unseen = 0;
    for (; tree_.frequencyOf(state) == 0; state -= kStateSize) {
        ++unseen;
    }
    if (unseen > 0) {
        escapes += unseen;
        dropUnseen(unseen, escapes);
        if (tree_.countOf(context_) == 0) {
            return;
        }
    }
    tree_.setSum(context_, sum + escapes - (escapes >> 1U));
    tree_.setFlags(context_, tree_.flagsOf(context_) | PpmdContexts::kRescaled);
    found_ = tree_.statesOf(context_);
}

void PpmdModel::dropUnseen(unsigned unseen, unsigned escapes) {
    const unsigned oldUnits = tree_.unitsFor(tree_.countOf(context_));
    const Place states = tree_.statesOf(context_);
    tree_.setCount(context_, tree_.countOf(context_) - unseen);
    if (tree_.countOf(context_) == 0) {
        const unsigned frequency = (2 * tree_.frequencyOf(states) + escapes - 1) / escapes;
        const unsigned flags = tree_.flagsOf(context_) & PpmdContexts::kAfterHighSymbol;
        found_ = tree_.onlyState(context_);
        tree_.copyState(found_, states);
        tree_.setFrequency(found_, std::min(frequency & 0xFFU, kHighestFrequency / 3));
        memory_.release(states, oldUnits);
        tree_.setFlags(context_, flags + tree_.highFlag(tree_.symbolOf(found_)));
        return;
    }
    const unsigned newUnits = tree_.unitsFor(tree_.countOf(context_));
    tree_.setStates(context_, memory_.shrink(states, oldUnits, newUnits));
    unsigned flags = tree_.flagsOf(context_) & ~PpmdContexts::kHighSymbols;
    for (unsigned i = 0; i <= tree_.countOf(context_); ++i) {
        flags |= tree_.highFlag(tree_.symbolOf(tree_.statesOf(context_) + i * kStateSize));
    }
    tree_.setFlags(context_, flags);
}

// Memory is out, in the middle of an update: contexts up to `until` know the found symbol already.
void PpmdModel::restore(Place until) {
    memory_.clearText();
    Place context = longestContext_;
    for (; context != until; context = tree_.suffixOf(context)) {
        tree_.setCount(context, tree_.countOf(context) - 1);
        if (tree_.countOf(context) == 0) {
            const Place states = tree_.statesOf(context);
            tree_.becomeBinary(context);
            memory_.releaseToText(states);
            tree_.setFrequency(tree_.onlyState(context),
                               (tree_.frequencyOf(tree_.onlyState(context)) + 11) >> 3U);
        } else {
            tree_.refresh(context, (tree_.countOf(context) + 3) >> 1U, 0);
        }
    }
    for (; context != context_; context = tree_.suffixOf(context)) {
        if (tree_.countOf(context) == 0) {
            const unsigned frequency = tree_.frequencyOf(tree_.onlyState(context));
            tree_.setFrequency(tree_.onlyState(context), frequency - (frequency >> 1U));
        } else {
            tree_.setSum(context, tree_.sumOf(context) + 4);
            if (tree_.sumOf(context) > 128 + 4 * tree_.countOf(context)) {
                tree_.refresh(context, tree_.unitsFor(tree_.countOf(context)), 1);
            }
        }
    }
    if (whenFull_ == WhenFull::kStartAnew || memory_.used() < memory_.size() / 2) {
        startAnew();
        return;
    }
    while (tree_.suffixOf(longestContext_) != PpmdMemory::kNone) {
        longestContext_ = tree_.suffixOf(longestContext_);
    }
    do {
        static_cast<void>(tree_.cutOff(longestContext_, 0, order_));
        memory_.expandText();
    } while (memory_.used() > 3 * (memory_.size() / 4));
    memory_.gluesAtOnce();
    orderFall_ = order_;
}

}  // namespace pellumar::archive
