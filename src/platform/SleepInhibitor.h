#pragma once

#include <QString>
#include <memory>

namespace pellumar {

// Keeps the machine awake during long work. For the main thread.
class SleepInhibitor {
  public:
    virtual ~SleepInhibitor() = default;

    // The machine does not fall asleep by itself until what this returns is released. Returns at
    // once; where the system knows no such wish, nothing happens. `reason` is for the user.
    [[nodiscard]] virtual std::shared_ptr<void> keepAwake(const QString& reason) = 0;
};

}  // namespace pellumar
