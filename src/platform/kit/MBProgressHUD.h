#pragma once

#include <QtQml/qqmlregistration.h>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <memory>

#include "platform/kit/UIViewController.h"

namespace pellumar {

// An overlay that covers one screen's view, and nothing else, while something takes its time. What
// it covers is disabled, whatever it was, and has the keyboard back afterwards. For the main
// thread.
class MBProgressHUD : public QObject, public std::enable_shared_from_this<MBProgressHUD> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made in C++")
    Q_PROPERTY(bool isDeterminate READ isDeterminate NOTIFY changed)
    Q_PROPERTY(QString label READ label NOTIFY changed)
    Q_PROPERTY(QString detailsLabel READ detailsLabel NOTIFY changed)
    // From 0 to 1. What is no number, or outside, is taken for the nearest end.
    Q_PROPERTY(qreal progress READ progress NOTIFY progressChanged)
    // How far the overlay has come into view.
    Q_PROPERTY(qreal presence READ presence NOTIFY presenceChanged)

  public:
    enum class Mode { kIndeterminate, kAnnularDeterminate };

    // Lays a new overlay over the view, and over those that lie there already. It stays, also if
    // nobody holds it, until it is hidden or the view goes.
    [[nodiscard]] static std::shared_ptr<MBProgressHUD> showAddedTo(const UIContext& context,
                                                                    QQuickItem& view,
                                                                    bool animated);
    // Takes the overlay away for good.
    void hide(bool animated);
    [[nodiscard]] bool isHidden() const { return !transition_.canLeave(); }

    void setMode(Mode mode);
    [[nodiscard]] Mode mode() const { return mode_; }
    void setLabel(const QString& label);
    [[nodiscard]] QString label() const { return label_; }
    void setDetailsLabel(const QString& label);
    [[nodiscard]] QString detailsLabel() const { return detailsLabel_; }
    void setProgress(float progress);
    [[nodiscard]] qreal progress() const { return progress_; }

    [[nodiscard]] bool isDeterminate() const { return mode_ == Mode::kAnnularDeterminate; }
    [[nodiscard]] qreal presence() const { return transition_.presence(); }

  signals:
    void changed();
    void progressChanged();
    void presenceChanged();

  private:
    explicit MBProgressHUD(const UIContext& context)
        : transition_(context.animator, [this] { emit presenceChanged(); }) {}

    void cover(QQuickItem& view);
    void uncover();

    Transition transition_;
    OwnedItem item_;
    // Itself, while it is to be seen.
    std::shared_ptr<MBProgressHUD> shown_;
    // What it has disabled, and what of that had the keyboard.
    QList<QPointer<QQuickItem>> covered_;
    QPointer<QQuickItem> focusBefore_;
    Mode mode_ = Mode::kIndeterminate;
    QString label_;
    QString detailsLabel_;
    qreal progress_ = 0;
};

}  // namespace pellumar
