#include "platform/look/SecretAccessible.h"

#include <QQuickWindow>

namespace pellumar {
namespace {

// As PasswordField.qml has them.
constexpr const char* kMark = "isSecret";
constexpr const char* kName = "placeholderText";
constexpr const char* kDescription = "description";

QAccessibleInterface* makeFor(const QString& /*className*/, QObject* object) {
    auto* const item = qobject_cast<QQuickItem*>(object);
    return item == nullptr || !item->property(kMark).toBool() ? nullptr
                                                              : new SecretAccessible(*item);
}

}  // namespace

void SecretAccessible::install() {
    QAccessible::installFactory(makeFor);
}

QAccessibleInterface* SecretAccessible::parent() const {
    for (QQuickItem* item = field_.parentItem(); item != nullptr; item = item->parentItem()) {
        if (QAccessibleInterface* const found = QAccessible::queryAccessibleInterface(item)) {
            return found;
        }
    }
    return QAccessible::queryAccessibleInterface(window());
}

QList<QAccessibleInterface*> SecretAccessible::children() const {
    QList<QAccessibleInterface*> found;
    for (QQuickItem* const item : field_.childItems()) {
        if (QAccessibleInterface* const child = QAccessible::queryAccessibleInterface(item)) {
            found.append(child);
        }
    }
    return found;
}

int SecretAccessible::childCount() const {
    return static_cast<int>(children().size());
}

QAccessibleInterface* SecretAccessible::child(int index) const {
    return children().value(index, nullptr);
}

int SecretAccessible::indexOfChild(const QAccessibleInterface* child) const {
    return static_cast<int>(children().indexOf(child));
}

QString SecretAccessible::text(QAccessible::Text kind) const {
    constexpr QChar kBullet(0x2022);
    switch (kind) {
        case QAccessible::Name:
            return field_.property(kName).toString();
        case QAccessible::Description:
            return field_.property(kDescription).toString();
        case QAccessible::Value:
            return {field_.property("length").toInt(), kBullet};
        default:
            return {};
    }
}

QAccessible::State SecretAccessible::state() const {
    QAccessible::State state;
    state.passwordEdit = true;
    state.editable = !field_.property("readOnly").toBool();
    state.readOnly = !state.editable;
    state.focusable = true;
    state.focused = field_.hasActiveFocus();
    state.disabled = !field_.isEnabled();
    state.invisible = !field_.isVisible();
    return state;
}

QRect SecretAccessible::rect() const {
    const QRectF within = field_.mapRectToScene(field_.boundingRect());
    const QWindow* const where = window();
    return where == nullptr ? QRect()
                            : within.toAlignedRect().translated(where->mapToGlobal(QPoint()));
}

QWindow* SecretAccessible::window() const {
    return field_.window();
}

void* SecretAccessible::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : nullptr;
}

void SecretAccessible::doAction(const QString& name) {
    if (name == setFocusAction()) {
        field_.forceActiveFocus();
    }
}

}  // namespace pellumar
