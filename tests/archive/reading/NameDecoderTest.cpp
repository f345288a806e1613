#include "archive/reading/NameDecoder.h"

#include <gtest/gtest.h>
#include <iconv.h>

#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "archive/base/Crc32.h"
#include "archive/format/Append.h"
#include "archive/format/ExtraFields.h"
#include "archive/format/ZipFormat.h"

namespace pellumar::archive {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Names = std::vector<std::string>;

Bytes encoded(const char* charset, std::string text) {
    iconv_t converter = iconv_open(charset, "UTF-8");
    Bytes out(text.size() * 4);
    char* from = text.data();
    std::size_t fromLeft = text.size();
    char* to = reinterpret_cast<char*>(out.data());
    std::size_t toLeft = out.size();
    EXPECT_EQ(iconv(converter, &from, &fromLeft, &to, &toLeft), 0U) << text;
    iconv_close(converter);
    out.resize(out.size() - toLeft);
    return out;
}

Bytes raw(std::string_view text) {
    return {text.begin(), text.end()};
}

Bytes unicodePathField(const Bytes& of, std::string_view text, std::uint8_t version = 1) {
    Bytes field;
    format::appendExtraFieldHeader(
        field, format::kExtraUnicodePath, static_cast<std::uint16_t>(5 + text.size()));
    field.push_back(version);
    format::append(field, crc32(kCrc32OfNothing, of));
    field.insert(field.end(), text.begin(), text.end());
    return field;
}

struct Decoded {
    std::string text;
    bool legacy = false;
};

Decoded decoded(const NameDecoder& decoder, const RawName& name) {
    std::string storage;
    const DecodedName made = decoder.decode(name, storage);
    return {.text = std::string(made.text), .legacy = made.legacy};
}

Decoded decodeAlone(const RawName& name) {
    NameDecoder decoder;
    decoder.consider(name);
    decoder.decide();
    return decoded(decoder, name);
}

struct Archived {
    const char* label;
    const char* charset;
    const char* text;  // the names, with spaces between them

