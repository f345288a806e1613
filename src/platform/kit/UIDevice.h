#pragma once

namespace pellumar {

// What the program runs on. Values that a test may choose.
struct UIDevice {
    // The version of the platform whose habits the program follows.
    double systemVersion = 17.0;
};

}  // namespace pellumar
