#include "cli/EntryLines.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QString>
#include <algorithm>
#include <array>
#include <charconv>
#include <ctime>

#include "archive/base/Error.h"
#include "cli/PrintableText.h"

namespace pellumar {
namespace {

using archive::Entry;
using archive::EntryType;

constexpr int kDecimal = 10;
constexpr int kOctal = 8;
constexpr int kHexadecimal = 16;
constexpr int kFirstYear = 1900;

void appendNumber(std::string& text,
                  std::uint64_t value,
                  std::size_t width,
                  char filler = ' ',
                  int base = kDecimal) {
    std::array<char, 24> digits{};
    const char* const end =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, base).ptr;
    const auto length = static_cast<std::size_t>(end - digits.data());
    text.append(width - std::min(width, length), filler);
    text.append(digits.data(), length);
}

void appendTwoDigits(std::string& text, char separator, int value) {
    text.push_back(separator);
    appendNumber(text, static_cast<std::uint64_t>(value), 2, '0');
}

// "2024-03-01T12:34:56Z".
void appendTime(std::string& text, std::time_t moment) {
    std::tm time{};
    ::gmtime_r(&moment, &time);
    appendNumber(text, static_cast<std::uint64_t>(std::max(time.tm_year + kFirstYear, 0)), 4, '0');
    appendTwoDigits(text, '-', time.tm_mon + 1);
    appendTwoDigits(text, '-', time.tm_mday);
    appendTwoDigits(text, 'T', time.tm_hour);
    appendTwoDigits(text, ':', time.tm_min);
    appendTwoDigits(text, ':', time.tm_sec);
    text += 'Z';
}

char letterOf(EntryType type) {
    switch (type) {
        case EntryType::kFolder:
            return 'd';
        case EntryType::kSymbolicLink:
            return 'l';
        case EntryType::kFile:
            break;
    }
    return '-';
}

std::string_view wordFor(EntryType type) {
    switch (type) {
        case EntryType::kFolder:
            return "folder";
        case EntryType::kSymbolicLink:
            return "link";
        case EntryType::kFile:
            break;
    }
    return "file";
}

// "-rw-r--r--", whether it is encrypted, whether it has a fault.
void appendMarks(std::string& text, const Entry& entry) {
    constexpr std::string_view kLetters = "rwxrwxrwx";
    std::array<char, 12> marks{};
    marks[0] = letterOf(entry.type);
    for (std::size_t i = 0; i < kLetters.size(); ++i) {
        const bool isGiven = (entry.permissions >> (kLetters.size() - 1 - i) & 1U) != 0;
        marks[i + 1] = isGiven ? kLetters[i] : '-';
    }
    marks[10] = entry.encrypted ? '*' : ' ';
    marks[11] = entry.fault ? '!' : ' ';
    text.append(marks.data(), marks.size());
}

}  // namespace

std::string_view tableHeading() {
    return "Permissions          Size      Packed  Modified          Name\n";
}

void appendTableLine(std::string& text,
                     const Entry& entry,
                     std::string_view linkTarget,
                     LocalDays& days) {
    constexpr std::size_t kSizeWidth = 12;
    appendMarks(text, entry);
    appendNumber(text, entry.uncompressedSize, kSizeWidth + 1);
    appendNumber(text, entry.compressedSize, kSizeWidth);
    text += "  ";
    days.append(text, entry.modified.tv_sec);
    text += "  ";
    appendPrintable(text, entry.path);
    if (entry.type == EntryType::kFolder) {
        text.push_back('/');
    }
    if (!linkTarget.empty()) {
        text += " -> ";
        appendPrintable(text, linkTarget);
    }
    text.push_back('\n');
}

void appendJsonObject(std::string& text, const Entry& entry, std::string_view linkTarget) {
    const auto number = [&text](std::string_view key, std::uint64_t value) {
        text.append(",\"").append(key).append("\":");
        appendNumber(text, value, 0);
    };
    const auto string = [&text](std::string_view key, std::string_view value) {
        if (!value.empty()) {
            text.append(",\"").append(key).append("\":");
            appendJsonString(text, value);
        }
    };
    text += "{\"path\":";
    appendJsonString(text, entry.path);
    string("type", wordFor(entry.type));
    number("size", entry.uncompressedSize);
    number("packed", entry.compressedSize);
    text += ",\"modified\":\"";
    appendTime(text, entry.modified.tv_sec);
    text += "\",\"mode\":\"";
    appendNumber(text, entry.permissions, 4, '0', kOctal);
    text += "\",\"crc32\":\"";
    appendNumber(text, entry.crc32, 8, '0', kHexadecimal);
    text += '"';
    number("method", entry.method);
    number("offset", entry.localHeaderOffset);
    text += entry.encrypted ? ",\"encrypted\":true" : ",\"encrypted\":false";
    string("target", linkTarget);
    string("comment", entry.comment);
    string("fault", entry.fault ? archive::describe(*entry.fault) : "");
    text += '}';
}

void appendJsonString(std::string& text, std::string_view value) {
    constexpr char kFirst = ' ';
    constexpr char kLast = '~';
    const bool isPlain = std::all_of(value.begin(), value.end(), [](char letter) {
        return letter >= kFirst && letter <= kLast && letter != '"' && letter != '\\';
    });
    if (isPlain) {
        text.append("\"").append(value).append("\"");
        return;
    }
    const QByteArray array = QJsonDocument(QJsonArray{QString::fromUtf8(
                                               value.data(), static_cast<qsizetype>(value.size()))})
                                 .toJson(QJsonDocument::Compact);
    // Without the brackets.
    text.append(array.constData() + 1, static_cast<std::size_t>(array.size() - 2));
}

}  // namespace pellumar
