#include "engine/FailureReason.h"

#include <QCoreApplication>
#include <cerrno>
#include <optional>

#include "engine/ShownName.h"
#include "platform/DisplayText.h"
#include "platform/FileUrl.h"

namespace pellumar {
namespace {

using archive::Error;
using archive::ErrorCode;

// The sentences for one failure.
class FailureWords {
    Q_DECLARE_TR_FUNCTIONS(FailureWords)

  public:
    FailureWords(const JobReport& report, const Error& error)
        : isZip_(report.operation() == OperationType::kZip),
          error_(error),
          archive_(shownName(lastPathComponent(report.archive()))),
          file_(error.entry.empty() ? archive_ : shownName(QString::fromStdString(error.entry))) {}

    [[nodiscard]] QString text() const {
        switch (error_.code) {
            case ErrorCode::kOpenFailed:
            case ErrorCode::kReadFailed:
                return isWriting() ? notWritten() : notRead();
            case ErrorCode::kWriteFailed:
                return notWritten();
            case ErrorCode::kNoSpace:
                return tr("The disk is full. Make room on it, then try again.");
            case ErrorCode::kTooLarge:
                return notEnoughRoom();
            case ErrorCode::kInvalidArgument:
            case ErrorCode::kCancelled:
            case ErrorCode::kSourceUnreadable:
            case ErrorCode::kSourceNotSupported:
            case ErrorCode::kSourceChanged:
                return aboutSource();
            case ErrorCode::kNotAnArchive:
            case ErrorCode::kTruncated:
            case ErrorCode::kDamagedDirectory:
            case ErrorCode::kMultipleDisks:
            case ErrorCode::kVolumeMissing:
            case ErrorCode::kNoSuchEntry:
                return aboutArchive();
            case ErrorCode::kAlreadyExists:
            case ErrorCode::kUnsafeName:
            case ErrorCode::kNameTooLong:
            case ErrorCode::kConflictingNames:
            case ErrorCode::kUnsafeLink:
                return aboutName();
            case ErrorCode::kOutOfMemory:
            case ErrorCode::kOverLimit:
            case ErrorCode::kEncrypted:
            case ErrorCode::kWrongPassword:
            case ErrorCode::kEncryptionNotInstalled:
            case ErrorCode::kUnsupportedMethod:
            case ErrorCode::kOverlap:
            case ErrorCode::kSizeMismatch:
            case ErrorCode::kHeaderMismatch:
            case ErrorCode::kDamagedData:
            case ErrorCode::kChecksumMismatch:
                return aboutContents();
        }
        return {};
    }

  private:
    // Whether what could not be opened is on its way out: the archive being made, or a folder for
    // what comes out of one.
    [[nodiscard]] bool isWriting() const { return isZip_ || !error_.entry.empty(); }

    // What the system says of any file, if it is one of its plain reasons.
    [[nodiscard]] std::optional<QString> systemReason() const {
        switch (error_.systemError) {
            case EIO:
                return tr("The disk that holds %1 reports a fault. Check the disk and its cable.")
                    .arg(file_);
            case ENODEV:
            case ENXIO:
            case ENOTCONN:
            case ESTALE:
            case ETIMEDOUT:
            case EHOSTDOWN:
            case EHOSTUNREACH:
            case ENETUNREACH:
                return tr("The disk or the network folder that holds %1 does not answer. Connect "
                          "it again, then try again.")
                    .arg(file_);
            case EMFILE:
            case ENFILE:
                return tr(
                    "Too many files are open on this device. Close other programs, then try "
                    "again.");
            case EBUSY:
            case ETXTBSY:
                return tr("%1 is in use. Close the program that uses it, then try again.")
                    .arg(file_);
            case ENAMETOOLONG:
                return tr("The name of %1 is too long for this disk.").arg(file_);
            default:
                return std::nullopt;
        }
    }

    [[nodiscard]] QString notRead() const {
        switch (error_.systemError) {
            case ENOENT:
            case ENOTDIR:
                return tr("%1 is not there any more. It may have been moved, renamed or deleted.")
                    .arg(file_);
            case EACCES:
            case EPERM:
                return tr("You are not allowed to read %1. Change its permissions, or ask its "
                          "owner.")
                    .arg(file_);
            case EISDIR:
                return tr("%1 is a folder, not a file.").arg(file_);
            default:
                return systemReason().value_or(tr("%1 could not be read.").arg(file_));
        }
    }

    [[nodiscard]] QString notWritten() const {
        switch (error_.systemError) {
            case EROFS:
                return tr("The disk can only be read. Unlock it, or use another one.");
            case EACCES:
            case EPERM:
                return tr(
                    "You are not allowed to write into the folder of this application. Check "
                    "its permissions.");
            case EFBIG:
                return tr("%1 is larger than this disk takes a file.").arg(file_);
            case ENOENT:
            case ENOTDIR:
                return tr("There is no folder for %1 any more. Try again.").arg(file_);
            default:
                return systemReason().value_or(
                    isWriting() ? tr("%1 could not be written.").arg(file_)
                                : tr("What is in %1 could not be written.").arg(archive_));
        }
    }

    [[nodiscard]] QString notEnoughRoom() const {
        if (error_.bytesNeeded == 0) {
            return tr("There is not enough room on the disk for what is in %1. Delete what you do "
                      "not need, then try again.")
                .arg(archive_);
        }
        return tr("There is not enough room: %1 are needed, %2 are free.")
            .arg(sizeText(static_cast<qint64>(error_.bytesNeeded)),
                 sizeText(static_cast<qint64>(error_.bytesFree)));
    }

