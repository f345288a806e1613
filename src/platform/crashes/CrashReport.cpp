#include "platform/crashes/CrashReport.h"

#include <QCryptographicHash>
#include <QFile>
#include <QRegularExpression>
#include <QStringList>
#include <vector>

namespace pellumar {
namespace {

constexpr qint64 kMostBytes = 1 << 20;
constexpr qsizetype kMostStackLength = 4000;
constexpr qsizetype kMostVersionLength = 64;

// In seconds since 1970: 2020, and the end of the year 9999.
constexpr qint64 kEarliestSecond = 1'577'836'800;
constexpr qint64 kLatestSecond = 253'402'300'799;

qint64 timeOf(const QString& seconds) {
    const qint64 time = seconds.toLongLong();
    return time >= kEarliestSecond && time <= kLatestSecond ? time * 1000 : 0;
}

// Code of a file, in memory.
struct Module {
    quint64 begin = 0;
    quint64 end = 0;
    quint64 offset = 0;
    QString name;
};

// Of a line of /proc/self/maps, proc(5).
std::optional<Module> moduleOf(const QString& line) {
    static const QRegularExpression code(
        QStringLiteral("^([0-9a-f]+)-([0-9a-f]+) r.x. ([0-9a-f]+) \\S+ \\d+ +/(?:.*/)?(.+)$"));
    const QRegularExpressionMatch match = code.match(line);
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    return Module{.begin = match.captured(1).toULongLong(nullptr, 16),
                  .end = match.captured(2).toULongLong(nullptr, 16),
                  .offset = match.captured(3).toULongLong(nullptr, 16),
                  .name = match.captured(4)};
}

QString stackOf(const std::vector<quint64>& addresses, const std::vector<Module>& modules) {
    QStringList places;
    for (const quint64 address : addresses) {
        for (const Module& module : modules) {
            if (address >= module.begin && address < module.end) {
                places.append(module.name + QStringLiteral("+0x") +
                              QString::number(address - module.begin + module.offset, 16));
            }
        }
    }
    return places.join(u'\n').left(kMostStackLength);
}

}  // namespace

std::optional<CrashReport> CrashReport::read(const std::filesystem::path& marker) {
    QFile file(QFile::decodeName(marker.c_str()));
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    const QByteArray content = file.read(kMostBytes);
    static const QRegularExpression signal(QStringLiteral("^SIG[A-Z]{2,5}$"));
    CrashReport report;
    std::vector<quint64> addresses;
    std::vector<Module> modules;
    const QStringList lines = QString::fromUtf8(content).split(u'\n');
    for (const QString& line : lines) {
        const QString word = line.section(u' ', 0, 0);
        const QString rest = line.section(u' ', 1);
        if (word == u"signal" && signal.match(rest).hasMatch()) {
            report.signal = rest;
        } else if (word == u"version") {
            report.version = rest.left(kMostVersionLength);
        } else if (word == u"time") {
            report.time = timeOf(rest);
        } else if (word == u"at") {
            addresses.push_back(rest.toULongLong(nullptr, 16));
        } else if (const std::optional<Module> module = moduleOf(line)) {
            modules.push_back(*module);
        }
    }
    report.stack = stackOf(addresses, modules);
    report.fingerprint =
        QString::fromLatin1(QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex());
    return report;
}

}  // namespace pellumar
