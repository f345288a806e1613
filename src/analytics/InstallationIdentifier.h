#pragma once

#include <QString>

#include "analytics/StateTable.h"

namespace pellumar {

// What tells this installation from another: random, and made of nothing of the machine or the
// user. It lives and ends with the store. A reset is a new store, so nothing of the old one is ever
// seen beside the new one.
class InstallationIdentifier {
  public:
    // `state` must outlive this.
    explicit InstallationIdentifier(StateTable& state) : state_(state) {}

    // Makes it if there is none.
    void ensure();
    // Empty if there is none.
    [[nodiscard]] QString current();

    // A random UUID, also for sessions and events.
    [[nodiscard]] static QString random();

  private:
    StateTable& state_;
};

}  // namespace pellumar
