#include "archive/reading/NameDecoder.h"

#include <uchardet/uchardet.h>

#include <algorithm>
#include <array>
#include <optional>
#include <unordered_set>
#include <utility>
#include <vector>

#include "archive/base/Crc32.h"
#include "archive/format/ExtraFields.h"
#include "archive/format/Utf8.h"
#include "archive/format/ZipFormat.h"
#include "archive/reading/Charset.h"
#include "archive/reading/LetterCost.h"

namespace pellumar::archive {

namespace {

// More bytes than this do not make the vote surer.
constexpr std::size_t kLargestSample = 16UL * 1024;

// The name in the Unicode path field: version 1, CRC-32 of the header's name, name (4.6.9).
std::optional<std::string_view> unicodePath(const RawName& name) {
    constexpr std::size_t kHeader = 5;
    const auto field = format::findExtraField(name.extra, format::kExtraUnicodePath);
    if (!field || field->size() <= kHeader || (*field)[0] != 1 ||
        loadLittleEndian<std::uint32_t>(*field, 1) != crc32(kCrc32OfNothing, name.bytes)) {
        return std::nullopt;
    }
    const std::string_view text = asText(field->subspan(kHeader));
    return format::isUtf8(text) ? std::optional(text) : std::nullopt;
}

// What the bytes are in the view of uchardet, if it is one of ours.
std::optional<Charset> askUchardet(const std::vector<std::string>& sample) {
    static constexpr std::array<std::pair<std::string_view, Charset>, 8> kNames = {
        {{"SHIFT_JIS", Charset::kShiftJis},
         {"GB18030", Charset::kGbk},
         {"BIG5", Charset::kBig5},
         {"EUC-KR", Charset::kEucKr},
         {"UHC", Charset::kEucKr},
         {"IBM866", Charset::kCodePage866},
         {"WINDOWS-1251", Charset::kCodePage1251},
         {"IBM437", Charset::kCodePage437}}};
    const std::unique_ptr<uchardet, decltype(&uchardet_delete)> detector(uchardet_new(),
                                                                         &uchardet_delete);
    if (!detector) {
        return std::nullopt;
    }
    for (const std::string& text : sample) {
        uchardet_handle_data(detector.get(), text.data(), text.size());
        uchardet_handle_data(detector.get(), "\n", 1);
    }
    uchardet_data_end(detector.get());
    const std::string_view answer = uchardet_get_charset(detector.get());
    const auto* const found = std::find_if(
        kNames.begin(), kNames.end(), [&](const auto& n) { return n.first == answer; });
    return found == kNames.end() ? std::nullopt : std::optional(found->second);
}

std::uint64_t costOfSample(Charset charset, const std::vector<std::string>& sample) {
    CharsetConverter converter(charset);
    std::uint64_t cost = 0;
    for (const std::string& text : sample) {
        const auto letters = converter.decode(asBytes(text));
        cost += letters ? letterCost(charset, asBytes(text), *letters)
                        : costOfUnreadable(asBytes(text));
    }
    return cost;
}

// uchardet knows the letters' neighbourhoods in long texts, but is as good as blind on a few words.
// So the letters' own likelihood decides, and its answer counts as much as a few letters do.
Charset elect(const std::vector<std::string>& sample) {
    constexpr std::uint64_t kWordOfUchardet = 30;
    const auto advice = askUchardet(sample);
    Charset elected = Charset::kCodePage437;
    std::uint64_t lowest = costOfSample(elected, sample) + kWordOfUchardet;
    for (const Charset charset : kAllCharsets) {
        std::uint64_t cost = costOfSample(charset, sample);
        if (charset != advice) {
            cost += kWordOfUchardet;
        }
        if (cost < lowest) {
            elected = charset;
            lowest = cost;
        }
    }
    return elected;
}

// But for the separator, which some writers take the other one for.
bool isSameName(std::string_view one, std::string_view other) {
    const auto plain = [](char c) { return c == '\\' ? '/' : c; };
    return std::equal(one.begin(), one.end(), other.begin(), other.end(), [plain](char a, char b) {
        return plain(a) == plain(b);
    });
}

}  // namespace

std::optional<std::string_view> saidLetters(const RawName& name) {
    const std::string_view text = asText(name.bytes);
    if (name.utf8Flag && format::isUtf8(text)) {
        return text;
    }
    return unicodePath(name);
}

bool isAmbiguous(const RawName& name) {
    ByteView extra = name.extra;
    std::optional<ByteView> first;
    while (const auto field = format::takeExtraField(extra)) {
        if (field->identifier != format::kExtraUnicodePath) {
            continue;
        }
        if (first &&
            !std::equal(first->begin(), first->end(), field->data.begin(), field->data.end())) {
            return true;
        }
        first = field->data;
    }
    if (!first) {
        return false;
    }
    const auto other = unicodePath(name);
    const std::string_view text = asText(name.bytes);
    const bool isKnown = (name.utf8Flag && format::isUtf8(text)) ||
                         (format::isAscii(text) && other && format::isAscii(*other));
    return other && isKnown && !isSameName(text, *other);
}

class NameDecoder::State {
  public:
    // Only the components that are not ASCII, each once: a folder's name stands in the path of
    // everything in it, and the vote is about its letters, not about how much it holds.
    void sample(std::string_view name) {
        while (!name.empty() && sampleSize_ < kLargestSample) {
            const std::size_t end = std::min(name.find('/'), name.size());
            const std::string_view component = name.substr(0, end);
            name.remove_prefix(std::min(end + 1, name.size()));
            if (!format::isAscii(component) && seen_.emplace(component).second) {
                sample_.emplace_back(component);
                sampleSize_ += component.size();
            }
        }
    }

