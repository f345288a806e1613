#include "analytics/Event.h"

#include <QMetaType>
#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/TextLength.h"

namespace pellumar {
namespace {

bool isLetter(QChar c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool isName(const QString& name, qsizetype most) {
    return !name.isEmpty() && textLength(name) <= most && isLetter(name.front()) &&
           std::all_of(
               name.begin(),
               name.end(),
               [](QChar c) { return isLetter(c) || (c >= u'0' && c <= u'9') || c == u'_'; }) &&
           !name.startsWith(kReservedPrefix);
}

// In memory of its own.
QString copied(const QString& text) {
    return QString(text.constData(), text.size());
}

Checked<QString> cutTo(const QString& text, qsizetype most) {
    const bool isShort = textLength(text) <= most;
    return {.value = isShort ? copied(text) : textCutTo(text, most), .isWhole = isShort};
}

Checked<ParameterValue> valueOf(const QVariant& given) {
    Checked<ParameterValue> none{.value = {}, .isWhole = false};
    switch (given.typeId()) {
        case QMetaType::Bool:
            return {.value = given.toBool()};
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::Long:
        case QMetaType::LongLong:
            return {.value = given.toLongLong()};
        case QMetaType::ULong:
        case QMetaType::ULongLong:
            return given.toULongLong() <= quint64{std::numeric_limits<qint64>::max()}
                       ? Checked<ParameterValue>{.value = given.toLongLong()}
                       : none;
        case QMetaType::Float:
        case QMetaType::Double:
            return std::isfinite(given.toDouble())
                       ? Checked<ParameterValue>{.value = given.toDouble()}
                       : none;
        case QMetaType::QString: {
            const auto& text = *static_cast<const QString*>(given.constData());
            Checked<QString> cut = cutTo(text, Event::kMostTextLength);
            return {.value = std::move(*cut.value), .isWhole = cut.isWhole};
        }
        default:
            return none;
    }
}

}  // namespace

Checked<Event> Event::check(const QString& name, const QVariantMap& parameters) {
    if (!isName(name, kMostNameLength)) {
        return {.value = {}, .isWhole = false};
    }
    Checked<Event> checked{.value = Event{.name = copied(name), .parameters = {}}};
    Parameters& kept = checked.value->parameters;
    kept.reserve(static_cast<std::size_t>(std::min(parameters.size(), kMostParameters)));
    for (auto given = parameters.begin(); given != parameters.end(); ++given) {
        const bool isAllowed =
            kept.size() < kMostParameters && isName(given.key(), kMostNameLength);
        Checked<ParameterValue> value = isAllowed ? valueOf(*given) : Checked<ParameterValue>();
        if (value.value) {
            kept.emplace_back(copied(given.key()), std::move(*value.value));
        }
        checked.isWhole = checked.isWhole && isAllowed && value.isWhole;
    }
    return checked;
}

Checked<UserProperty> UserProperty::check(const QString& name, const QString& value) {
    if (!isName(name, kMostNameLength)) {
        return {.value = {}, .isWhole = false};
    }
    Checked<QString> cut = cutTo(value, kMostLength);
    return {.value = UserProperty{.name = copied(name), .value = std::move(*cut.value)},
            .isWhole = cut.isWhole};
}

}  // namespace pellumar
