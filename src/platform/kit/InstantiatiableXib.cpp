#include "platform/kit/InstantiatiableXib.h"

namespace pellumar {

void InstantiatiableXib::componentComplete() {
    ViewHost::componentComplete();
    setView(loadViewFromNib());
    setUpFromNib();
    awakeFromNib();
}

}  // namespace pellumar
