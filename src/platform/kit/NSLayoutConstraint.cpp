#include "platform/kit/NSLayoutConstraint.h"

namespace pellumar {

void NSLayoutConstraint::setConstant(qreal constant) {
    if (constant_ != constant) {
        constant_ = constant;
        emit constantChanged();
    }
}

}  // namespace pellumar
