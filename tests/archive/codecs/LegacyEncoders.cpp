#include "LegacyEncoders.h"

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <numeric>
#include <queue>
#include <span>

#include "BitWriter.h"

namespace pellumar::archive::test {

namespace {

// ---- Shrink

class Shrinker {
  public:
    Bytes run(ByteView plain) {
        std::uint32_t string = plain.front();
        for (const std::uint8_t byte : plain.subspan(1)) {
            const auto found = codes_.find({string, byte});
            if (found != codes_.end()) {
                string = found->second;
                continue;
            }
            put(string);
            // Now and then also while there is room.
            if (used_.size() == kCodes - kFirst || ++sinceClear_ == 20000) {
                out_.bits(kControl, size_).bits(2, size_);
                clear();
            }
            add(string, byte);
            string = byte;
        }
        put(string);
        return out_.bytes();
    }

  private:
    static constexpr std::uint32_t kControl = 256;
    static constexpr std::uint32_t kFirst = 257;
    static constexpr std::uint32_t kCodes = 8192;
    using Key = std::pair<std::uint32_t, std::uint8_t>;

    void put(std::uint32_t code) {
        while (code >= 1U << size_) {
            out_.bits(kControl, size_).bits(1, size_);
            ++size_;
        }
        out_.bits(code, size_);
    }

    void add(std::uint32_t prefix, std::uint8_t byte) {
        while (used_.count(free_) != 0) {
            ++free_;
        }
        used_[free_] = {prefix, byte};
        codes_[{prefix, byte}] = free_;
    }

    // What no other string builds on is forgotten.
    void clear() {
        std::array<bool, kCodes> isPrefix{};
        for (const auto& [code, key] : used_) {
            isPrefix[key.first] = true;
        }
        for (auto it = used_.begin(); it != used_.end();) {
            if (isPrefix[it->first]) {
                ++it;
            } else {
                codes_.erase(it->second);
                it = used_.erase(it);
            }
        }
        sinceClear_ = 0;
        free_ = kFirst;
    }

    BitWriter out_;
    unsigned size_ = 9;
    unsigned sinceClear_ = 0;
    std::uint32_t free_ = kFirst;
    std::map<Key, std::uint32_t> codes_;
    std::map<std::uint32_t, Key> used_;
};

// ---- Repetitions, for the other two

struct Match {
    std::size_t length = 0;
    std::size_t distance = 0;
};

// Looks at the last few places where the next two bytes stood.
class Matcher {
  public:
    Matcher(ByteView plain, std::size_t window, std::size_t longest)
        : plain_(plain), window_(window), longest_(longest) {}

    Match at(std::size_t position) {
        for (; known_ + 1 < plain_.size() && known_ < position; ++known_) {
            auto& places = places_[key(known_)];
            places.push_back(known_);
            if (places.size() > 16) {
                places.erase(places.begin());
            }
        }
        Match best;
        // The zeros before the beginning can be repeated, too.
        if (position < window_ / 2 && plain_[position] == 0) {
            std::size_t zeros = 0;
            while (zeros < longest_ && position + zeros < plain_.size() &&
                   plain_[position + zeros] == 0) {
                ++zeros;
            }
            best = {.length = zeros, .distance = window_};
            best.length = std::min(zeros, window_ - position);
        }
        if (position + 1 < plain_.size()) {
            for (const std::size_t place : places_[key(position)]) {
                std::size_t length = 0;
                while (length < longest_ && position + length < plain_.size() &&
                       plain_[place + length] == plain_[position + length]) {
                    ++length;
                }
                if (position - place <= window_ && length > best.length) {
                    best = {.length = length, .distance = position - place};
                }
            }
        }
        return best;
    }

  private:
    [[nodiscard]] std::size_t key(std::size_t at) const {
        return plain_[at] * 256UL + plain_[at + 1];
    }

