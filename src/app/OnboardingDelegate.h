#pragma once

namespace pellumar {

// Learns that the user has confirmed the onboarding.
class OnboardingDelegate {
  public:
    virtual ~OnboardingDelegate() = default;

    virtual void onboardingDidFinish() = 0;
};

}  // namespace pellumar
