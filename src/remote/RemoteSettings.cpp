#include "remote/RemoteSettings.h"

#include <QByteArray>
#include <charconv>
#include <system_error>
#include <utility>

namespace pellumar {
namespace {

std::optional<bool> parseBoolean(const QString& text) {
    const QString word = text.toLower();
    if (word == QLatin1String("true") || word == QLatin1String("1")) {
        return true;
    }
    if (word == QLatin1String("false") || word == QLatin1String("0")) {
        return false;
    }
    return std::nullopt;
}

std::optional<qint64> parseInteger(const QString& text) {
    // Letters and digits of other scripts become several bytes, none of which is a digit.
    QByteArray digits = text.toUtf8();
    if (digits.startsWith("+")) {
        digits.remove(0, 1);
        if (digits.startsWith("-")) {
            return std::nullopt;
        }
    }
    qint64 number = 0;
    const char* end = digits.constData() + digits.size();
    const auto [rest, error] = std::from_chars(digits.constData(), end, number);
    return error == std::errc() && rest == end ? std::optional(number) : std::nullopt;
}

}  // namespace

RemoteSettings::RemoteSettings(std::shared_ptr<FIRRemoteConfig> remoteConfig, Console& console)
    : remoteConfig_(std::move(remoteConfig)), console_(console) {}

RemoteSettings& RemoteSettings::shared() {
    static StreamConsole console(stdout);
    static const auto settings =
        std::make_shared<RemoteSettings>(FIRRemoteConfig::remoteConfig(), console);
    return *settings;
}

void RemoteSettings::fetch(std::function<void()> completion) {
    remoteConfig_->fetchWithExpirationDuration(
        kMaximumAge,
        [store = weak_from_this(), &console = console_, completion = std::move(completion)](
            RemoteConfigFetchStatus status, const std::optional<RemoteConfigError>& error) {
            if (error) {
                console.writeLine(QStringLiteral("Failed to fetch scenario: ") +
                                  error->localizedDescription);
                completion();
            } else if (status != RemoteConfigFetchStatus::kSuccess) {
                console.writeLine(QStringLiteral("Failed to fetch scenario with status ") +
                                  toText(status));
                completion();
            } else if (const auto alive = store.lock()) {
                alive->activate(completion);
            }
        });
}

void RemoteSettings::activate(std::function<void()> completion) {
    remoteConfig_->activateWithCompletion(
        [store = weak_from_this(), &console = console_, completion = std::move(completion)](
            bool /*changed*/, const std::optional<RemoteConfigError>& error) {
            if (error) {
                // "Optional" belongs to the line that is looked for in logs.
                console.writeLine(
                    QStringLiteral("Failed to activate remote configs: Optional(\"%1\")")
                        .arg(error->localizedDescription));
            } else {
                console.writeLine(QStringLiteral("Activate remote configs successfuly"));
                if (const auto alive = store.lock()) {
                    alive->printRemoteConfigs();
                }
            }
            completion();
        });
}

std::optional<QString> RemoteSettings::text(const QString& key) const {
    std::optional<QString> text = remoteConfig_->objectForKeyedSubscript(key).stringValue;
    if (text && text->isEmpty()) {
        text.reset();
    }
    return text;
}

QString RemoteSettings::value(const ScenarioParameter<QString>& parameter) const {
    return text(parameter.key).value_or(parameter.defaultValue);
}

bool RemoteSettings::value(const ScenarioParameter<bool>& parameter) const {
    const std::optional<QString> found = text(parameter.key);
    return found ? parseBoolean(*found).value_or(parameter.defaultValue) : parameter.defaultValue;
}

qint64 RemoteSettings::value(const ScenarioParameter<qint64>& parameter) const {
    const std::optional<QString> found = text(parameter.key);
    return found ? parseInteger(*found).value_or(parameter.defaultValue) : parameter.defaultValue;
}

void RemoteSettings::printRemoteConfigs() {
    const QSet<QString> keys = remoteConfig_->keysWithPrefix(QString());
    if (keys.isEmpty()) {
        return;
    }
    console_.writeLine(QStringLiteral("\nREMOTE CONFIGS:"));
    for (const QString& key : keys) {
        const std::optional<QString> text = remoteConfig_->objectForKeyedSubscript(key).stringValue;
        console_.writeLine(QStringLiteral("    ") + key + QStringLiteral(": ") +
                           text.value_or(QStringLiteral("(null)")));
    }
    console_.writeLine(QString());
}

}  // namespace pellumar
