#pragma once

namespace pellumar {

// From this version of the platform on, bars can be styled.
inline constexpr double kBarAppearanceVersion = 15.0;

}  // namespace pellumar
