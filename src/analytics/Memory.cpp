#include "analytics/Memory.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <array>
#include <utility>

namespace pellumar {
namespace {

constexpr std::array<std::pair<const char*, QString Memory::*>, 5> kTexts = {{
    {"installation", &Memory::installation},
    {"session", &Memory::session},
    {"app_version", &Memory::applicationVersion},
    {"system_version", &Memory::systemVersion},
    {"crash_told", &Memory::toldCrash},
}};
constexpr std::array<std::pair<const char*, qint64 Memory::*>, 10> kNumbers = {{
    {"installed_at", &Memory::installedAt},
    {"session_number", &Memory::sessionNumber},
    {"last_seen", &Memory::lastSeen},
    {"engagement", &Memory::engagement},
    {"opened", &Memory::isOpened},
    {"upload_failures", &Memory::failures},
    {"upload_held_from", &Memory::heldFrom},
    {"upload_held_until", &Memory::heldUntil},
    {"clock_seen", &Memory::clockSeen},
    {"clock_steady_since", &Memory::clockSteadySince},
}};
constexpr const char* kProperties = "user_properties";
constexpr const char* kAdvertising = "advertising_properties";
constexpr const char* kLosses = "losses";

bool isOurs(const QString& name) {
    return name.startsWith(kReservedPrefix);
}

}  // namespace

void Memory::lose(const QString& reason, qint64 number) {
    if (number > 0) {
        losses[reason] += number;
    }
}

void Memory::set(const UserProperty& property) {
    properties.erase(property.name);
    // Those of audiences are not the application's, and are as many as there are audiences.
    const auto others = std::count_if(
        properties.begin(), properties.end(), [](const auto& each) { return !isOurs(each.first); });
    if (property.value.isEmpty()) {
        return;
    }
    if (isOurs(property.name) || others < kMostProperties) {
        properties.emplace(property.name, property);
    } else {
        lose(loss::kInvalid, 1);
    }
}

QByteArray Memory::toJson() const {
    QJsonObject content;
    for (const auto& [key, member] : kTexts) {
        if (!(this->*member).isEmpty()) {
            content.insert(QLatin1String(key), this->*member);
        }
    }
    for (const auto& [key, member] : kNumbers) {
        if (this->*member != 0) {
            content.insert(QLatin1String(key), this->*member);
        }
    }
    QJsonObject kept;
    QJsonObject advertising;
    for (const auto& [name, property] : properties) {
        (property.advertising ? advertising : kept).insert(name, property.value);
    }
    QJsonObject lost;
    for (const auto& [reason, number] : losses) {
        lost.insert(reason, number);
    }
    content.insert(QLatin1String(kProperties), kept);
    content.insert(QLatin1String(kAdvertising), advertising);
    content.insert(QLatin1String(kLosses), lost);
    return QJsonDocument(content).toJson(QJsonDocument::Compact);
}

void Memory::read(const QByteArray& json) {
    const QJsonObject content = QJsonDocument::fromJson(json).object();
    for (const auto& [key, member] : kTexts) {
        this->*member = content.value(QLatin1String(key)).toString();
    }
    for (const auto& [key, member] : kNumbers) {
        this->*member = content.value(QLatin1String(key)).toInteger();
    }
    for (const bool advertising : {false, true}) {
        const QJsonObject kept =
            content.value(QLatin1String(advertising ? kAdvertising : kProperties)).toObject();
        for (auto each = kept.begin(); each != kept.end(); ++each) {
            properties[each.key()] = {
                .name = each.key(), .value = each->toString(), .advertising = advertising};
        }
    }
    const QJsonObject lost = content.value(QLatin1String(kLosses)).toObject();
    for (auto each = lost.begin(); each != lost.end(); ++each) {
        losses[each.key()] = each->toInteger();
    }
}

}  // namespace pellumar
