#pragma once

#include <QtQml/qqmlregistration.h>
#include <QQuickItem>

namespace pellumar {

// A place in a layout for whole views: every child that is put into it gets its size, and the
// keyboard whenever the place has it. Where a child stands is its owner's matter, so that it can be
// moved while it comes or goes.
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
