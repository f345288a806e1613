#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <filesystem>
#include <optional>

#include "platform/Console.h"
#include "platform/remoteconfig/FlagEvaluation.h"

namespace pellumar {

// Times are milliseconds since 1970 in UTC.

// What a fetch brought.
struct FetchedConfig {
    ConfigValues values;
    // Of the server's answer; empty if it gave none.
    QByteArray etag;
    // Where it came from: another server's answer is neither fresh nor the base of an ETag.
    QString address;
    qint64 fetchedAt = 0;
};

// A server's wish to be left alone.
struct Hold {
    QString address;
    qint64 until = 0;
};

// What the remote-configuration service keeps on disk. One file for each thing, each of which is
// whole or as if absent at any moment. For one thread at a time.
class ConfigStore {
  public:
    // The folder is created when something is first kept. `console`, on which damaged files are
    // said, must outlive this. What an earlier process that was killed left half written goes.
    ConfigStore(const std::filesystem::path& folder, Console& console);

    [[nodiscard]] std::optional<FetchedConfig> fetched() const;
    [[nodiscard]] ConfigValues active() const;
    [[nodiscard]] std::optional<Hold> hold() const;

    // False if it could not be kept; then what was kept before still is.
    [[nodiscard]] bool keepFetched(const FetchedConfig& fetched) const;
    [[nodiscard]] bool keepActive(const ConfigValues& values) const;
    [[nodiscard]] bool keepHold(const Hold& hold) const;

    // A random identifier that tells nothing about the machine or the user, made when it is first
    // asked for. One that cannot be kept is another one in the next process.
    [[nodiscard]] QString installationIdentifier() const;

  private:
    [[nodiscard]] std::optional<QJsonObject> read(const QString& name) const;
    [[nodiscard]] bool write(const QString& name, const QJsonObject& content) const;

    QString folder_;
    Console& console_;
};

}  // namespace pellumar
