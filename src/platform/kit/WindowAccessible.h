#pragma once

#include <QAccessibleObject>

#include "platform/kit/UIWindow.h"

namespace pellumar {

// The window for screen readers: of its layers, they find the topmost and nothing of what it
// covers, as those do who use the pointer or the keyboard; and after it the notice, if there is
// one. The root of every layout that can be a layer has an accessible role.
class WindowAccessible : public QAccessibleObject {
  public:
    // Makes windows answer with it. Once, before the first window.
    static void install();

    explicit WindowAccessible(UIWindow& window) : QAccessibleObject(&window), window_(window) {}

    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Window; }
    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] QRect rect() const override { return window_.geometry(); }
    [[nodiscard]] QWindow* window() const override { return &window_; }

  private:
    // The topmost layer and the notice, as far as they are there.
    [[nodiscard]] QList<QQuickItem*> items() const;

    UIWindow& window_;
};

}  // namespace pellumar
