#include "platform/kit/ViewHost.h"

namespace pellumar {

void ViewHost::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    for (QQuickItem* child : childItems()) {
        child->setSize(newGeometry.size());
    }
}

void ViewHost::itemChange(ItemChange change, const ItemChangeData& data) {
    if (change == ItemChildAddedChange) {
        data.item->setSize(size());
    }
    QQuickItem::itemChange(change, data);
}

}  // namespace pellumar
