#include "platform/kit/UIAlertController.h"

#include <utility>

namespace pellumar {

UIAlertController::UIAlertController(const UIContext& context, QString title, QString message)
    : UIViewController(context), title_(std::move(title)), message_(std::move(message)) {
    setModalPresentationStyle(UIModalPresentationStyle::kOverFullScreen);
    setModalTransitionStyle(UIModalTransitionStyle::kCrossDissolve);
}

std::optional<QString> UIAlertController::textFieldText() const {
    return placeholder_ ? std::optional(text_) : std::nullopt;
}

void UIAlertController::choose(int index) {
    if (isChosen_ || index < 0 || index >= actions_.size()) {
        return;
    }
    isChosen_ = true;
    // The handler may be all that keeps what it captured, and reads the field's text.
    const std::shared_ptr<UIViewController> self = shared_from_this();
    dismiss(true, [self, handler = actions_[index].handler] {
        if (handler) {
            handler();
        }
    });
}

bool UIAlertController::goBack() {
    choose(actions_.size() == 1 ? 0 : cancelIndex());
    return true;
}

QStringList UIAlertController::actionTitles() const {
    QStringList titles;
    for (const UIAlertAction& action : actions_) {
        titles.append(action.title);
    }
    return titles;
}

int UIAlertController::cancelIndex() const {
    for (int i = 0; i < actions_.size(); ++i) {
        if (actions_[i].style == UIAlertActionStyle::kCancel) {
            return i;
        }
    }
    return -1;
}

void UIAlertController::setText(const QString& text) {
    if (text_ != text) {
        text_ = text;
        emit textChanged();
    }
}

}  // namespace pellumar
