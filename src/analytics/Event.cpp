#include "analytics/Event.h"

#include <QMetaType>
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/TextLength.h"

namespace pellumar {
namespace {

using Error = MeasurementError;

// What an event says of a parameter that broke a limit: the code and the name of the first one.
const QString kErrorParameter = QStringLiteral("pz_error");
const QString kErrorNameParameter = QStringLiteral("pz_error_name");

bool isLetter(QChar c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

Error nameError(const QString& name, qsizetype most, Error wrong, Error reserved) {
    const bool isName = !name.isEmpty() && textLength(name) <= most && isLetter(name.front()) &&
                        std::all_of(name.begin(), name.end(), [](QChar c) {
                            return isLetter(c) || (c >= u'0' && c <= u'9') || c == u'_';
                        });
    if (!isName) {
        return wrong;
    }
    return name.startsWith(kReservedPrefix) ? reserved : Error::kNone;
}

// In memory of its own.
QString copied(const QString& text) {
    return QString(text.constData(), text.size());
}

QString cutTo(const QString& text, qsizetype most) {
    return textLength(text) <= most ? copied(text) : textCutTo(text, most);
}

std::optional<ParameterValue> valueOf(const QVariant& value) {
    switch (value.typeId()) {
        case QMetaType::Bool:
            return value.toBool();
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::Long:
        case QMetaType::LongLong:
            return qint64{value.toLongLong()};
        case QMetaType::ULong:
        case QMetaType::ULongLong:
            if (value.toULongLong() > quint64{std::numeric_limits<qint64>::max()}) {
                return std::nullopt;
            }
            return qint64{value.toLongLong()};
        case QMetaType::Float:
        case QMetaType::Double:
            if (!std::isfinite(value.toDouble())) {
                return std::nullopt;
            }
            return value.toDouble();
        case QMetaType::QString:
            return cutTo(*static_cast<const QString*>(value.constData()), Event::kMostTextLength);
        default:
            return std::nullopt;
    }
}

Checked<ParameterValue> checkParameter(const QString& name, const QVariant& given) {
    Checked<ParameterValue> checked{
        .value = {},
        .error = nameError(
            name, Event::kMostNameLength, Error::kParameterName, Error::kReservedParameterName)};
    if (checked.error != Error::kNone) {
        return checked;
    }
    checked.value = valueOf(given);
    if (!checked.value) {
        checked.error = Error::kParameterType;
    } else if (given.typeId() == QMetaType::QString &&
               textLength(*static_cast<const QString*>(given.constData())) >
                   Event::kMostTextLength) {
        checked.error = Error::kParameterTextCut;
    }
    return checked;
}

}  // namespace

Checked<Event> Event::check(const QString& name, const QVariantMap& parameters) {
    const Error wrong =
        nameError(name, kMostNameLength, Error::kEventName, Error::kReservedEventName);
    if (wrong != Error::kNone) {
        return {.value = {}, .error = wrong};
    }
    Event event{.name = copied(name), .parameters = {}};
    event.parameters.reserve(std::min<std::size_t>(parameters.size(), kMostParameters));
    Error firstError = Error::kNone;
    QString wrongName;
    for (auto given = parameters.begin(); given != parameters.end(); ++given) {
        Checked<ParameterValue> checked = checkParameter(given.key(), given.value());
        if (checked.value && event.parameters.size() >= kMostParameters) {
            checked = {.value = {}, .error = Error::kTooManyParameters};
        }
        if (checked.value) {
            event.parameters.push_back(
                {.name = copied(given.key()), .value = std::move(*checked.value)});
        }
        if (firstError == Error::kNone && checked.error != Error::kNone) {
            firstError = checked.error;
            wrongName = cutTo(given.key(), kMostNameLength);
        }
    }
    if (firstError != Error::kNone) {
        event.parameters.push_back(
            {.name = kErrorParameter, .value = static_cast<qint64>(firstError)});
        event.parameters.push_back({.name = kErrorNameParameter, .value = wrongName});
    }
    return {.value = std::move(event), .error = firstError};
}

Checked<UserProperty> UserProperty::check(const QString& name, const QString& value) {
    const Error wrong =
        nameError(name, kMostNameLength, Error::kPropertyName, Error::kReservedPropertyName);
    if (wrong != Error::kNone) {
        return {.value = {}, .error = wrong};
    }
    return {.value = UserProperty{.name = copied(name), .value = cutTo(value, kMostLength)},
            .error = textLength(value) > kMostLength ? Error::kPropertyValueCut : Error::kNone};
}

}  // namespace pellumar
