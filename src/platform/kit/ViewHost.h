#pragma once

#include <QtQml/qqmlregistration.h>
#include <QQuickItem>

namespace pellumar {

// A place in a layout for whole views: every child that is put into it gets its size. Where a child
// stands, and which of several has the keyboard while the place has it, is their owner's matter.
class ViewHost : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT

  public:
    explicit ViewHost(QQuickItem* parent = nullptr) : QQuickItem(parent) {
        setFlag(ItemIsFocusScope);
    }

  protected:
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;
};

}  // namespace pellumar
