#pragma once

#include <QStringList>

namespace pellumar {

// Makes all layouts and types of the application known. Once, before the first engine.
void registerLayouts();

// The modules that have the layouts of classes.
[[nodiscard]] QStringList layoutModules();

}  // namespace pellumar
