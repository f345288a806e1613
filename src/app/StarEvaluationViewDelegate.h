#pragma once

namespace pellumar {

class StarEvaluationViewDelegate {
  public:
    virtual ~StarEvaluationViewDelegate() = default;

    // `rating` is how many stars were given, from 1. Called once for each star there is.
    virtual void starEvaluationViewDidSelectRating(int rating) = 0;
};

}  // namespace pellumar
