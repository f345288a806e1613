#include "engine/FailureReason.h"

#include <gtest/gtest.h>

#include <QRegularExpression>
#include <cerrno>
#include <set>

#include "engine/Remarks.h"

namespace pellumar {
namespace {

using archive::Error;
using archive::ErrorCode;

JobReport reportOf(OperationType operation, const std::vector<Error>& errors) {
    JobReport report(operation, QUrl("file:///somewhere/Holiday%20pictures.zip/"));
    for (const Error& error : errors) {
        report.addFailure(error);
    }
    return report;
}

std::string reasonOf(const Error& error, OperationType operation = OperationType::kUnzip) {
    return FailureReason::of(reportOf(operation, {error})).text.toStdString();
}

// Every value that has a name.
std::vector<ErrorCode> allCodes() {
    std::vector<ErrorCode> codes;
    for (int value = 0; value < 256; ++value) {
        const auto code = static_cast<ErrorCode>(value);
        if (archive::describe(code) != "unknown error") {
            codes.push_back(code);
        }
    }
    return codes;
}

TEST(FailureReason, EveryCodeHasPlainWordsInEveryJobWithAndWithoutAnEntry) {
    const std::vector<ErrorCode> codes = allCodes();
    EXPECT_GE(codes.size(), 25U);
    const QRegularExpression forMachines(
        "0x|offset|errno|[0-9]{3}|\\bk[A-Z]|null|CRC|directory\\b");
    for (const ErrorCode code : codes) {
        for (const OperationType operation : {OperationType::kZip, OperationType::kUnzip}) {
            for (const char* const entry : {"", "photos/a.jpg"}) {
                const Error error{
                    .code = code, .entry = entry, .offset = 123456, .systemError = ENOENT};
                const FailureReason reason = FailureReason::of(reportOf(operation, {error}));
                const std::string told(archive::describe(code));
                EXPECT_FALSE(reason.text.isEmpty()) << told;
                EXPECT_TRUE(reason.text.endsWith('.')) << told;
                EXPECT_FALSE(forMachines.match(reason.text).hasMatch())
                    << reason.text.toStdString();
                EXPECT_FALSE(reason.text.contains("%")) << reason.text.toStdString();
                EXPECT_NE(reason.details.toStdString().find(error.describe()), std::string::npos);
            }
        }
    }
}

TEST(FailureReason, SaysWhichFileWhatIsWrongAndWhatToDo) {
    EXPECT_EQ(
        reasonOf({.code = ErrorCode::kTruncated, .entry = {}, .offset = 77}),
        "“Holiday pictures.zip” was cut short while it was downloaded or copied. Get it again.");
    EXPECT_EQ(reasonOf({.code = ErrorCode::kTooLarge,
                        .entry = {},
                        .bytesNeeded = 1'200'000'000,
                        .bytesFree = 300'000'000}),
              "There is not enough room: 1.2 GB are needed, 300.0 MB are free.");
    EXPECT_EQ(reasonOf({.code = ErrorCode::kChecksumMismatch, .entry = "photos/a.jpg"}),
              "“photos/a.jpg” in “Holiday pictures.zip” is damaged. Get the archive again.");
    EXPECT_EQ(reasonOf({.code = ErrorCode::kEncrypted, .entry = "a"}),
              "“Holiday pictures.zip” is protected with a password. Nothing was taken out without "
              "it.");
}

// What the system says differs by whether something was read or written, and by what.
TEST(FailureReason, TellsTheSystemsReasonsApart) {
    std::set<std::string> read;
    std::set<std::string> written;
    const std::vector<int> reasons = {
        ENOENT, EACCES, EIO, EISDIR, EROFS, EFBIG, EMFILE, ENOTCONN, EBUSY, ENAMETOOLONG};
    for (const int reason : reasons) {
        read.insert(reasonOf(
            {.code = ErrorCode::kSourceUnreadable, .entry = "a.txt", .systemError = reason},
            OperationType::kZip));
        written.insert(
            reasonOf({.code = ErrorCode::kWriteFailed, .entry = "a.txt", .systemError = reason}));
    }
    // A disk that cannot be written says nothing of reading, a folder nothing of writing.
    EXPECT_EQ(read.size(), reasons.size() - 1);
    EXPECT_EQ(written.size(), reasons.size());
    EXPECT_EQ(reasonOf({.code = ErrorCode::kOpenFailed, .entry = {}, .systemError = EACCES}),
              "You are not allowed to read “Holiday pictures.zip”. Change its permissions, or ask "
              "its owner.");
}

TEST(FailureReason, CountsTheOthersAndListsThemInTheDetails) {
    EXPECT_TRUE(FailureReason::of(reportOf(OperationType::kZip, {})).text.isEmpty());
    const Error error{.code = ErrorCode::kSourceChanged, .entry = "a.txt"};
    const FailureReason two = FailureReason::of(reportOf(OperationType::kZip, {error, error}));
    EXPECT_TRUE(two.text.endsWith("\nOne other file could not be added either."));
    const FailureReason many =
        FailureReason::of(reportOf(OperationType::kZip, std::vector<Error>(500, error)));
    EXPECT_TRUE(many.text.endsWith("\n499 other files could not be added either."));
    EXPECT_EQ(many.details.count('\n'), static_cast<qsizetype>(JobReport::kMostKept));
}

// A name comes from anybody: it may be long, hold lines of its own, or turn the sentence around.
TEST(FailureReason, NamesCannotSpoilASentence) {
    const std::string reversed =
        "a\xE2\x80\xAE"
        "gpj.exe\nerror\x1b[0m";
    const std::string text = reasonOf({.code = ErrorCode::kDamagedData, .entry = reversed});
    for (const char* const spoiler : {"\xE2\x80\xAE", "\n", "\x1b"}) {
        EXPECT_EQ(text.find(spoiler), std::string::npos);
    }
    const std::string family = "\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x91\xA7.jpg";
    EXPECT_NE(reasonOf({.code = ErrorCode::kDamagedData, .entry = family}).find(family),
              std::string::npos);
    const std::string rockets(4000, 'x');
    EXPECT_LT(reasonOf({.code = ErrorCode::kDamagedData, .entry = rockets}).size(), 200U);
}

TEST(Remarks, EveryWarningHasPlainWordsAndTheRestIsCounted) {
    JobReport report = reportOf(OperationType::kUnzip, {});
    EXPECT_EQ(Remarks::of(report).count, 0);
    archive::Warnings warnings;
    int known = 0;
    for (int value = 0; value < 256; ++value) {
        const auto code = static_cast<archive::WarningCode>(value);
        if (archive::describe(code) != "unknown warning") {
            warnings.add(code, "a.txt", 1234);
            ++known;
        }
    }
    report.addWarnings(warnings);
    const Remarks remarks = Remarks::of(report);
    EXPECT_EQ(remarks.count, known);
    ASSERT_EQ(remarks.lines.size(), known);
    for (const QString& line : remarks.lines) {
        EXPECT_TRUE(line.endsWith('.') && !line.contains("1234")) << line.toStdString();
    }
    EXPECT_TRUE(remarks.details.contains("1234"));
    archive::Warnings many;
    for (int i = 0; i < 2000; ++i) {
        many.add(archive::WarningCode::kDuplicatePath, "a.txt");
    }
    report.addWarnings(many);
    EXPECT_EQ(Remarks::of(report).count, 2000 + known);
    EXPECT_EQ(Remarks::of(report).lines.size(), 101);
    EXPECT_TRUE(Remarks::of(report).lines.last().startsWith("And 1,9"));
}

}  // namespace
}  // namespace pellumar
