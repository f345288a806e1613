#include "analytics/ConsentState.h"

#include <sys/stat.h>

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <algorithm>
#include <cerrno>

#include "analytics/FileLock.h"
#include "analytics/PrivateFolder.h"

namespace pellumar {
namespace {

constexpr qint64 kMostBytes = 64 << 10;
constexpr std::pair<quint64, qint64> kNoFile(0, 0);
// Another process holds the lock for as long as it takes to write a small file.
constexpr std::chrono::milliseconds kLockPatience(20);

std::size_t indexOf(ConsentKind kind) {
    return static_cast<std::size_t>(kind);
}

QString fileIn(const std::filesystem::path& folder) {
    return QFile::decodeName((folder / "consent.json").c_str());
}

std::optional<ConsentStatus> statusOf(const QString& text) {
    for (const auto status :
         {ConsentStatus::kUnset, ConsentStatus::kGranted, ConsentStatus::kDenied}) {
        if (text == toText(status)) {
            return status;
        }
    }
    return std::nullopt;
}

}  // namespace

QString toText(ConsentKind kind) {
    switch (kind) {
        case ConsentKind::kAdStorage:
            return QStringLiteral("ad_storage");
        case ConsentKind::kAnalyticsStorage:
            return QStringLiteral("analytics_storage");
        case ConsentKind::kAdUserData:
            return QStringLiteral("ad_user_data");
        case ConsentKind::kAdPersonalization:
            return QStringLiteral("ad_personalization");
    }
    return {};
}

QString toText(ConsentStatus status) {
    switch (status) {
        case ConsentStatus::kUnset:
            return QStringLiteral("unset");
        case ConsentStatus::kGranted:
            return QStringLiteral("granted");
        case ConsentStatus::kDenied:
            return QStringLiteral("denied");
    }
    return {};
}

ConsentStatus Consent::status(ConsentKind kind) const {
    return statuses.at(indexOf(kind));
}

void Consent::set(ConsentKind kind, ConsentStatus status) {
    statuses.at(indexOf(kind)) = status;
}

bool Consent::allowsStorage() const {
    return status(ConsentKind::kAnalyticsStorage) != ConsentStatus::kDenied;
}

bool Consent::allowsAdvertisingAudiences() const {
    return status(ConsentKind::kAdStorage) != ConsentStatus::kDenied &&
           status(ConsentKind::kAdPersonalization) != ConsentStatus::kDenied;
}

bool Consent::allowsSendingAdvertisingData() const {
    return status(ConsentKind::kAdUserData) != ConsentStatus::kDenied;
}

qint64 Consent::packed() const {
    qint64 bits = 0;
    for (std::size_t i = 0; i < statuses.size(); ++i) {
        bits |= static_cast<qint64>(statuses.at(i)) << (2 * i);
    }
    return bits;
}

Consent Consent::unpacked(qint64 bits) {
    Consent consent;
    for (std::size_t i = 0; i < consent.statuses.size(); ++i) {
        const qint64 status = (bits >> (2 * i)) & 3;
        consent.statuses.at(i) =
            status <= 2 ? static_cast<ConsentStatus>(status) : ConsentStatus::kDenied;
    }
    return consent;
}

ConsentState::ConsentState(const std::filesystem::path& folder)
    : folder_(folder), path_(fileIn(folder)) {
    takeOver();
}

Consent ConsentState::current() const {
    Consent known = current_.consent;
    for (const ConsentKind kind : kConsentKinds) {
        if (!isKnown(kind)) {
            known.set(kind, ConsentStatus::kDenied);
        }
    }
    return known;
}

bool ConsentState::isKnown(ConsentKind kind) const {
    return version_ || unsaved_.at(indexOf(kind));
}

std::optional<qint64> ConsentState::timeOf(ConsentKind kind) const {
    return current_.times.at(indexOf(kind));
}

void ConsentState::set(ConsentKind kind, ConsentStatus status, qint64 time) {
    // Another process may have answered otherwise, so that it has to be written though it is no
    // other one here.
    current_.consent.set(kind, status);
    current_.times.at(indexOf(kind)) =
        status == ConsentStatus::kUnset ? std::nullopt : std::optional(time);
    unsaved_.at(indexOf(kind)) = true;
    save();
}

bool ConsentState::isUnsaved() const {
    return std::find(unsaved_.begin(), unsaved_.end(), true) != unsaved_.end();
}

bool ConsentState::refresh() {
    if (version_ && versionOnDisk() == version_) {
        return false;
    }
    const std::pair before(current(), version_.has_value());
    takeOver();
    return before != std::pair(current(), version_.has_value());
}

bool ConsentState::takeOver() {
    // Of before it is read: should it be replaced meanwhile, it is read again.
    version_ = versionOnDisk();
    const std::optional<Answers> disk = version_ ? read(*version_) : std::nullopt;
    if (disk) {
        merge(*disk);
    } else {
        version_.reset();
    }
    return disk.has_value();
}

void ConsentState::merge(const Answers& disk) {
    for (const ConsentKind kind : kConsentKinds) {
        const std::size_t i = indexOf(kind);
        const bool isAnswered = disk.consent.status(kind) != kept_.consent.status(kind);
        const bool isDenied = disk.consent.status(kind) == ConsentStatus::kDenied;
        const bool isSame = disk.consent.status(kind) == current_.consent.status(kind);
        // Of two answers that cross, a no counts.
        if (!unsaved_.at(i) || isSame || (isAnswered && isDenied)) {
            current_.consent.set(kind, disk.consent.status(kind));
            current_.times.at(i) = disk.times.at(i);
            unsaved_.at(i) = false;
        }
    }
    kept_ = disk;
}

bool ConsentState::save() {
    if (!isUnsaved() || !makePrivateFolder(folder_)) {
        return false;
    }
    // Between reading and writing no other process may write.
    FileLock lock(folder_ / "consent.lock");
    if (!lock.take(kLockPatience)) {
        return false;
    }
    const std::pair before(current(), version_.has_value());
    // The other answers would be lost.
    if (takeOver() && isUnsaved() && write()) {
        unsaved_ = {};
        kept_ = current_;
        version_ = versionOnDisk();
    }
    return before != std::pair(current(), version_.has_value());
}

bool ConsentState::write() const {
    QJsonObject content;
    for (const ConsentKind kind : kConsentKinds) {
        QJsonObject answer{{"status", toText(current().status(kind))}};
        if (const std::optional<qint64> time = timeOf(kind)) {
            answer.insert("time", QString::number(*time));
        }
        content.insert(toText(kind), answer);
    }
    QSaveFile file(path_);
    // Without room, Qt 6.4 commits a file that is empty unless it has been flushed before.
    return file.open(QIODevice::WriteOnly) && file.write(QJsonDocument(content).toJson()) > 0 &&
           file.setPermissions(QFile::ReadOwner | QFile::WriteOwner) && file.flush() &&
           file.commit();
}

std::optional<ConsentState::Version> ConsentState::versionOnDisk() const {
    struct stat status {};
    if (::stat(QFile::encodeName(path_).constData(), &status) == 0) {
        return Version(status.st_ino,
                       status.st_mtim.tv_sec * 1'000'000'000LL + status.st_mtim.tv_nsec);
    }
    // A link that leads nowhere is there too.
    const bool isMissing = ::lstat(QFile::encodeName(path_).constData(), &status) != 0 &&
                           (errno == ENOENT || errno == ENOTDIR);
    return isMissing ? std::optional(kNoFile) : std::nullopt;
}

std::optional<ConsentState::Answers> ConsentState::read(const Version& version) const {
    Answers answers;
    if (version == kNoFile) {
        return answers;
    }
    QFile file(path_);
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    const QByteArray bytes = file.read(kMostBytes);
    if (file.error() != QFileDevice::NoError) {
        return std::nullopt;
    }
    const QJsonObject content = QJsonDocument::fromJson(bytes).object();
    for (const ConsentKind kind : kConsentKinds) {
        const QJsonObject answer = content.value(toText(kind)).toObject();
        answers.consent.set(
            kind, statusOf(answer.value(u"status").toString()).value_or(ConsentStatus::kDenied));
        bool hasTime = false;
        const qint64 time = answer.value(u"time").toString().toLongLong(&hasTime);
        answers.times.at(indexOf(kind)) = hasTime ? std::optional(time) : std::nullopt;
    }
    return answers;
}

}  // namespace pellumar
