#pragma once

#include <QQuickItem>

#include "platform/kit/ViewLoader.h"

namespace pellumar {

// A view whose content comes from a layout file of its own.
class InstantiatiableXibProtocol {
  public:
    virtual ~InstantiatiableXibProtocol() = default;

    // The content, null before it is loaded.
    [[nodiscard]] virtual QQuickItem* view() const = 0;
    virtual void setView(OwnedItem view) = 0;

    // The content of the layout that is named after the class. A missing one stops the process.
    [[nodiscard]] virtual OwnedItem loadViewFromNib() {
        return ViewLoader::ofEngineOf(host()).load(host());
    }
    // Puts the content into the host.
    virtual void setUpFromNib() { view()->setParentItem(&host()); }

  protected:
    // The view that holds the content, and gives it its size.
    [[nodiscard]] virtual QQuickItem& host() = 0;
};

}  // namespace pellumar