    void decide() {
        if (!sample_.empty()) {
            elected_ = elect(sample_);
            converter_ = std::make_unique<CharsetConverter>(*elected_);
        }
        sample_.clear();
        seen_.clear();
    }

    [[nodiscard]] std::string read(ByteView bytes) {
        std::optional<std::u32string> letters;
        if (converter_) {
            letters = converter_->decode(bytes);
        }
        if (!letters) {
            letters = lastResort_.decode(bytes);
        }
        return toUtf8(*letters);
    }

    // Of a name in UTF-8: its letters in the elected charset, if they make more sense.
    [[nodiscard]] std::optional<std::string> readInstead(ByteView bytes) {
        if (!converter_ || format::isAscii(asText(bytes))) {
            return std::nullopt;
        }
        const auto letters = converter_->decode(bytes);
        if (!letters || !isPlausible(*elected_, bytes, *letters)) {
            return std::nullopt;
        }
        return toUtf8(*letters);
    }

    [[nodiscard]] std::optional<Charset> elected() const { return elected_; }

  private:
    std::unordered_set<std::string> seen_;
    std::vector<std::string> sample_;
    std::size_t sampleSize_ = 0;
    std::optional<Charset> elected_;
    std::unique_ptr<CharsetConverter> converter_;
    CharsetConverter lastResort_{Charset::kCodePage437};
};

NameDecoder::NameDecoder() : state_(std::make_unique<State>()) {}
NameDecoder::~NameDecoder() = default;
NameDecoder::NameDecoder(NameDecoder&&) noexcept = default;
NameDecoder& NameDecoder::operator=(NameDecoder&&) noexcept = default;

void NameDecoder::consider(const RawName& name) {
    if (!format::isUtf8(asText(name.bytes)) && !saidLetters(name)) {
        state_->sample(asText(name.bytes));
    }
}

void NameDecoder::decide() {
    state_->decide();
}

DecodedName NameDecoder::decode(const RawName& name, std::string& storage) const {
    if (const auto text = saidLetters(name)) {
        return {.text = *text, .legacy = false};
    }
    const std::string_view text = asText(name.bytes);
    if (!format::isUtf8(text)) {
        storage = state_->read(name.bytes);
        return {.text = storage, .legacy = true};
    }
    if (auto other = state_->readInstead(name.bytes)) {
        storage = std::move(*other);
        return {.text = storage, .legacy = true};
    }
    return {.text = text, .legacy = false};
}

std::string_view NameDecoder::charset() const {
    const auto elected = state_->elected();
    return elected ? nameOf(*elected) : std::string_view();
}

}  // namespace pellumar::archive
