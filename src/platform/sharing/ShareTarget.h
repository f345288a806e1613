#pragma once

#include <QCoreApplication>
#include <QList>
#include <QString>
#include <QUrl>
#include <functional>
#include <optional>
#include <utility>

#include "platform/sharing/ItemSummary.h"

namespace pellumar {

// One way for files to leave the application. For the main thread, on which none of it looks at the
// files.
class ShareTarget {
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

    struct Label {
        // What identifies the kind of sharing, "org.pellumar.activity.copy".
        QString activityType;
        QString title;
        // The name of an icon of the theme.
        QString iconName;
    };

    explicit ShareTarget(Label label) : label_(std::move(label)) {}
    virtual ~ShareTarget() = default;
    ShareTarget(const ShareTarget&) = delete;
    ShareTarget& operator=(const ShareTarget&) = delete;

    [[nodiscard]] const QString& activityType() const { return label_.activityType; }
    [[nodiscard]] const QString& title() const { return label_.title; }
    [[nodiscard]] const QString& iconName() const { return label_.iconName; }
    // Whether this works here, and with these items, of which there is at least one.
    [[nodiscard]] virtual bool canPerform(const ItemSummary& /*summary*/) const { return true; }
    // Whether somebody may still need the files when it is done.
    [[nodiscard]] virtual bool isReadLater() const { return true; }
    // Returns at once; `done` is called exactly once, or not at all if the target has gone before.
    virtual void perform(const QList<QUrl>& urls, const Done& done) = 0;

    // What all of them say to the user is translated in one place.
    [[nodiscard]] static QString text(const char* source) {
        return QCoreApplication::translate("ShareTarget", source);
    }

  private:
    const Label label_;
};

}  // namespace pellumar
