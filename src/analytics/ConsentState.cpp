#include "analytics/ConsentState.h"

#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

namespace pellumar {
namespace {

constexpr qint64 kMostBytes = 64 << 10;

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

ConsentState::ConsentState(const std::filesystem::path& folder) : path_(fileIn(folder)) {
    read();
}

std::optional<qint64> ConsentState::timeOf(ConsentKind kind) const {
    return times_.at(indexOf(kind));
}

void ConsentState::set(ConsentKind kind, ConsentStatus status, qint64 time) {
    if (consent_.status(kind) == status) {
        return;
    }
    consent_.set(kind, status);
    times_.at(indexOf(kind)) = status == ConsentStatus::kUnset ? std::nullopt : std::optional(time);
    unsaved_ = true;
    save();
}

bool ConsentState::refresh() {
    if (unsaved_ || versionOnDisk() == version_) {
        return false;
    }
    const Consent before = consent_;
    read();
    return before != consent_;
}

void ConsentState::save() {
    if (!unsaved_) {
        return;
    }
    QJsonObject content;
    for (const ConsentKind kind : kConsentKinds) {
        QJsonObject answer{{"status", toText(consent_.status(kind))}};
        if (const std::optional<qint64> time = timeOf(kind)) {
            answer.insert("time", QString::number(*time));
        }
        content.insert(toText(kind), answer);
    }
    QDir().mkpath(QFileInfo(path_).path());
    QSaveFile file(path_);
    if (file.open(QIODevice::WriteOnly) && file.write(QJsonDocument(content).toJson()) > 0 &&
        file.commit()) {
        unsaved_ = false;
        version_ = versionOnDisk();
    }
}

ConsentState::Version ConsentState::versionOnDisk() const {
    struct stat status {};
    if (::stat(QFile::encodeName(path_).constData(), &status) != 0) {
        return {0, 0};
    }
    return {status.st_ino, status.st_mtim.tv_sec * 1'000'000'000LL + status.st_mtim.tv_nsec};
}

void ConsentState::read() {
    version_ = versionOnDisk();
    consent_ = {};
    times_ = {};
    QFile file(path_);
    if (!file.exists()) {
        return;
    }
    QByteArray bytes;
    if (file.open(QIODevice::ReadOnly)) {
        bytes = file.read(kMostBytes);
    }
    const QJsonObject content = QJsonDocument::fromJson(bytes).object();
    for (const ConsentKind kind : kConsentKinds) {
        const QJsonObject answer = content.value(toText(kind)).toObject();
        consent_.set(kind,
                     statusOf(answer.value(u"status").toString()).value_or(ConsentStatus::kDenied));
        bool hasTime = false;
        const qint64 time = answer.value(u"time").toString().toLongLong(&hasTime);
        times_.at(indexOf(kind)) = hasTime ? std::optional(time) : std::nullopt;
    }
}

}  // namespace pellumar
