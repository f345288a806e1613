#include "analytics/EventValidator.h"

#include <QMetaType>
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "analytics/EventNaming.h"
#include "platform/TextLength.h"

namespace pellumar::validation {
namespace {

bool isLetter(QChar c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool isName(const QString& name, qsizetype mostLength) {
    return !name.isEmpty() && name.size() <= mostLength && isLetter(name.front()) &&
           std::all_of(name.begin(), name.end(), [](QChar c) {
               return isLetter(c) || (c >= u'0' && c <= u'9') || c == u'_';
           });
}

// Longer than every limit, so that a text of this length is seen to be too long.
constexpr qsizetype kLongestSeen = kMostTextLength + 1;
// Wrong ones do not count, so that there may be more of them than of those that are kept.
constexpr qsizetype kMostSeen = 4 * qsizetype{kMostParameters};

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
            return value.toString();
        default:
            return std::nullopt;
    }
}

// With the room that has been reserved for it, and its own: one without any stands in memory that
// may be somebody's, who is not asked to keep it.
bool isSmall(const QString& text) {
    return text.size() <= kLongestSeen && text.capacity() <= 2 * kLongestSeen &&
           text.capacity() >= text.size();
}

bool isSmall(const QVariant& value) {
    return value.typeId() == QMetaType::QString ? isSmall(value.toString())
                                                : !value.isValid() || valueOf(value).has_value();
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
    std::optional<ParameterValue> value = valueOf(given);
    if (!value) {
        return {.value = std::nullopt, .error = MeasurementError::kParameterType};
    }
    auto* const text = std::get_if<QString>(&*value);
    if (text != nullptr && text->size() > kMostTextLength) {
        return {.value = textCutTo(*text, kMostTextLength),
                .error = MeasurementError::kParameterTextCut};
    }
    return {.value = std::move(value)};
}

}  // namespace

QString bounded(const QString& text) {
    return isSmall(text) ? text : QString(text.constData(), std::min(text.size(), kLongestSeen));
}

QVariantMap bounded(const QVariantMap& parameters) {
    const bool isBounded =
        parameters.size() <= kMostSeen &&
        std::all_of(parameters.keyValueBegin(), parameters.keyValueEnd(), [](const auto& each) {
            return isSmall(each.first) && isSmall(each.second);
        });
    if (isBounded) {
        return parameters;
    }
    QVariantMap small;
    for (auto each = parameters.begin(); each != parameters.end() && small.size() < kMostSeen;
         ++each) {
        const bool isText = each.value().typeId() == QMetaType::QString;
        small.insert(bounded(each.key()),
                     isText                  ? QVariant(bounded(each.value().toString()))
                     : isSmall(each.value()) ? each.value()
                                             : QVariant());
    }
    return small;
}

std::size_t bytesOf(const QString& text) {
    constexpr qsizetype kHeader = 24;
    const qsizetype units = std::max(text.size(), text.capacity());
    return static_cast<std::size_t>(kHeader + units * qsizetype{sizeof(QChar)});
}

std::size_t bytesOf(const QVariantMap& parameters) {
    // Of a node of the map.
    constexpr std::size_t kNode = 96;
    std::size_t bytes = 0;
    for (auto each = parameters.begin(); each != parameters.end(); ++each) {
        const bool isText = each.value().typeId() == QMetaType::QString;
        bytes += kNode + bytesOf(each.key()) + (isText ? bytesOf(each.value().toString()) : 0);
    }
    return bytes;
}

CheckedEvent checkEvent(const QString& name, const QVariantMap& parameters) {
    if (!isName(name, kMostNameLength)) {
        return {.event = std::nullopt, .error = MeasurementError::kEventName};
    }
    if (name.startsWith(kReservedPrefix)) {
        return {.event = std::nullopt, .error = MeasurementError::kReservedEventName};
    }
    Event event{.name = name, .parameters = {}};
    MeasurementError firstError = MeasurementError::kNone;
    QString wrongName;
    for (auto given = parameters.begin(); given != parameters.end(); ++given) {
        CheckedParameter checked = checkParameter(given.key(), given.value());
        if (checked.value && event.parameters.size() >= kMostParameters) {
            checked = {.value = std::nullopt, .error = MeasurementError::kTooManyParameters};
        }
        if (checked.value) {
            event.parameters.push_back({.name = given.key(), .value = std::move(*checked.value)});
        } else {
            ++event.droppedParameters;
        }
        if (firstError == MeasurementError::kNone && checked.error != MeasurementError::kNone) {
            firstError = checked.error;
            wrongName = textCutTo(given.key(), kMostNameLength);
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
        return {.value = std::nullopt, .error = MeasurementError::kPropertyName};
    }
    if (name.startsWith(kReservedPrefix)) {
        return {.value = std::nullopt, .error = MeasurementError::kReservedPropertyName};
    }
    if (value.size() > kMostPropertyValueLength) {
        return {.value = textCutTo(value, kMostPropertyValueLength),
                .error = MeasurementError::kPropertyValueCut};
    }
    return {.value = value};
}

}  // namespace pellumar::validation
