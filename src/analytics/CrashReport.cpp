#include "analytics/CrashReport.h"

#include <QFile>
#include <QStringList>

namespace pellumar {
namespace {

constexpr qint64 kMostBytes = 16 << 10;
constexpr qsizetype kMostStackLength = 4000;

}  // namespace

std::optional<CrashReport> CrashReport::read(const std::filesystem::path& marker) {
    QFile file(QFile::decodeName(marker.c_str()));
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    CrashReport report;
    QStringList frames;
    const QStringList lines = QString::fromUtf8(file.read(kMostBytes)).split(u'\n');
    for (const QString& line : lines) {
        const QString word = line.section(u' ', 0, 0);
        const QString rest = line.section(u' ', 1);
        if (word == u"signal") {
            report.signal = rest;
        } else if (word == u"version") {
            report.version = rest;
        } else if (word == u"time") {
            report.time = rest.toLongLong() * 1000;
        } else if (word == u"frame") {
            frames.append(rest);
        }
    }
    report.stack = frames.join(u'\n').left(kMostStackLength);
    return report;
}

}  // namespace pellumar
