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

Error nameError(const QString& name, qsizetype most) {
    const bool isName = !name.isEmpty() && textLength(name) <= most && isLetter(name.front()) &&
                        std::all_of(name.begin(), name.end(), [](QChar c) {
                            return isLetter(c) || (c >= u'0' && c <= u'9') || c == u'_';
                        });
    if (!isName) {
        return Error::kName;
    }
    return name.startsWith(kReservedPrefix) ? Error::kReservedName : Error::kNone;
}

// In memory of its own.
QString copied(const QString& text) {
    return QString(text.constData(), text.size());
}

Checked<QString> cutTo(const QString& text, qsizetype most) {
    if (textLength(text) <= most) {
        return {.value = copied(text)};
    }
    return {.value = textCutTo(text, most), .error = Error::kTextCut};
}

Checked<QVariant> checkParameter(const QString& name, const QVariant& given) {
    const auto as = [](const auto& value) {
        return Checked<QVariant>{.value = QVariant::fromValue(value)};
    };
    const auto wrong = [] {
        return Checked<QVariant>{.value = {}, .error = Error::kParameterType};
    };
    if (const Error error = nameError(name, Event::kMostNameLength); error != Error::kNone) {
        return {.value = {}, .error = error};
    }
    switch (given.typeId()) {
        case QMetaType::Bool:
            return as(given.toBool());
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::Long:
        case QMetaType::LongLong:
            return as(given.toLongLong());
        case QMetaType::ULong:
        case QMetaType::ULongLong:
            return given.toULongLong() <= quint64{std::numeric_limits<qint64>::max()}
                       ? as(given.toLongLong())
                       : wrong();
        case QMetaType::Float:
        case QMetaType::Double:
            return std::isfinite(given.toDouble()) ? as(given.toDouble()) : wrong();
        case QMetaType::QString: {
            const auto text =
                cutTo(*static_cast<const QString*>(given.constData()), Event::kMostTextLength);
            return {.value = *text.value, .error = text.error};
        }
        default:
            return wrong();
    }
}

}  // namespace

Checked<Event> Event::check(const QString& name, const QVariantMap& parameters) {
    if (const Error error = nameError(name, kMostNameLength); error != Error::kNone) {
        return {.value = {}, .error = error};
    }
    Event event{.name = copied(name), .parameters = {}};
    Error firstError = Error::kNone;
    QString wrongName;
    for (auto given = parameters.begin(); given != parameters.end(); ++given) {
        Checked<QVariant> checked = checkParameter(given.key(), given.value());
        if (checked.value && event.parameters.size() >= kMostParameters) {
            checked = {.value = {}, .error = Error::kTooManyParameters};
        }
        if (checked.value) {
            event.parameters.insert(event.parameters.cend(), copied(given.key()), *checked.value);
        }
        if (firstError == Error::kNone && checked.error != Error::kNone) {
            firstError = checked.error;
            wrongName = *cutTo(given.key(), kMostNameLength).value;
        }
    }
    if (firstError != Error::kNone) {
        event.parameters.insert(kErrorParameter, static_cast<qint64>(firstError));
        event.parameters.insert(kErrorNameParameter, wrongName);
    }
    return {.value = std::move(event), .error = firstError};
}

Checked<UserProperty> UserProperty::check(const QString& name, const QString& value) {
    if (const Error error = nameError(name, kMostNameLength); error != Error::kNone) {
        return {.value = {}, .error = error};
    }
    const Checked<QString> cut = cutTo(value, kMostLength);
    return {.value = UserProperty{.name = copied(name), .value = *cut.value}, .error = cut.error};
}

}  // namespace pellumar
