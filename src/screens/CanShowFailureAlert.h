#pragma once

#include "platform/kit/UIViewController.h"

namespace pellumar {

// A screen whose work may fail. The user sees one alert, whatever the reason.
class CanShowFailureAlert {
  protected:
    ~CanShowFailureAlert() = default;

    // Presents the alert on `screen`, which is this.
    static void showFailureAlert(UIViewController& screen, const UIContext& context);
};

}  // namespace pellumar
