#pragma once

#include <QString>

#include "platform/UserDefaults.h"

namespace pellumar {

// Counts the launches in which the home screen had time to ask, once each.
class RelevantActionCount {
  public:
    explicit RelevantActionCount(UserDefaults& userDefaults) : userDefaults_(userDefaults) {}

    // True once, in the launch that brings the number under `key` to two: not more, so the rule
    // never fires again. The first call of the process adds to the number.
    [[nodiscard]] bool checkRelevantActionCount(const QString& key);

  private:
    UserDefaults& userDefaults_;
    // Of this process, as are the counter's owner and so this.
    bool relevantActionCounted_ = false;
    bool relevantActionTriggered_ = false;
};

}  // namespace pellumar
