#pragma once

#include <QQuickWindow>
#include <memory>

#include "platform/kit/UIViewController.h"
#include "platform/kit/ViewHost.h"

namespace pellumar {

// The application's window: shows one root screen, and above it what is presented. For the main
// thread.
class UIWindow : public QQuickWindow {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(UIWindow)

  public:
    explicit UIWindow(const UIContext& context);
    ~UIWindow() override;

    // What all that it shows stands on.
    [[nodiscard]] const UIContext& context() const { return context_; }

    // Replaces the root screen at once; null leaves the window empty. What the old one presented
    // goes with it.
    void setRootViewController(const std::shared_ptr<UIViewController>& root);
    [[nodiscard]] std::shared_ptr<UIViewController> rootViewController() const { return root_; }

    // Shows the window in front and gives it the keyboard; one that fills the screen goes on to do
    // so. The root screen comes into view.
    void makeKeyAndVisible();

    // The area that screens have, as the screen of a phone.
    [[nodiscard]] QSizeF bounds() const { return size(); }

    // The innermost presented screen, or the root.
    [[nodiscard]] std::shared_ptr<UIViewController> topViewController() const;

    // For the screens: puts a presented view above all others, which lose the pointer and the
    // keyboard until it is taken away.
    void addLayer(QQuickItem& view);
    void removeLayer(QQuickItem& view);
    // For the screens: gives pointer and keyboard to the topmost, once it has come and until it
    // leaves.
    void layersChanged();
    // The view of the topmost screen; null if there is none.
    [[nodiscard]] QQuickItem* topLayer() const;

    // For a screen at work that will present what comes of it: the window is occupied while what
    // this returns lives, as it is while anything is presented over the root screen.
    [[nodiscard]] std::shared_ptr<void> occupy();
    [[nodiscard]] bool isOccupied() const;
    // Whether what comes from elsewhere may be presented: the root screen is there, nothing is
    // presented over it or moves, and no screen is at work.
    [[nodiscard]] bool isIdle() const;

  signals:
    // A screen was presented, has come, leaves or has gone, or is at work no more.
    void screensChanged();

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void showRoot();
    // Whoever came with keys sees what has the keyboard.
    void showKeyboard() const;
    // A press while screens come and go, or the second one of a double click whose first has
    // changed the screen, was meant for what is no more.
    [[nodiscard]] bool refusesPress(const QPointerEvent& press);
    // So was the second press of a key that acts, if the first has changed the screen.
    [[nodiscard]] bool refusesKey(const QKeyEvent& press);

    const UIContext context_;
    ViewHost host_;
    std::shared_ptr<UIViewController> root_;
    bool isShown_ = false;
    int screensAtWork_ = 0;
    // When and where the last press was, and whether screens have changed since.
    struct {
        quint64 time = 0;
        QPointF place;
        bool isOutdated = false;
        bool isRefused = false;
    } lastPress_;
    struct {
        quint64 time = 0;
        int key = 0;
        bool isOutdated = false;
    } lastKey_;
};

}  // namespace pellumar
