#include "platform/remoteconfig/CheckedFile.h"

#include <QByteArray>
#include <QCryptographicHash>
#include <QFile>
#include <QJsonDocument>
#include <QSaveFile>
#include <utility>

namespace pellumar {
namespace {

QByteArray checksum(const QByteArray& bytes) {
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
}

std::optional<QJsonObject> parse(const QByteArray& bytes) {
    const qsizetype lineEnd = bytes.indexOf('\n');
    if (lineEnd < 0) {
        return std::nullopt;
    }
    const QByteArray content = bytes.mid(lineEnd + 1);
    const QJsonDocument document = QJsonDocument::fromJson(content);
    if (bytes.left(lineEnd) != checksum(content) || !document.isObject()) {
        return std::nullopt;
    }
    return document.object();
}

}  // namespace

CheckedFile::CheckedFile(QString path, Console& console)
    : path_(std::move(path)), console_(console) {}

std::optional<QJsonObject> CheckedFile::read() const {
    QFile file(path_);
    if (!file.exists()) {
        return std::nullopt;
    }
    std::optional<QJsonObject> content;
    if (file.open(QIODevice::ReadOnly)) {
        const QByteArray bytes = file.read(kMostBytes + 1);
        if (bytes.size() <= kMostBytes) {
            content = parse(bytes);
        }
    }
    if (!content) {
        console_.writeLine(QStringLiteral("Damaged, taken for absent: ") + path_);
    }
    return content;
}

bool CheckedFile::write(const QJsonObject& content) const {
    const QByteArray bytes = QJsonDocument(content).toJson(QJsonDocument::Compact);
    QSaveFile file(path_);
    return file.open(QIODevice::WriteOnly) && file.write(checksum(bytes) + '\n') > 0 &&
           file.write(bytes) == bytes.size() && file.commit();
}

}  // namespace pellumar