    [[nodiscard]] Names names() const {
        std::istringstream words(text);
        return {std::istream_iterator<std::string>(words), {}};
    }
};

std::string labelOf(const testing::TestParamInfo<Archived>& info) {
    return info.param.label;
}

class CharsetVoteTest : public testing::TestWithParam<Archived> {};

TEST_P(CharsetVoteTest, FindsTheLettersOfAWholeArchive) {
    NameDecoder decoder;
    for (const std::string& name : GetParam().names()) {
        decoder.consider({.bytes = encoded(GetParam().charset, name)});
    }
    decoder.decide();
    for (const std::string& name : GetParam().names()) {
        EXPECT_EQ(decoded(decoder, {.bytes = encoded(GetParam().charset, name)}).text, name);
    }
}

TEST_P(CharsetVoteTest, FindsTheLettersOfASingleShortName) {
    for (const std::string& name : GetParam().names()) {
        const Bytes bytes = encoded(GetParam().charset, name);
        EXPECT_EQ(decodeAlone({.bytes = bytes}).text, name);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Legacy,
    CharsetVoteTest,
    testing::Values(
        Archived{"ShiftJis",
                 "CP932",
                 "報告書.docx 写真/猫.jpg 表.xls ﾃｽﾄ.txt 第１章.txt ソース 会社案内.pdf "
                 "ダウンロード お知らせ.txt 鈴木"},
        Archived{"Gbk",
                 "GBK",
                 "照片/春节.jpg 新建文件夹 合同.pdf 备份 工资表2020年3月.xls 红楼梦 武汉 张三.doc "
                 "我的文档 答案.txt"},
        Archived{
            "Big5",
            "BIG5",
            "照片/貓.jpg 新資料夾 許可證 功能表 履歷表.docx 英文 測試.txt 電子書 高雄 王小明.doc"},
        Archived{"EucKr",
                 "CP949",
                 "사진/가족.jpg 새폴더 보고서.hwp 홍길동.doc 최종본.hwp 똠방각하.txt 부산 내문서 "
                 "견적서.xlsx 강아지"},
        Archived{"CodePage866",
                 "CP866",
                 "Отчет.doc фото/кот.jpg Новая_папка ПРОЧТИ.txt Щука Бюджет_2020.xls КП.doc данные "
                 "Мама Тех.задание"},
        Archived{"CodePage1251",
                 "CP1251",
                 "Отчет.doc фото/кот.jpg Новая_папка ПРОЧТИ.txt Щука Бюджет_2020.xls резюме.docx "
                 "чек.pdf ёлка.jpg Прайс-лист"},
        Archived{"CodePage437",
                 "CP437",
                 "Übung.txt café.txt Größe.txt mañana.txt Élève.doc Århus Straße été.jpg Öl.jpg "
                 "ÜBUNG.TXT"}),
    labelOf);

TEST(NameDecoderTest, TakesUtf8WithAndWithoutFlag) {
    const Bytes name = raw("Grüße/猫.txt");
    for (const bool flag : {true, false}) {
        const Decoded decoded = decodeAlone({.bytes = name, .utf8Flag = flag});
        EXPECT_EQ(decoded.text, "Grüße/猫.txt");
        EXPECT_FALSE(decoded.legacy);
    }
}

TEST(NameDecoderTest, DoesNotBelieveAUtf8FlagOnOtherBytes) {
    const Bytes name = encoded("CP932", "報告書.docx");
    const Decoded decoded = decodeAlone({.bytes = name, .utf8Flag = true});
    EXPECT_EQ(decoded.text, "報告書.docx");
    EXPECT_TRUE(decoded.legacy);
}

TEST(NameDecoderTest, PrefersTheUnicodePathFieldOfAnUnflaggedName) {
    const Bytes name = raw("????.txt");
    const Bytes extra = unicodePathField(name, "отчет.txt");
    EXPECT_EQ(decodeAlone({.bytes = name, .extra = extra}).text, "отчет.txt");
}

TEST(NameDecoderTest, PassesOverAUnicodePathFieldOfAnotherName) {
    const Bytes name = raw("renamed.txt");
    const std::vector<Bytes> wrong = {unicodePathField(raw("before.txt"), "before.txt"),
                                      unicodePathField(name, "version.txt", 2),
                                      unicodePathField(name, "broken\xFF.txt"),
                                      unicodePathField(name, "")};
    for (const Bytes& extra : wrong) {
        EXPECT_EQ(decodeAlone({.bytes = name, .extra = extra}).text, "renamed.txt");
    }
}

// "чек" and "резюме" in code page 866 happen to be well-formed UTF-8.
TEST(NameDecoderTest, ReadsAccidentalUtf8LikeItsNeighbours) {
    NameDecoder decoder;
    const Names names = {"Отчет.doc", "Документы/чек.pdf", "чек.pdf", "резюме.docx"};
    for (const std::string& name : names) {
        decoder.consider({.bytes = encoded("CP866", name)});
    }
    decoder.decide();
    for (const std::string& name : names) {
        EXPECT_EQ(decoded(decoder, {.bytes = encoded("CP866", name)}).text, name);
    }
}

TEST(NameDecoderTest, KeepsRealUtf8BesideLegacyNames) {
    for (const char* charset : {"CP932", "GBK", "BIG5", "CP949", "CP866", "CP1251", "CP437"}) {
        NameDecoder decoder;
        const bool western = std::string_view(charset) == "CP437";
        const bool cyrillic = std::string_view(charset).find("866") != std::string_view::npos ||
                              std::string_view(charset).find("1251") != std::string_view::npos;
        const bool korean = std::string_view(charset) == "CP949";
        const Bytes legacy = encoded(charset,
                                     western    ? "Übung.txt"
                                     : cyrillic ? "Отчет.doc"
                                     : korean   ? "보고서"
                                                : "中文");
        decoder.consider({.bytes = legacy});
        decoder.decide();
        for (const char* name :
             {"照片.jpg", "Übersicht.txt", "Документы", "사진", "写真.jpg", "café"}) {
            const Bytes bytes = raw(name);
            EXPECT_EQ(decoded(decoder, {.bytes = bytes}).text, name) << charset;
        }
    }
}

TEST(NameDecoderTest, SpellsWhatNoCharsetCanReadInCodePage437) {
    NameDecoder decoder;
    decoder.consider({.bytes = encoded("CP932", "新しいフォルダー")});
    const Bytes broken = {0x95, 0xF1, 0xFF, 0x81};
    decoder.consider({.bytes = broken});
    decoder.decide();
    EXPECT_EQ(decoded(decoder, {.bytes = broken}).text, "ò±\u00A0ü");
    EXPECT_EQ(decoder.charset(), "CP932");
}

TEST(NameDecoderTest, KeepsNulBytes) {
    EXPECT_EQ(decodeAlone({.bytes = raw({"a\0b", 3})}).text, std::string("a\0b", 3));
    EXPECT_EQ(decodeAlone({.bytes = raw({"\x9A"
                                         "bung\0b",
                                         7})})
                  .text,
              std::string("Übung\0b", 8));
}

// The second byte of these Japanese and Chinese letters is a backslash in ASCII.
TEST(NameDecoderTest, TakesNoSecondByteForASeparator) {
    EXPECT_EQ(decodeAlone({.bytes = raw("\x94\x5C\x97\xCD\x95\x5C.xls")}).text, "能力表.xls");
    EXPECT_EQ(decodeAlone({.bytes = raw("\xB3\x5C\xA5\x69\xC3\xD2.doc")}).text, "許可證.doc");
}

}  // namespace
}  // namespace pellumar::archive
