#pragma once

#include <QByteArray>
#include <QString>
#include <QVariantList>
#include <optional>

namespace pellumar {

// What is kept of the measurements, in words for a person.
struct UsageData {
    // More say nothing more to anybody.
    static constexpr std::size_t kMostEvents = 1000;

    // JSON Lines, as AnalyticsStore has them; nothing if that could not be read.
    [[nodiscard]] static UsageData of(const std::optional<QByteArray>& lines);

    // What there is to be sent, or why nothing is shown.
    QString summary;
    // Objects with the texts "title" and "detail", and the truth value "isHeading": what is known
    // of the installation, how often what has happened, and the events, the newest first.
    QVariantList rows;
};

}  // namespace pellumar
