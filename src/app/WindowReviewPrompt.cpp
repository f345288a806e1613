#include "app/WindowReviewPrompt.h"

#include <utility>

namespace pellumar {

WindowReviewPrompt::WindowReviewPrompt(UIWindow& window) : window_(window) {
    connect(&window,
            &UIWindow::screensChanged,
            this,
            &WindowReviewPrompt::presentWhenFree,
            Qt::QueuedConnection);
}

void WindowReviewPrompt::ask(Answered answered) {
    if (shown_.expired()) {
        waiting_ = std::move(answered);
        // Whoever asks may be about to present something more important.
        QMetaObject::invokeMethod(this, &WindowReviewPrompt::presentWhenFree, Qt::QueuedConnection);
    }
}

void WindowReviewPrompt::presentWhenFree() {
    if (!waiting_ || !window_.isIdle()) {
        return;
    }
    const auto alert = makeController<UIAlertController>(
        window_.context(),
        tr("Do you like Pellumar Zip?"),
        tr("A rating in the software centre helps others find it."));
    const Answered answered = std::exchange(waiting_, nullptr);
    alert->addAction({.title = tr("Rate"), .handler = [answered] { answered(true); }});
    alert->addAction({.title = tr("Not now"),
                      .style = UIAlertActionStyle::kCancel,
                      .handler = [answered] { answered(false); }});
    shown_ = alert;
    window_.rootViewController()->present(alert, true);
}

}  // namespace pellumar
