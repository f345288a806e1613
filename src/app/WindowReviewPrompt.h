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
    // The window must outlive this.
    explicit WindowReviewPrompt(UIWindow& window);

    void ask(Answered answered) override;

  private:
    void presentWhenFree();

    UIWindow& window_;
    // Whose question waits.
    Answered waiting_;
    std::weak_ptr<UIAlertController> shown_;
};

}  // namespace pellumar
