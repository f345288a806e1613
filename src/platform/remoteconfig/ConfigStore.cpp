#include "platform/remoteconfig/ConfigStore.h"

#include <QDir>
#include <QFile>
#include <QUuid>

#include "platform/remoteconfig/CheckedFile.h"

namespace pellumar {
namespace {

constexpr QLatin1String kFetchedFile("fetched");
constexpr QLatin1String kActiveFile("active");
constexpr QLatin1String kHoldFile("hold");
constexpr QLatin1String kInstallationFile("installation");

constexpr QLatin1String kValues("values");
constexpr QLatin1String kEtag("etag");
constexpr QLatin1String kAddress("address");
constexpr QLatin1String kFetchedAt("fetchedAt");
constexpr QLatin1String kUntil("until");
constexpr QLatin1String kIdentifier("identifier");

QJsonObject toJson(const ConfigValues& values) {
    QVariantHash texts;
    texts.reserve(values.size());
    for (auto value = values.begin(); value != values.end(); ++value) {
        texts.insert(value.key(), value.value());
    }
    return QJsonObject::fromVariantHash(texts);
}

ConfigValues valuesOf(const QJsonObject& content) {
    const QJsonObject json = content.value(kValues).toObject();
    ConfigValues values;
    values.reserve(json.size());
    for (auto value = json.begin(); value != json.end(); ++value) {
        values.insert(value.key(), value.value().toString());
    }
    return values;
}

// A file that is written aside is called after the one it will replace, with six letters more.
void removeHalfWritten(const QString& folder) {
    QDir directory(folder);
    const QStringList names = {kFetchedFile + QStringLiteral(".??????"),
                               kActiveFile + QStringLiteral(".??????"),
                               kHoldFile + QStringLiteral(".??????"),
                               kInstallationFile + QStringLiteral(".??????")};
    for (const QString& name : directory.entryList(names, QDir::Files)) {
        directory.remove(name);
    }
}

}  // namespace

ConfigStore::ConfigStore(const std::filesystem::path& folder, Console& console)
    : folder_(QFile::decodeName(folder.c_str()) + QLatin1Char('/')), console_(console) {
    removeHalfWritten(folder_);
}

std::optional<QJsonObject> ConfigStore::read(const QString& name) const {
    return CheckedFile(folder_ + name, console_).read();
}

bool ConfigStore::write(const QString& name, const QJsonObject& content) const {
    return QDir().mkpath(folder_) && CheckedFile(folder_ + name, console_).write(content);
}

std::optional<FetchedConfig> ConfigStore::fetched() const {
    const std::optional<QJsonObject> content = read(kFetchedFile);
    if (!content) {
        return std::nullopt;
    }
    return FetchedConfig{.values = valuesOf(*content),
                         .etag = content->value(kEtag).toString().toLatin1(),
                         .address = content->value(kAddress).toString(),
                         .fetchedAt = content->value(kFetchedAt).toInteger()};
}

bool ConfigStore::keepFetched(const FetchedConfig& fetched) const {
    return write(kFetchedFile,
                 {{kValues, toJson(fetched.values)},
                  {kEtag, QString::fromLatin1(fetched.etag)},
                  {kAddress, fetched.address},
                  {kFetchedAt, fetched.fetchedAt}});
}

ConfigValues ConfigStore::active() const {
    return valuesOf(read(kActiveFile).value_or(QJsonObject()));
}

bool ConfigStore::keepActive(const ConfigValues& values) const {
    return write(kActiveFile, {{kValues, toJson(values)}});
}

std::optional<Hold> ConfigStore::hold() const {
    const std::optional<QJsonObject> content = read(kHoldFile);
    if (!content) {
        return std::nullopt;
    }
    return Hold{.address = content->value(kAddress).toString(),
                .until = content->value(kUntil).toInteger()};
}

bool ConfigStore::keepHold(const Hold& hold) const {
    return write(kHoldFile, {{kAddress, hold.address}, {kUntil, hold.until}});
}

QString ConfigStore::installationIdentifier() const {
    QString kept = read(kInstallationFile).value_or(QJsonObject()).value(kIdentifier).toString();
    if (!kept.isEmpty()) {
        return kept;
    }
    QString made = QUuid::createUuid().toString(QUuid::WithoutBraces);
    if (!write(kInstallationFile, {{kIdentifier, made}})) {
        console_.writeLine(QStringLiteral("Cannot keep the installation's identifier in ") +
                           folder_);
    }
    return made;
}

}  // namespace pellumar
