#include "analytics/EventValidator.h"

#include <QMetaType>
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/TextLength.h"

namespace pellumar::validation {
namespace {

// What an event says of a parameter that broke a limit: the code and the name of the first one.
const QString kErrorParameter = QStringLiteral("pz_error");
const QString kErrorNameParameter = QStringLiteral("pz_error_name");

bool isLetter(QChar c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool isName(const QString& name, qsizetype mostLength) {
    return !name.isEmpty() && textLength(name) <= mostLength && isLetter(name.front()) &&
           std::all_of(name.begin(), name.end(), [](QChar c) {
               return isLetter(c) || (c >= u'0' && c <= u'9') || c == u'_';
           });
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
        case QMetaType::Char:
        case QMetaType::SChar:
        case QMetaType::UChar:
        case QMetaType::Short:
        case QMetaType::UShort:
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
            return cutTo(*static_cast<const QString*>(value.constData()), kMostTextLength);
        default:
            return std::nullopt;
    }
}

struct CheckedParameter {
    std::optional<ParameterValue> value;
    MeasurementError error = MeasurementError::kNone;
};

CheckedParameter checkParameter(const QString& name, const QVariant& given) {
    if (!isName(name, kMostNameLength)) {
        return {.value = std::nullopt, .error = MeasurementError::kParameterName};
    }
    if (name.startsWith(kReservedPrefix)) {
        return {.value = std::nullopt, .error = MeasurementError::kReservedParameterName};
    }
    CheckedParameter checked{.value = valueOf(given)};
    if (!checked.value) {
        checked.error = MeasurementError::kParameterType;
    } else if (given.typeId() == QMetaType::QString &&
               textLength(*static_cast<const QString*>(given.constData())) > kMostTextLength) {
        checked.error = MeasurementError::kParameterTextCut;
    }
    return checked;
}

}  // namespace

CheckedEvent checkEvent(const QString& name, const QVariantMap& parameters) {
    if (!isName(name, kMostNameLength)) {
        return {.event = std::nullopt, .error = MeasurementError::kEventName};
    }
    if (name.startsWith(kReservedPrefix)) {
        return {.event = std::nullopt, .error = MeasurementError::kReservedEventName};
    }
    Event event{.name = copied(name), .parameters = {}};
    event.parameters.reserve(std::min<std::size_t>(parameters.size(), kMostParameters));
    MeasurementError firstError = MeasurementError::kNone;
    QString wrongName;
    for (auto given = parameters.begin(); given != parameters.end(); ++given) {
        CheckedParameter checked = checkParameter(given.key(), given.value());
        if (checked.value && event.parameters.size() >= kMostParameters) {
            checked = {.value = std::nullopt, .error = MeasurementError::kTooManyParameters};
        }
        if (checked.value) {
            event.parameters.push_back(
                {.name = copied(given.key()), .value = std::move(*checked.value)});
        } else {
            ++event.droppedParameters;
        }
        if (firstError == MeasurementError::kNone && checked.error != MeasurementError::kNone) {
            firstError = checked.error;
            wrongName = cutTo(given.key(), kMostNameLength);
        }
    }
    if (firstError != MeasurementError::kNone) {
        event.parameters.push_back(
            {.name = kErrorParameter, .value = static_cast<qint64>(firstError)});
        event.parameters.push_back({.name = kErrorNameParameter, .value = wrongName});
    }
    return {.event = std::move(event), .error = firstError};
}

CheckedProperty checkUserProperty(const QString& name, const QString& value) {
    if (!isName(name, kMostPropertyNameLength)) {
        return {.property = std::nullopt, .error = MeasurementError::kPropertyName};
    }
    if (name.startsWith(kReservedPrefix)) {
        return {.property = std::nullopt, .error = MeasurementError::kReservedPropertyName};
    }
    const bool isCut = textLength(value) > kMostPropertyValueLength;
    return {.property =
                UserProperty{.name = copied(name), .value = cutTo(value, kMostPropertyValueLength)},
            .error = isCut ? MeasurementError::kPropertyValueCut : MeasurementError::kNone};
}

}  // namespace pellumar::validation
