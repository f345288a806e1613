#include "platform/DisplayText.h"

#include <QCoreApplication>
#include <QLocale>
#include <algorithm>

namespace pellumar {

QString sizeText(qint64 bytes) {
    if (bytes == 1) {
        return QCoreApplication::translate("DisplayText", "1 byte");
    }
    constexpr int kDecimals = 1;
    return isolated(QLocale().formattedDataSize(bytes, kDecimals, QLocale::DataSizeSIFormat));
}

QString isolated(const QString& name) {
    const auto runsLeft = [](QChar each) {
        return each.direction() == QChar::DirR || each.direction() == QChar::DirAL;
    };
    // By Qt's own text, which tells it how to lay out a window.
    const QString layout = QCoreApplication::translate("QGuiApplication", "QT_LAYOUT_DIRECTION");
    if (layout != QStringLiteral("RTL") && std::none_of(name.begin(), name.end(), runsLeft)) {
        return name;
    }
    constexpr QChar kFirstStrongIsolate(0x2068);
    constexpr QChar kPopDirectionalIsolate(0x2069);
    return kFirstStrongIsolate + name + kPopDirectionalIsolate;
}

QString timeText(const QDateTime& time) {
    return isolated(QLocale().toString(time, QLocale::ShortFormat));
}

}  // namespace pellumar