    [[nodiscard]] QString aboutSource() const {
        switch (error_.code) {
            case ErrorCode::kSourceUnreadable:
                return notRead();
            case ErrorCode::kSourceNotSupported:
                return tr("%1 is neither a file nor a folder, so it cannot be packed.").arg(file_);
            case ErrorCode::kSourceChanged:
                return tr("%1 was changed meanwhile. Wait until nothing writes to it, then try "
                          "again.")
                    .arg(file_);
            default:
                return tr("%1 is not a file on this device. Copy it here, then try again.")
                    .arg(file_);
        }
    }

    [[nodiscard]] QString aboutArchive() const {
        switch (error_.code) {
            case ErrorCode::kTruncated:
                return tr("%1 was cut short while it was downloaded or copied. Get it again.")
                    .arg(archive_);
            case ErrorCode::kDamagedDirectory:
                return tr("%1 is damaged: it does not tell what is in it. Get it again.")
                    .arg(archive_);
            case ErrorCode::kMultipleDisks:
                return tr("%1 is one part of an archive in several, and its parts do not fit "
                          "together. Get them again.")
                    .arg(archive_);
            case ErrorCode::kVolumeMissing:
                return tr("%1 is one part of an archive in several, and %2 is missing. Put all "
                          "parts into one folder, then try again.")
                    .arg(archive_, file_);
            default:
                return tr("%1 is not a ZIP archive. If it should be one, get it again.")
                    .arg(archive_);
        }
    }

    [[nodiscard]] QString aboutName() const {
        switch (error_.code) {
            case ErrorCode::kAlreadyExists:
                return isZip_ ? tr("Something of the name %1 is there and cannot be replaced. "
                                   "Choose another name.")
                                    .arg(archive_)
                              : tr("There are two things in %1 whose names this disk cannot tell "
                                   "apart: %2.")
                                    .arg(archive_, file_);
            case ErrorCode::kNameTooLong:
                return tr("The name of %1 is too long for this disk.").arg(file_);
            case ErrorCode::kConflictingNames:
                return tr("%2 is both a file and a folder in %1, which no disk can hold.")
                    .arg(archive_, file_);
            case ErrorCode::kUnsafeLink:
                return tr("%2 in %1 points to a place outside of it. Nothing was taken out, for "
                          "your safety.")
                    .arg(archive_, file_);
            default:
                return tr("%1 would put %2 in a place that you did not choose. Nothing was taken "
                          "out, for your safety.")
                    .arg(archive_, file_);
        }
    }

    [[nodiscard]] QString aboutContents() const {
        switch (error_.code) {
            case ErrorCode::kOutOfMemory:
                return tr("%1 needs more memory than this device can give. Close other programs, "
                          "or use a larger device.")
                    .arg(file_);
            case ErrorCode::kEncrypted:
                return tr("%1 is protected with a password. Nothing was taken out without it.")
                    .arg(archive_);
            case ErrorCode::kWrongPassword:
                return tr("The password does not fit %1. Check it, then try again.").arg(archive_);
            case ErrorCode::kEncryptionNotInstalled:
                return tr(
                    "Passwords take a library that is not installed on this device. Install "
                    "the package libnettle, then try again.");
            case ErrorCode::kUnsupportedMethod:
                return tr("%1 is packed in a way that this version cannot open. Ask for a common "
                          "ZIP archive.")
                    .arg(file_);
            case ErrorCode::kDamagedData:
            case ErrorCode::kChecksumMismatch:
                return error_.entry.empty()
                           ? tr("%1 is damaged. Get it again.").arg(archive_)
                           : tr("%2 in %1 is damaged. Get the archive again.").arg(archive_, file_);
            default:
                return tr("%1 contradicts itself, as if somebody meant harm. Take it only from a "
                          "place that you trust.")
                    .arg(archive_);
        }
    }

    const bool isZip_;
    const Error& error_;
    const QString archive_;
    // What it is about: the entry or the source, else the archive.
    const QString file_;
};

// Damage, as a bad download or a worn disk leave it; what looks like intent is left alone.
bool isDamage(ErrorCode code) {
    switch (code) {
        case ErrorCode::kTruncated:
        case ErrorCode::kDamagedDirectory:
        case ErrorCode::kHeaderMismatch:
        case ErrorCode::kSizeMismatch:
        case ErrorCode::kDamagedData:
        case ErrorCode::kChecksumMismatch:
            return true;
        default:
            return false;
    }
}

}  // namespace

FailureReason FailureReason::of(const JobReport& report) {
    if (report.failures().empty()) {
        return {};
    }
    const Error& first = report.failures().front();
    FailureReason reason{
        .text = FailureWords(report, first).text(),
        .details = report.archive().toString(QUrl::FullyEncoded),
        .canBeSalvaged = report.operation() == OperationType::kUnzip && isDamage(first.code)};
    if (report.failureCount() > 1) {
        const auto others = static_cast<int>(report.failureCount() - 1);
        reason.text += '\n';
        reason.text +=
            others == 1
                ? FailureWords::tr("One other file could not be added either.")
                : FailureWords::tr("%Ln other files could not be added either.", nullptr, others);
    }
    for (const Error& error : report.failures()) {
        reason.details += '\n' + QString::fromStdString(error.describe());
    }
    return reason;
}

}  // namespace pellumar
