#pragma once

#include <QStringList>
#include <optional>

namespace pellumar::test {

// This program as another start of the application: with the first of these it claims the name with
// the addresses that follow, prints what became of it, and as the first process prints what it is
// told to open, until it is killed. With the second it takes the name, and ends when it is called.
inline constexpr auto kClaimArgument = "--claim";
inline constexpr auto kEndWhenCalledArgument = "--end-when-called";

// What the child returns, or nothing if these are no arguments of a child.
[[nodiscard]] std::optional<int> runInstanceChild(const QStringList& arguments);

}  // namespace pellumar::test
