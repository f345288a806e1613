#include "screens/RelevantActionCount.h"

#include <limits>

namespace pellumar {
namespace {

constexpr qint64 kLaunchToAskIn = 2;

}  // namespace

bool RelevantActionCount::checkRelevantActionCount(const QString& key) {
    if (relevantActionTriggered_) {
        return false;
    }
    if (!relevantActionCounted_) {
        const qint64 count = userDefaults_.integerForKey(key);
        if (count == std::numeric_limits<qint64>::max()) {
            qFatal("The count of launches overflows.");
        }
        userDefaults_.setInteger(count + 1, key);
        relevantActionCounted_ = true;
    }
    relevantActionTriggered_ = userDefaults_.integerForKey(key) == kLaunchToAskIn;
    return relevantActionTriggered_;
}

}  // namespace pellumar
