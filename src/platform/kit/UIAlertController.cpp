#include "platform/kit/UIAlertController.h"

#include <utility>

#include "platform/TextList.h"
#include "platform/kit/Notice.h"

namespace pellumar {

UIAlertController::UIAlertController(const UIContext& context, QString title, QString message)
    : UIViewController(context), title_(std::move(title)), message_(std::move(message)) {
    setModalTransitionStyle(UIModalTransitionStyle::kCrossDissolve);
}

void UIAlertController::addTextField(const QString& placeholder, TextFieldRule rule) {
    placeholder_ = placeholder;
    rule_ = std::move(rule);
}

std::optional<QString> UIAlertController::textFieldText() const {
    return placeholder_ ? std::optional(text_) : std::nullopt;
}

void UIAlertController::choose(int index) {
    if (index < 0 || index >= actions_.size()) {
        return;
    }
    dismissSelf(true, actions_[index].handler);
}

void UIAlertController::copyReason() const {
    Notice::copy(window(), reason_.text + QStringLiteral("\n\n") + reason_.details);
}

bool UIAlertController::goBack() {
    choose(actions_.size() == 1 ? 0 : cancelIndex());
    return true;
}

QStringList UIAlertController::actionTitles() const {
    return textList(actions_, &UIAlertAction::title);
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
    text_ = text;
    hint_.clear();
    text_.removeIf([this](QChar each) { return rule_.refused.contains(each); });
    if (text_ != text) {
        hint_ = rule_.refusedHint;
    }
    const QByteArray bytes = text_.toUtf8();
    if (bytes.size() > rule_.mostBytes) {
        qsizetype end = rule_.mostBytes;
        // Not in the middle of a character.
        while (end > 0 && (static_cast<unsigned char>(bytes[end]) & 0xC0U) == 0x80U) {
            --end;
        }
        text_ = QString::fromUtf8(bytes.first(end));
        hint_ = rule_.lengthHint;
    }
    // Also if the text is what it was: the field may show more.
    emit textChanged();
}

void UIAlertController::setSecret(const QString& secret) {
    if (secret_ != secret) {
        secret_ = secret;
        emit secretChanged();
    }
}

}  // namespace pellumar
