#pragma once

#include <QList>
#include <QString>
#include <memory>
#include <optional>

#include "app/StarEvaluationViewDelegate.h"
#include "platform/kit/InstantiatiableXib.h"

namespace pellumar {

// A row of stars of which the user taps one. The layout has as many as the scale goes; its outlets
// are the stars, "starImageViews", in the order of the rating. What is tapped tells its position,
// from 0, as its property "tag".
class StarEvaluationView : public pellumar::InstantiatiableXib {
    Q_OBJECT
    QML_ELEMENT

  public:
    // Held weakly.
    void setDelegate(const std::weak_ptr<StarEvaluationViewDelegate>& delegate) {
        delegate_ = delegate;
    }

    // Selects the stars up to the one of the tapped control, and tells the delegate.
    Q_INVOKABLE void starSelected(QObject* sender);

  protected:
    void awakeFromNib() override;

  private:
    std::optional<QList<QQuickItem*>> starImageViews_;
    const QString deselectedStarImage_ = QStringLiteral("starDeselected");
    const QString selectedStarImage_ = QStringLiteral("starSelected");
    std::weak_ptr<StarEvaluationViewDelegate> delegate_;
};

}  // namespace pellumar
