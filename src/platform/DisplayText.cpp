#include "platform/DisplayText.h"

#include <QLocale>

namespace pellumar {

QString sizeText(qint64 bytes) {
    constexpr int kDecimals = 1;
    return QLocale().formattedDataSize(bytes, kDecimals, QLocale::DataSizeSIFormat);
}

QString timeText(const QDateTime& time) {
    return QLocale().toString(time, QLocale::ShortFormat);
}

}  // namespace pellumar
