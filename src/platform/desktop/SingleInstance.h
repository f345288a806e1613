#pragma once

#include <QList>
#include <QObject>
#include <QStringList>
#include <QUrl>
#include <QVariantMap>
#include <chrono>

namespace pellumar {

// Makes one process of many starts: the first owns the application's name on the session bus, and
// the later ones tell it what they were started with. Speaks org.freedesktop.Application, so that
// the desktop can start and call it too. For the main thread.
class SingleInstance : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

  public:
    enum class Role {
        // This process is the application. Where there is no bus, every one is.
        kFirst,
        // Another process is, and has been told.
        kForwarded,
        // Another process is, but does not answer.
        kNoAnswer,
    };

    // Longer than a busy start takes, and short enough for somebody who waits.
    static constexpr std::chrono::milliseconds kPatience{5000};

    // `patience` is how long an owner of the name may take to answer.
    explicit SingleInstance(std::chrono::milliseconds patience = kPatience) : patience_(patience) {}

    // Takes the name, or forwards `urls` to its owner; with none of them the owner's window comes
    // to the front. Which of two that start together is first, the bus decides. If the owner ends
    // instead of answering, this one takes its place.
    [[nodiscard]] Role claim(const QList<QUrl>& urls);

    // For the first process, before it starts: answers the calls that came with the name, and
    // returns what they want opened. They wait for it on a bus that has started this process for
    // them; `isExpected` says that it has, so one is waited for. Later calls are told by the
    // signals.
    [[nodiscard]] QList<QUrl> takeWaiting(bool isExpected);

    // Gives the name back, so that the next start is the first. For a process that is about to end:
    // calls that have come and are not answered yet never are, by which their callers notice.
    static void release();

  public slots:
    // The calls of org.freedesktop.Application, by the names they have on the bus.
    // NOLINTBEGIN(readability-identifier-naming)
    void Activate(const QVariantMap& platformData);
    void Open(const QStringList& uris, const QVariantMap& platformData);
    void ActivateAction(const QString& name,
                        const QVariantList& parameter,
                        const QVariantMap& platformData);
    // NOLINTEND(readability-identifier-naming)

  signals:
    void activated();
    void openRequested(const QList<QUrl>& urls);

  private:
    [[nodiscard]] bool takeName();

    const std::chrono::milliseconds patience_;
    // Somebody has called since the name was taken.
    bool isCalled_ = false;
};

}  // namespace pellumar
