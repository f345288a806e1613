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

#include "analytics/AnalyticsStore.h"
#include "events/EventNames.h"
#include "platform/DisplayText.h"

namespace pellumar {
namespace {

class UsageWords {
    Q_DECLARE_TR_FUNCTIONS(UsageWords)
};

QString titleOf(const QString& event) {
    static const std::array<std::pair<QLatin1String, const char*>, 13> titles = {{
        {event::kTappedUnzip, QT_TRANSLATE_NOOP("UsageWords", "Unzip was tapped")},
        {event::kTappedZip, QT_TRANSLATE_NOOP("UsageWords", "Zip was tapped")},
        {event::kTappedFiles, QT_TRANSLATE_NOOP("UsageWords", "Files was tapped")},
        {event::kTappedPhotos, QT_TRANSLATE_NOOP("UsageWords", "Photos was tapped")},
        {event::kUsedShareExtension,
         QT_TRANSLATE_NOOP("UsageWords", "An archive came from another application")},
        {event::kZippedSuccessfully, QT_TRANSLATE_NOOP("UsageWords", "An archive was made")},
        {event::kFailedToZip, QT_TRANSLATE_NOOP("UsageWords", "An archive could not be made")},
        {event::kUnzippedSuccessfully, QT_TRANSLATE_NOOP("UsageWords", "An archive was unzipped")},
        {event::kFailedToUnzip,
         QT_TRANSLATE_NOOP("UsageWords", "An archive could not be unzipped")},
        {event::kStartedTutorial, QT_TRANSLATE_NOOP("UsageWords", "The introduction was shown")},
        {event::kFinishedTutorial, QT_TRANSLATE_NOOP("UsageWords", "The introduction was left")},
        {event::kEvaluatedApp, QT_TRANSLATE_NOOP("UsageWords", "The application was rated")},
        {event::kDeveloperTapped, QT_TRANSLATE_NOOP("UsageWords", "More from us was tapped")},
    }};
    const auto* const known = std::find_if(
        titles.begin(), titles.end(), [&](const auto& title) { return title.first == event; });
    // Those that the engine makes by itself speak for themselves.
    return known != titles.end() ? UsageWords::tr(known->second) : event;
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

QString numberOf(qint64 number) {
    return QLocale().toString(number);
}

QString summaryOf(std::size_t events) {
    if (events == 0) {
        return UsageWords::tr("No event waits to be sent.");
    }
    return UsageWords::tr("%Ln events. They stay on this device until they are sent.",
                          nullptr,
                          static_cast<int>(events));
}

QVariantMap row(const QString& title, const QString& detail, bool isHeading = false) {
    return {{"title", title}, {"detail", detail}, {"isHeading", isHeading}};
}

QVariantMap heading(const char* title) {
    return row(UsageWords::tr(title), {}, true);
}

// "Name: value · name: value".
QString listed(const QJsonObject& values) {
    QStringList parts;
    for (auto each = values.begin(); each != values.end(); ++each) {
        parts.append(each.key() + QStringLiteral(": ") + each->toVariant().toString());
    }
    return parts.join(QStringLiteral(" · "));
}

QVariantList rowsOf(const QJsonObject& state) {
    const QString identifier = state["installation"].toString();
    QVariantList rows{
        heading(QT_TRANSLATE_NOOP("UsageWords", "This installation")),
        identifier.isEmpty()
            ? row(UsageWords::tr("No identifier"),
                  UsageWords::tr("One is made up when an event is kept."))
            : row(UsageWords::tr("Identifier"),
                  UsageWords::tr("%1. Made up; goes with every event.").arg(isolated(identifier)))};
    if (const qint64 sessions = state["session_number"].toInteger(); sessions > 0) {
        const QDateTime last = QDateTime::fromMSecsSinceEpoch(state["last_seen"].toInteger());
        rows.append(
            row(UsageWords::tr("Sessions"),
                UsageWords::tr("%1, the last on %2")
                    .arg(numberOf(sessions), QLocale().toString(last, QLocale::ShortFormat))));
    }
    const std::array<std::pair<const char*, QString>, 3> lists = {{
        {"user_properties", UsageWords::tr("Properties, which go with every event")},
        {"audiences", UsageWords::tr("Groups that this installation belongs to")},
        {"losses", UsageWords::tr("What was lost, by the reason")},
    }};
    for (const auto& [key, title] : lists) {
        if (const QJsonObject values = state[QLatin1String(key)].toObject(); !values.isEmpty()) {
            rows.append(row(title, listed(values)));
        }
    }
    return rows;
}

}  // namespace

UsageData UsageData::of(const std::optional<QByteArray>& lines) {
    if (!lines) {
        return {.summary = UsageWords::tr("What has been kept cannot be read."), .rows = {}};
    }
    std::vector<QJsonObject> events;
    QVariantList installation;
    QVariantList counts;
    for (const QByteArray& line : lines->split('\n')) {
        QJsonObject kept = QJsonDocument::fromJson(line).object();
        const QString table = kept["table"].toString();
        if (table == u"events") {
            events.push_back(std::move(kept));
        } else if (table == u"state") {
            installation = rowsOf(kept);
        } else if (table == u"counts" && kept["day"].toInteger() == AnalyticsStore::kEver) {
            const qint64 total = kept["total"].toInteger();
            counts.append(row(titleOf(kept["name"].toString()),
                              UsageWords::tr("%Ln times", nullptr, static_cast<int>(total))));
        }
    }
    UsageData data{.summary = summaryOf(events.size()), .rows = installation};
    if (!counts.isEmpty()) {
        data.rows << heading(QT_TRANSLATE_NOOP("UsageWords", "How often, which is not sent"))
                  << counts;
    }
    if (!events.empty()) {
        data.rows << heading(QT_TRANSLATE_NOOP("UsageWords", "Events"));
    }
    const std::size_t shown = std::min(events.size(), kMostEvents);
    std::for_each_n(events.rbegin(), shown, [&](const QJsonObject& event) {
        data.rows << row(titleOf(event["name"].toString()), detailOf(event));
    });
    return data;
}

}  // namespace pellumar
