#include "settings/UserSettings.h"

namespace pellumar {

UserSettings::UserSettings(UserDefaults& userDefaults) : userDefaults_(userDefaults) {
    userDefaults_.registerDefaults({{sendUsageDataKey_, true}});
}

UserSettings& UserSettings::shared() {
    static UserDefaults standard(UserDefaults::standardFile());
    static UserSettings settings(standard);
    return settings;
}

}  // namespace pellumar
