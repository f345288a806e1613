#pragma once

#include <QLatin1String>

// The variants that experiments usually have.
namespace pellumar::Variants {

inline constexpr QLatin1String kDefault("default");
inline constexpr QLatin1String kVariantA("variant_a");
inline constexpr QLatin1String kVariantB("variant_b");

}  // namespace pellumar::Variants
