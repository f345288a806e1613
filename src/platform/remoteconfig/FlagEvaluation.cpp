#include "platform/remoteconfig/FlagEvaluation.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QLocale>
#include <QVariant>

namespace pellumar {
namespace {

constexpr qsizetype kMostDetails = 200;

QString textOfNumber(const QJsonValue& value) {
    // Beyond 2^53 a double no longer tells whole numbers apart; JSON values keep them as integers.
    const QVariant number = value.toVariant();
    return number.typeId() == QMetaType::LongLong
               ? QString::number(number.toLongLong())
               : QString::number(number.toDouble(), 'g', QLocale::FloatingPointShortest);
}

// Nothing for what no flag can hold.
std::optional<QString> textOf(const QJsonValue& value) {
    switch (value.type()) {
        case QJsonValue::Bool:
            return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
        case QJsonValue::Double:
            return textOfNumber(value);
        case QJsonValue::String:
            return value.toString();
        case QJsonValue::Object:
            return QString::fromUtf8(
                QJsonDocument(value.toObject()).toJson(QJsonDocument::Compact));
        case QJsonValue::Null:
        case QJsonValue::Array:
        case QJsonValue::Undefined:
            break;
    }
    return std::nullopt;
}

}  // namespace

QByteArray evaluationRequest(const QString& targetingKey) {
    const QJsonObject context{{QStringLiteral("targetingKey"), targetingKey}};
    return QJsonDocument(QJsonObject{{QStringLiteral("context"), context}})
        .toJson(QJsonDocument::Compact);
}

std::optional<ConfigValues> parseEvaluation(const QByteArray& body) {
    const QJsonValue flags = QJsonDocument::fromJson(body).object().value(QLatin1String("flags"));
    if (!flags.isArray()) {
        return std::nullopt;
    }
    const QJsonArray elements = flags.toArray();
    ConfigValues values;
    values.reserve(elements.size());
    for (const auto& element : elements) {
        const QJsonObject flag = element.toObject();
        const QString key = flag.value(QLatin1String("key")).toString();
        const std::optional<QString> text = textOf(flag.value(QLatin1String("value")));
        if (!key.isEmpty() && text && !flag.contains(QLatin1String("errorCode"))) {
            values.insert(key, *text);
        }
    }
    return values;
}

QString refusalDetails(const QByteArray& body) {
    return QJsonDocument::fromJson(body)
        .object()
        .value(QLatin1String("errorDetails"))
        .toString()
        .simplified()
        .left(kMostDetails);
}

}  // namespace pellumar
