#pragma once

#include <QAccessibleObject>
#include <QQuickItem>

namespace pellumar {

// A PasswordField for screen readers. The toolkit's own interface hands out what was typed, over
// the bus to anyone, however the field draws it; and once it is told of a password, it gives no
// name. This tells how long the text is, no more.
class SecretAccessible : public QAccessibleObject, public QAccessibleActionInterface {
  public:
    // Makes fields answer with it. Once, before the first window.
    static void install();

    explicit SecretAccessible(QQuickItem& field) : QAccessibleObject(&field), field_(field) {}

    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::EditableText; }
    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QWindow* window() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    [[nodiscard]] QStringList actionNames() const override { return {setFocusAction()}; }
    void doAction(const QString& name) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*name*/) const override {
        return {};
    }

  private:
    [[nodiscard]] QList<QAccessibleInterface*> children() const;

    QQuickItem& field_;
};

}  // namespace pellumar
