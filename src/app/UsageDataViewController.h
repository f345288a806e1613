#pragma once

#include <functional>

#include "app/UsageData.h"
#include "platform/Question.h"
#include "platform/kit/UIViewController.h"

namespace pellumar {

// Where what is kept comes from: `read`, called in the background, has it as JSON Lines, or nothing
// if it cannot be read. The queues must outlive the screens.
struct UsageDataSource {
    std::function<std::optional<QByteArray>()> read;
    DispatchQueue& background;
    DispatchQueue& mainQueue;
};

// A sheet with what is kept of the measurements, as it is when the sheet comes.
class UsageDataViewController : public pellumar::UIViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made in C++")
    Q_PROPERTY(QString summary READ summary NOTIFY changed)
    Q_PROPERTY(QVariantList rows READ rows NOTIFY changed)
    // There is something to copy.
    Q_PROPERTY(bool canCopy READ canCopy NOTIFY changed)

  public:
    UsageDataViewController(const UIContext& context, UsageDataSource source);

    // Puts all of it on the clipboard, as JSON Lines.
    Q_INVOKABLE void copyTapped();
    Q_INVOKABLE void doneTapped() { dismissSelf(true); }

    [[nodiscard]] QString summary() const { return kept_.inWords.summary; }
    [[nodiscard]] QVariantList rows() const { return kept_.inWords.rows; }
    [[nodiscard]] bool canCopy() const { return !kept_.lines.isEmpty(); }

  signals:
    void changed();

  protected:
    void viewDidLoad() override;

  private:
    struct Kept {
        QByteArray lines;
        UsageData inWords;
    };

    const UsageDataSource source_;
    Kept kept_;
    Question question_;
};

}  // namespace pellumar
