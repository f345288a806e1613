#pragma once

#include <QJsonObject>
#include <QString>
#include <optional>

#include "platform/Console.h"

namespace pellumar {

// A small file of JSON with a checksum, which is either whole or as if it were not there. The first
// line is the SHA-256 of all that follows it, in hexadecimal digits.
class CheckedFile {
  public:
    // Larger ones are damaged ones. An answer of the server grows sixfold at worst when it is kept.
    static constexpr qint64 kMostBytes = qint64{16} << 20;

    // `console` must outlive this.
    CheckedFile(QString path, Console& console);

    // Nothing if there is no file. A damaged one is said on the console, and is nothing too.
    [[nodiscard]] std::optional<QJsonObject> read() const;

    // Writes aside, syncs and renames: if the process or the machine stops at any moment, the old
    // file or the new one is there. False if it cannot be written; then the old one stands.
    [[nodiscard]] bool write(const QJsonObject& content) const;

  private:
    QString path_;
    Console& console_;
};

}  // namespace pellumar
