#include "platform/DisplayText.h"

#include <QCoreApplication>
#include <QLocale>

namespace pellumar {

QString sizeText(qint64 bytes) {
    if (bytes == 1) {
        return QCoreApplication::translate("DisplayText", "1 byte");
    }
    constexpr int kDecimals = 1;
    return QLocale().formattedDataSize(bytes, kDecimals, QLocale::DataSizeSIFormat);
}

QString timeText(const QDateTime& time) {
    return QLocale().toString(time, QLocale::ShortFormat);
}

}  // namespace pellumar
