#pragma once

#include <QObject>
#include <memory>

#include "platform/desktop/ReviewPrompt.h"
#include "platform/kit/UIAlertController.h"
#include "platform/kit/UIWindow.h"

namespace pellumar {

// The question about the rating, as an alert over the root screen. It waits until the window is
// idle.
class WindowReviewPrompt : public QObject, public ReviewPrompt {
    Q_OBJECT

  public:
    // Both must outlive this.
    WindowReviewPrompt(UIWindow& window, const UIContext& context);

    void ask(Answered answered) override;

  private:
    void presentWhenFree();

    UIWindow& window_;
    const UIContext context_;
    // Whose question waits.
    Answered waiting_;
    std::weak_ptr<UIAlertController> shown_;
};

}  // namespace pellumar
