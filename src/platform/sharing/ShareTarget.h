#pragma once

#include <QList>
#include <QString>
#include <QUrl>
#include <functional>

namespace pellumar {

// One way for files to leave the application. For the main thread.
class ShareTarget {
  public:
    struct Result {
        // Whether the files were handed on, as far as that can be known.
        bool isCompleted = false;
        // For a person; empty if nothing went wrong.
        QString error;
    };
    using Done = std::function<void(const Result& result)>;

    virtual ~ShareTarget() = default;

    // What identifies the kind of sharing, "org.pellumar.activity.copy".
    [[nodiscard]] virtual QString activityType() const = 0;
    [[nodiscard]] virtual QString title() const = 0;
    // The name of an icon of the theme.
    [[nodiscard]] virtual QString iconName() const = 0;
    // Whether this works here, and with these files.
    [[nodiscard]] virtual bool canPerform(const QList<QUrl>& urls) const = 0;
    // Returns at once; `done` is called exactly once.
    virtual void perform(const QList<QUrl>& urls, const Done& done) = 0;
};

}  // namespace pellumar
