#include "platform/kit/WindowAccessible.h"

#include <QGuiApplication>

#include "platform/kit/Notice.h"

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

QList<QQuickItem*> WindowAccessible::items() const {
    QList<QQuickItem*> items;
    if (QQuickItem* const layer = window_.topLayer()) {
        items.append(layer);
    }
    if (const Notice* const notice = Notice::shownIn(window_)) {
        items.append(notice->item());
    }
    return items;
}

int WindowAccessible::childCount() const {
    return static_cast<int>(items().size());
}

QAccessibleInterface* WindowAccessible::child(int index) const {
    QQuickItem* const item = items().value(index, nullptr);
    return item == nullptr ? nullptr : QAccessible::queryAccessibleInterface(item);
}

int WindowAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const QList<QQuickItem*> all = items();
    for (int i = 0; i < all.size(); ++i) {
        if (child != nullptr && child->object() == all[i]) {
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
