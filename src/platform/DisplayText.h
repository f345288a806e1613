#pragma once

#include <QDateTime>
#include <QString>

// How sizes and times read, wherever they are shown.
namespace pellumar {

// "12 bytes", "1.0 MB"; in powers of 1000, as drives and shops count.
[[nodiscard]] QString sizeText(qint64 bytes);

// A day with its time, as the user's region writes them.
[[nodiscard]] QString timeText(const QDateTime& time);

}  // namespace pellumar
