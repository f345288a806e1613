#include "analytics/CrashReport.h"

#include <QCryptographicHash>
#include <QFile>
#include <QStringList>
#include <system_error>

namespace pellumar {
namespace {

constexpr qint64 kMostBytes = 16 << 10;
constexpr qsizetype kMostStackLength = 4000;

// In seconds since 1970: 2020, and the end of the year 9999.
constexpr qint64 kEarliestSecond = 1'577'836'800;
constexpr qint64 kLatestSecond = 253'402'300'799;

qint64 timeOf(const QString& seconds) {
    const qint64 time = seconds.toLongLong();
    return time >= kEarliestSecond && time <= kLatestSecond ? time * 1000 : 0;
}

CrashReport parse(const QByteArray& content) {
    CrashReport report;
    QStringList frames;
    const QStringList lines = QString::fromUtf8(content).split(u'\n');
    for (const QString& line : lines) {
        const QString word = line.section(u' ', 0, 0);
        const QString rest = line.section(u' ', 1);
        if (word == u"signal") {
            report.signal = rest;
        } else if (word == u"version") {
            report.version = rest;
        } else if (word == u"time") {
            report.time = timeOf(rest);
        } else if (word == u"frame") {
            frames.append(rest);
        }
    }
    report.stack = frames.join(u'\n').left(kMostStackLength);
    report.fingerprint =
        QString::fromLatin1(QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex());
    return report;
}

}  // namespace

std::filesystem::path CrashReport::markerIn(const std::filesystem::path& folder) {
    return folder / "crash";
}

std::filesystem::path CrashReport::claimedIn(const std::filesystem::path& folder) {
    return folder / "crash.claimed";
}

std::optional<CrashReport> CrashReport::claim(const std::filesystem::path& folder) {
    const std::filesystem::path claimed = claimedIn(folder);
    std::error_code ignored;
    // One that a killed process has claimed comes first.
    if (!std::filesystem::exists(claimed, ignored)) {
        std::filesystem::rename(markerIn(folder), claimed, ignored);
    }
    QFile file(QFile::decodeName(claimed.c_str()));
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    return parse(file.read(kMostBytes));
}

void CrashReport::forget(const std::filesystem::path& folder) {
    std::error_code ignored;
    std::filesystem::remove(claimedIn(folder), ignored);
}

void CrashReport::erase(const std::filesystem::path& folder) {
    std::error_code ignored;
    std::filesystem::remove(markerIn(folder), ignored);
    forget(folder);
}

}  // namespace pellumar
