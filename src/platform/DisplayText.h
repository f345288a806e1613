#pragma once

#include <QDateTime>
#include <QString>

// How sizes, times and names read, wherever they are shown.
namespace pellumar {

// "12 bytes", "1.0 MB"; in powers of 1000, as drives and shops count.
[[nodiscard]] QString sizeText(qint64 bytes);

// A name of a file or folder as a part of a sentence: its letters and those around it do not change
// each other's order. The name itself, where all of it runs from left to right.
[[nodiscard]] QString isolated(const QString& name);

// A day with its time, as the user's region writes them.
[[nodiscard]] QString timeText(const QDateTime& time);

}  // namespace pellumar
