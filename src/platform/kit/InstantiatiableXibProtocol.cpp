#include "platform/kit/InstantiatiableXibProtocol.h"

#include "platform/kit/QmlViewLoader.h"

namespace pellumar {

OwnedItem InstantiatiableXibProtocol::loadViewFromNib() {
    return QmlViewLoader::ofEngineOf(host()).load(host());
}

void InstantiatiableXibProtocol::setUpFromNib() {
    view()->setParentItem(&host());
}

}  // namespace pellumar
