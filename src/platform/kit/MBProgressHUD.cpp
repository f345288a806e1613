#include "platform/kit/MBProgressHUD.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace pellumar {
namespace {

constexpr std::chrono::milliseconds kFadeTime{180};
// How many overlays lie over an item. Whether it can be used just now says nothing of that: a popup
// may be in front of all.
constexpr const char* kCovers = "pellumarCovers";

}  // namespace

std::shared_ptr<MBProgressHUD> MBProgressHUD::showAddedTo(const UIContext& context,
                                                          QQuickItem& view,
                                                          bool animated) {
    std::shared_ptr<MBProgressHUD> hud(new MBProgressHUD(context), DeleteLater());
    hud->item_ = context.viewLoader.load(*hud);
    QQuickItem* const item = hud->item_.get();
    hud->cover(view);
    item->setParentItem(&view);
    const auto fill = [&view, item] { item->setSize(view.size()); };
    connect(&view, &QQuickItem::widthChanged, item, fill);
    connect(&view, &QQuickItem::heightChanged, item, fill);
    fill();
    item->setFocus(true);
    if (view.window() != nullptr && view.isEnabled()) {
        item->forceActiveFocus(Qt::OtherFocusReason);
    }
    hud->shown_ = hud;
    connect(&view, &QObject::destroyed, hud.get(), [self = hud.get()] { self->shown_.reset(); });
    hud->transition_.come(animated ? kFadeTime : Transition::kAtOnce);
    return hud;
}

void MBProgressHUD::hide(bool animated) {
    if (isHidden()) {
        return;
    }
    // The view has its controls back at once; what fades is a picture.
    item_->setEnabled(false);
    item_->setFocus(false);
    uncover();
    const std::shared_ptr<MBProgressHUD> self = shared_from_this();
    shown_.reset();
    transition_.leave(animated ? kFadeTime : Transition::kAtOnce, [self] {
        self->item_->setVisible(false);
        self->item_->setParentItem(nullptr);
    });
}

void MBProgressHUD::cover(QQuickItem& view) {
    if (view.isFocusScope()) {
        focusBefore_ = view.scopedFocusItem();
    }
    for (QQuickItem* each : view.childItems()) {
        each->setProperty(kCovers, each->property(kCovers).toInt() + 1);
        each->setEnabled(false);
        covered_.append(each);
    }
}

void MBProgressHUD::uncover() {
    for (const QPointer<QQuickItem>& each : std::exchange(covered_, {})) {
        if (each) {
            const int others = each->property(kCovers).toInt() - 1;
            each->setProperty(kCovers, others);
            each->setEnabled(others == 0);
        }
    }
    if (focusBefore_) {
        focusBefore_->setFocus(true);
    }
}

void MBProgressHUD::setMode(Mode mode) {
    mode_ = mode;
    emit changed();
}

void MBProgressHUD::setLabel(const QString& label) {
    label_ = label;
    emit changed();
}

void MBProgressHUD::setDetailsLabel(const QString& label) {
    detailsLabel_ = label;
    emit changed();
}

void MBProgressHUD::setProgress(float progress) {
    progress_ = std::isnan(progress) ? 0 : std::clamp(static_cast<qreal>(progress), 0.0, 1.0);
    emit progressChanged();
}

}  // namespace pellumar
