#include "app/UsageData.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "events/EventNames.h"

namespace pellumar {
namespace {

QString inWords(const char* text) {
    return QCoreApplication::translate("UsageData", text);
}

QString titleOf(const QString& event) {
    static const std::array<std::pair<QLatin1String, const char*>, 13> titles = {{
        {event::kTappedUnzip, QT_TRANSLATE_NOOP("UsageData", "Unzip was tapped")},
        {event::kTappedZip, QT_TRANSLATE_NOOP("UsageData", "Zip was tapped")},
        {event::kTappedFiles, QT_TRANSLATE_NOOP("UsageData", "Files was tapped")},
        {event::kTappedPhotos, QT_TRANSLATE_NOOP("UsageData", "Photos was tapped")},
        {event::kUsedShareExtension,
         QT_TRANSLATE_NOOP("UsageData", "An archive came from another application")},
        {event::kZippedSuccessfully, QT_TRANSLATE_NOOP("UsageData", "An archive was made")},
        {event::kFailedToZip, QT_TRANSLATE_NOOP("UsageData", "An archive could not be made")},
        {event::kUnzippedSuccessfully, QT_TRANSLATE_NOOP("UsageData", "An archive was unzipped")},
        {event::kFailedToUnzip, QT_TRANSLATE_NOOP("UsageData", "An archive could not be unzipped")},
        {event::kStartedTutorial, QT_TRANSLATE_NOOP("UsageData", "The introduction was shown")},
        {event::kFinishedTutorial, QT_TRANSLATE_NOOP("UsageData", "The introduction was left")},
        {event::kEvaluatedApp, QT_TRANSLATE_NOOP("UsageData", "The application was rated")},
        {event::kDeveloperTapped, QT_TRANSLATE_NOOP("UsageData", "More from us was tapped")},
    }};
    const auto* const known = std::find_if(
        titles.begin(), titles.end(), [&](const auto& title) { return title.first == event; });
    // Those that the engine makes by itself speak for themselves.
    return known != titles.end() ? inWords(known->second) : event;
}

QString detailOf(const QJsonObject& event) {
    const QDateTime time = QDateTime::fromMSecsSinceEpoch(event["time"].toInteger());
    QStringList parts{QLocale().toString(time, QLocale::ShortFormat)};
    const QJsonArray parameters = event["parameters"].toArray();
    for (const QJsonValue parameter : parameters) {
        const QJsonObject value = parameter["value"].toObject();
        parts.append(parameter["key"].toString() + QStringLiteral(": ") +
                     (value.isEmpty() ? QString() : value.begin()->toVariant().toString()));
    }
    return parts.join(QStringLiteral(" · "));
}

QString summaryOf(std::size_t events) {
    if (events == 0) {
        return inWords("No event waits to be sent.");
    }
    const QString number = QLocale().toString(static_cast<qulonglong>(events));
    return events == 1
               ? inWords("1 event. It stays on this device until it is sent.")
               : inWords("%1 events. They stay on this device until they are sent.").arg(number);
}

}  // namespace

UsageData UsageData::of(const std::optional<QByteArray>& lines) {
    if (!lines) {
        return {
            .summary = inWords("What has been kept cannot be read."), .titles = {}, .details = {}};
    }
    std::vector<QJsonObject> events;
    for (const QByteArray& line : lines->split('\n')) {
        QJsonObject row = QJsonDocument::fromJson(line).object();
        if (row["table"] == QLatin1String("events")) {
            events.push_back(std::move(row));
        }
    }
    UsageData data{.summary = summaryOf(events.size()), .titles = {}, .details = {}};
    for (auto event = events.rbegin(); event != events.rend() && data.titles.size() < kMostRows;
         ++event) {
        data.titles.append(titleOf((*event)["name"].toString()));
        data.details.append(detailOf(*event));
    }
    return data;
}

}  // namespace pellumar
