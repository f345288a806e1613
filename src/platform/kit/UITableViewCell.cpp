#include "platform/kit/UITableViewCell.h"

namespace pellumar {

QQuickItem& UITableViewCell::view() {
    if (!view_) {
        view_ = context_.viewLoader.load(*this);
        awakeFromNib();
    }
    return *view_;
}

}  // namespace pellumar
