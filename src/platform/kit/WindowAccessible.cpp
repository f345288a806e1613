#include "platform/kit/WindowAccessible.h"

#include <QGuiApplication>

namespace pellumar {
namespace {

QAccessibleInterface* makeFor(const QString& /*className*/, QObject* object) {
    auto* const window = qobject_cast<UIWindow*>(object);
    return window == nullptr ? nullptr : new WindowAccessible(*window);
}

}  // namespace

void WindowAccessible::install() {
    QAccessible::installFactory(makeFor);
}

QAccessibleInterface* WindowAccessible::parent() const {
    return QAccessible::queryAccessibleInterface(qApp);
}

QAccessibleInterface* WindowAccessible::top() const {
    QQuickItem* const layer = window_.topLayer();
    return layer == nullptr ? nullptr : QAccessible::queryAccessibleInterface(layer);
}

int WindowAccessible::childCount() const {
    return top() == nullptr ? 0 : 1;
}

QAccessibleInterface* WindowAccessible::child(int index) const {
    return index == 0 ? top() : nullptr;
}

int WindowAccessible::indexOfChild(const QAccessibleInterface* child) const {
    return child != nullptr && child->object() == window_.topLayer() ? 0 : -1;
}

QAccessibleInterface* WindowAccessible::focusChild() const {
    QQuickItem* const item = window_.activeFocusItem();
    return item == nullptr ? nullptr : QAccessible::queryAccessibleInterface(item);
}

QString WindowAccessible::text(QAccessible::Text kind) const {
    return kind == QAccessible::Name ? window_.title() : QString();
}

QAccessible::State WindowAccessible::state() const {
    QAccessible::State state;
    state.active = window_.isActive();
    state.focusable = true;
    state.invisible = !window_.isVisible();
    return state;
}

}  // namespace pellumar
