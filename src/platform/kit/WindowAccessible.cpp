#include "platform/kit/WindowAccessible.h"

#include <QGuiApplication>

namespace pellumar {
namespace {

QAccessibleInterface* makeFor(const QString& /*className*/, QObject* object) {
    auto* const window = qobject_cast<UIWindow*>(object);
    return window == nullptr ? nullptr : new WindowAccessible(*window);
}

// The items of this part of the scene that have an interface of their own, without what these hold.
void collect(const QQuickItem& item, QList<QAccessibleInterface*>& found) {
    for (QQuickItem* each : item.childItems()) {
        QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(each);
        if (interface != nullptr) {
            found.append(interface);
        } else {
            collect(*each, found);
        }
    }
}

}  // namespace

void WindowAccessible::install() {
    QAccessible::installFactory(makeFor);
}

QAccessibleInterface* WindowAccessible::parent() const {
    return QAccessible::queryAccessibleInterface(qApp);
}

QList<QAccessibleInterface*> WindowAccessible::children() const {
    QQuickItem* const top = window_.topLayer();
    QList<QAccessibleInterface*> found;
    if (top == nullptr) {
        return found;
    }
    if (QAccessibleInterface* const whole = QAccessible::queryAccessibleInterface(top)) {
        found.append(whole);
    } else {
        collect(*top, found);
    }
    return found;
}

int WindowAccessible::childCount() const {
    return static_cast<int>(children().size());
}

QAccessibleInterface* WindowAccessible::child(int index) const {
    return children().value(index);
}

int WindowAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const QList<QAccessibleInterface*> all = children();
    for (int i = 0; i < all.size(); ++i) {
        if (child != nullptr && all[i]->object() == child->object()) {
            return i;
        }
    }
    return -1;
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