    ByteView plain_;
    std::size_t window_;
    std::size_t longest_;
    std::size_t known_ = 0;
    std::map<std::size_t, std::vector<std::size_t>> places_;
};

// ---- Reduce

constexpr std::uint8_t kEscape = 144;

// Literals and repetitions as bytes (5.2.5).
Bytes reduceRepetitions(ByteView plain, unsigned factor) {
    const unsigned lengthBits = 8 - factor;
    const std::size_t longest = (std::size_t{1} << lengthBits) - 1;
    Matcher matcher(plain, std::size_t{256} << factor, longest + 255 + 3);
    Bytes out;
    for (std::size_t i = 0; i < plain.size();) {
        const Match match = matcher.at(i);
        const std::size_t high = (match.distance - 1) / 256;
        if (match.length < 3 || (match.length == 3 && high == 0)) {
            out.push_back(plain[i]);
            if (plain[i] == kEscape) {
                out.push_back(0);
            }
            ++i;
            continue;
        }
        const std::size_t length = match.length - 3;
        out.push_back(kEscape);
        out.push_back(static_cast<std::uint8_t>(high << lengthBits | std::min(length, longest)));
        if (length >= longest) {
            out.push_back(static_cast<std::uint8_t>(length - longest));
        }
        out.push_back(static_cast<std::uint8_t>((match.distance - 1) % 256));
        i += match.length;
    }
    return out;
}

using Followers = std::array<Bytes, 256>;

Followers followersIn(ByteView bytes) {
    const auto table = std::make_unique<std::array<std::array<unsigned, 256>, 256>>();
    auto& counts = *table;
    std::uint8_t last = 0;
    for (const std::uint8_t byte : bytes) {
        ++counts[last][byte];
        last = byte;
    }
    Followers followers;
    for (std::size_t i = 0; i < followers.size(); ++i) {
        std::array<std::uint8_t, 256> order{};
        std::iota(order.begin(), order.end(), std::uint8_t{0});
        std::sort(order.begin(), order.end(), [&](std::uint8_t a, std::uint8_t b) {
            return std::pair(counts[i][b], a) < std::pair(counts[i][a], b);
        });
        for (const std::uint8_t byte : order) {
            if (counts[i][byte] > 1 && followers[i].size() < 32) {
                followers[i].push_back(byte);
            }
        }
    }
    return followers;
}

// ---- Implode

// Lengths of a complete code in which every symbol has a codeword of at most 16 bits.
Bytes codeLengths(const std::vector<std::uint64_t>& counts) {
    struct Node {
        std::uint64_t weight;
        std::size_t index;
        bool operator>(const Node& other) const {
            return std::pair(weight, index) > std::pair(other.weight, other.index);
        }
    };
    const std::uint64_t total = std::accumulate(counts.begin(), counts.end(), std::uint64_t{1});
    std::priority_queue<Node, std::vector<Node>, std::greater<>> nodes;
    std::vector<std::size_t> parents(2 * counts.size(), 0);
    for (std::size_t i = 0; i < counts.size(); ++i) {
        nodes.push({.weight = 1 + counts[i] * 500 / total, .index = i});
    }
    for (std::size_t next = counts.size(); nodes.size() > 1; ++next) {
        const Node one = nodes.top();
        nodes.pop();
        const Node other = nodes.top();
        nodes.pop();
        parents[one.index] = parents[other.index] = next;
        nodes.push({.weight = one.weight + other.weight, .index = next});
    }
    const std::size_t root = 2 * counts.size() - 2;
    Bytes lengths;
    for (std::size_t i = 0; i < counts.size(); ++i) {
        std::uint8_t length = 0;
        for (std::size_t at = i; at != root; at = parents[at]) {
            ++length;
        }
        lengths.push_back(length);
    }
    return lengths;
}

// The codes of 5.3.8, as they stand in the stream.
class ShannonFano {
  public:
    explicit ShannonFano(const std::vector<std::uint64_t>& counts)
        : lengths_(codeLengths(counts)), codes_(counts.size()) {
        std::vector<std::size_t> order(counts.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        std::stable_sort(order.begin(), order.end(), [this](std::size_t a, std::size_t b) {
            return lengths_[a] < lengths_[b];
        });
        std::uint32_t code = 0;
        std::uint32_t increment = 0;
        unsigned lastLength = 0;
        for (std::size_t i = order.size(); i-- > 0;) {
            code += increment;
            if (lengths_[order[i]] != lastLength) {
                lastLength = lengths_[order[i]];
                increment = 1U << (16 - lastLength);
            }
            codes_[order[i]] = code;
        }
    }

    void writeTo(BitWriter& out) const {
        Bytes runs;
        for (std::size_t i = 0; i < lengths_.size();) {
            std::size_t run = 1;
            while (run < 16 && i + run < lengths_.size() && lengths_[i + run] == lengths_[i]) {
                ++run;
            }
            runs.push_back(static_cast<std::uint8_t>((run - 1) << 4U | (lengths_[i] - 1U)));
            i += run;
        }
        out.bits(static_cast<std::uint32_t>(runs.size() - 1), 8);
        for (const std::uint8_t run : runs) {
            out.bits(run, 8);
        }
    }

    void put(BitWriter& out, std::size_t symbol) const {
        for (unsigned bit = 0; bit < lengths_[symbol]; ++bit) {
            out.bits(codes_[symbol] >> (15 - bit), 1);
        }
    }

  private:
    Bytes lengths_;
    std::vector<std::uint32_t> codes_;
};

}  // namespace

Bytes shrink(ByteView plain) {
    return plain.empty() ? Bytes() : Shrinker().run(plain);
}

Bytes reduce(ByteView plain, unsigned factor) {
    if (plain.empty()) {
        return {};
    }
    const Bytes bytes = reduceRepetitions(plain, factor);
    const Followers followers = followersIn(bytes);
    BitWriter out;
    for (std::size_t i = followers.size(); i-- > 0;) {
        out.bits(static_cast<std::uint32_t>(followers[i].size()), 6);
        for (const std::uint8_t follower : followers[i]) {
            out.bits(follower, 8);
        }
    }
    std::uint8_t last = 0;
    for (const std::uint8_t byte : bytes) {
        const Bytes& set = followers[last];
        const auto found = std::find(set.begin(), set.end(), byte);
        if (found == set.end()) {
            if (!set.empty()) {
                out.bits(1, 1);
            }
            out.bits(byte, 8);
        } else {
            unsigned bits = 1;
            while ((1U << bits) < set.size()) {
                ++bits;
            }
            out.bits(0, 1).bits(static_cast<std::uint32_t>(found - set.begin()), bits);
        }
        last = byte;
    }
    return out.bytes();
}

Bytes implode(ByteView plain, const ImplodeOptions& options) {
    if (plain.empty()) {
        return {};
    }
    const std::size_t shortest = options.literalCode ? 3 : 2;
    const unsigned lowBits = options.largeWindow ? 7 : 6;
    Matcher matcher(plain, std::size_t{64} << lowBits, shortest + 63 + 255);
    std::vector<Match> matches;
    std::vector<std::uint64_t> literals(256);
    std::vector<std::uint64_t> lengths(64);
    std::vector<std::uint64_t> distances(64);
    for (std::size_t i = 0; i < plain.size();) {
        Match match = matcher.at(i);
        if (match.length < shortest) {
            match = {.length = 1, .distance = 0};
            ++literals[plain[i]];
        } else {
            ++lengths[std::min<std::size_t>(match.length - shortest, 63)];
            ++distances[(match.distance - 1) >> lowBits];
        }
        matches.push_back(match);
        i += match.length;
    }
    BitWriter out;
    const ShannonFano literalCode(literals);
    const ShannonFano lengthCode(lengths);
    const ShannonFano distanceCode(distances);
    if (options.literalCode) {
        literalCode.writeTo(out);
    }
    lengthCode.writeTo(out);
    distanceCode.writeTo(out);
    std::size_t position = 0;
    for (const Match& match : matches) {
        if (match.distance == 0) {
            out.bits(1, 1);
            if (options.literalCode) {
                literalCode.put(out, plain[position]);
            } else {
                out.bits(plain[position], 8);
            }
        } else {
            const auto distance = static_cast<std::uint32_t>(match.distance - 1);
            const std::size_t length = match.length - shortest;
            out.bits(0, 1).bits(distance & ((1U << lowBits) - 1), lowBits);
            distanceCode.put(out, distance >> lowBits);
            lengthCode.put(out, std::min<std::size_t>(length, 63));
            if (length >= 63) {
                out.bits(static_cast<std::uint32_t>(length - 63), 8);
            }
        }
        position += match.length;
    }
    return out.bytes();
}

}  // namespace pellumar::archive::test
