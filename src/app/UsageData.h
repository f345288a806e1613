#pragma once

#include <QByteArray>
#include <QStringList>
#include <optional>

namespace pellumar {

// What is kept of the measurements, in words for a person.
struct UsageData {
    // More rows say nothing more to anybody.
    static constexpr int kMostRows = 1000;

    // JSON Lines, as AnalyticsStore has them; nothing if that could not be read.
    [[nodiscard]] static UsageData of(const std::optional<QByteArray>& lines);

    // How much there is, or why nothing is shown.
    QString summary;
    // Of the events, the newest first: what happened, and when and about what.
    QStringList titles;
    QStringList details;
};

}  // namespace pellumar
