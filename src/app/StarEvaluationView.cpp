#include "app/StarEvaluationView.h"

namespace pellumar {

void StarEvaluationView::awakeFromNib() {
    starImageViews_ = view()->findChildren<QQuickItem*>(QStringLiteral("starImageViews"));
}

void StarEvaluationView::starSelected(QObject* sender) {
    if (!starImageViews_) {
        qFatal("The outlet \"starImageViews\" is not connected.");
    }
    const int tag = sender->property("tag").toInt();
    for (int i = 0; i < starImageViews_->size(); ++i) {
        // The layout dissolves one image into the other.
        starImageViews_->at(i)->setProperty("image",
                                            i <= tag ? selectedStarImage_ : deselectedStarImage_);
        if (const auto told = delegate_.lock()) {
            told->starEvaluationViewDidSelectRating(tag + 1);
        }
    }
}

}  // namespace pellumar
