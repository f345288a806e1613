#include "analytics/Consent.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace pellumar {
namespace {

constexpr std::array kNames = {"ad_storage",
                               "analytics_storage",
                               "ad_user_data",
                               "ad_personalization"};
constexpr std::array kStatuses = {"unset", "granted", "denied"};

const QString kPaused = QStringLiteral("paused");
const QString kErasureOwed = QStringLiteral("erasure_owed");

template <typename Enumeration>
std::size_t indexOf(Enumeration each) {
    return static_cast<std::size_t>(each);
}

}  // namespace

QString toText(ConsentKind kind) {
    return QString::fromLatin1(kNames.at(indexOf(kind)));
}

QString toText(ConsentStatus status) {
    return QString::fromLatin1(kStatuses.at(indexOf(status)));
}

ConsentStatus consentStatusOf(const QString& text) {
    if (text.isEmpty() || text == toText(ConsentStatus::kUnset)) {
        return ConsentStatus::kUnset;
    }
    return text == toText(ConsentStatus::kGranted) ? ConsentStatus::kGranted
                                                   : ConsentStatus::kDenied;
}

const Consent::Answer& Consent::answer(ConsentKind kind) const {
    return answers_.at(indexOf(kind));
}

void Consent::set(ConsentKind kind, ConsentStatus status, qint64 time) {
    Answer& answer = answers_.at(indexOf(kind));
    if (answer.status != status) {
        answer = {.status = status,
                  .time = status == ConsentStatus::kUnset ? std::nullopt : std::optional(time)};
    }
    isErasureOwed = isErasureOwed || (kind == ConsentKind::kAnalyticsStorage && !allowsStorage());
}

ConsentStatus Consent::status(ConsentKind kind) const {
    const ConsentStatus given = answer(kind).status;
    const bool isDeployed =
        given == ConsentStatus::kUnset && kind == ConsentKind::kAnalyticsStorage;
    return isDeployed ? deployed_ : given;
}

bool Consent::allowsStorage() const {
    return status(ConsentKind::kAnalyticsStorage) != ConsentStatus::kDenied;
}

bool Consent::mayMeasure() const {
    return status(ConsentKind::kAnalyticsStorage) == ConsentStatus::kGranted && !isPaused;
}

bool Consent::mayAdvertise() const {
    return status(ConsentKind::kAdStorage) != ConsentStatus::kDenied &&
           status(ConsentKind::kAdPersonalization) != ConsentStatus::kDenied;
}

bool Consent::maySendAdvertisingData() const {
    return status(ConsentKind::kAdUserData) != ConsentStatus::kDenied;
}

QByteArray Consent::toJson() const {
    QJsonObject content{{kPaused, isPaused}, {kErasureOwed, isErasureOwed}};
    for (const ConsentKind kind : kConsentKinds) {
        QJsonObject json{{"status", toText(answer(kind).status)}};
        if (answer(kind).time) {
            json.insert("time", *answer(kind).time);
        }
        content.insert(toText(kind), json);
    }
    return QJsonDocument(content).toJson();
}

void Consent::read(const QByteArray& json) {
    const QJsonObject content = QJsonDocument::fromJson(json).object();
    for (const ConsentKind kind : kConsentKinds) {
        const QJsonObject read = content.value(toText(kind)).toObject();
        const QString status = read.value(u"status").toString(QStringLiteral("denied"));
        const QJsonValue time = read.value(u"time");
        answers_.at(indexOf(kind)) = {
            .status = status.isEmpty() ? ConsentStatus::kDenied : consentStatusOf(status),
            .time = time.isDouble() ? std::optional(time.toInteger()) : std::nullopt};
    }
    isPaused = content.value(kPaused).toBool();
    isErasureOwed = content.value(kErasureOwed).toBool();
}

}  // namespace pellumar
