#include "platform/kit/FrameAnimator.h"

#include <QVariantAnimation>
#include <utility>

namespace pellumar {

void FrameAnimator::animate(std::chrono::milliseconds duration,
                            const QEasingCurve& easing,
                            Step step,
                            Finished finished) {
    if (isStill_()) {
        step(1);
        step = [](qreal) {};
    }
    auto* animation = new QVariantAnimation(&running_);
    animation->setDuration(static_cast<int>(duration.count()));
    animation->setEasingCurve(easing);
    animation->setStartValue(qreal(0));
    animation->setEndValue(qreal(1));
    QObject::connect(
        animation,
        &QVariantAnimation::valueChanged,
        animation,
        [step = std::move(step)](const QVariant& progress) { step(progress.toReal()); });
    QObject::connect(animation, &QVariantAnimation::finished, animation, std::move(finished));
    animation->start(QAbstractAnimation::DeleteWhenStopped);
}

}  // namespace pellumar
