#pragma once

#include <QCoreApplication>
#include <QList>
#include <QString>
#include <QUrl>
#include <functional>
#include <optional>

#include "platform/sharing/ItemSummary.h"

namespace pellumar {

// One way for files to leave the application. For the main thread, on which none of it looks at the
// files.
struct ShareTarget {
    // What all of them say to the user is translated in one place.
    Q_DECLARE_TR_FUNCTIONS(ShareTarget)

  public:
    struct Result {
        // Whether the files were handed on, as far as that can be known.
        bool isCompleted = false;
        // For a person; empty if nothing went wrong.
        QString error = {};
        // What came back in place of the items, if anything did.
        std::optional<QList<QUrl>> returnedItems = {};
        // What is to be said when it is done; empty if the user sees it anyway.
        QString notice = {};
    };
    using Done = std::function<void(const Result& result)>;

    // What identifies the kind of sharing, "org.pellumar.activity.copy".
    QString activityType;
    QString title;
    // The name of an icon of the theme.
    QString iconName;
    // Returns at once; `done` is called exactly once, or not at all if the sheet has gone before.
    std::function<void(const QList<QUrl>& urls, const Done& done)> perform = {};
    // Whether this works here, and with these items, of which there is at least one.
    std::function<bool(const ItemSummary& summary)> canPerform = [](const auto&) { return true; };
    // Whether somebody may still need the files when it is done.
    bool isReadLater = true;
};

}  // namespace pellumar
