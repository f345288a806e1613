#pragma once

namespace pellumar {

// Makes all layouts and types of the application known. Once, before the first engine.
void registerLayouts();

}  // namespace pellumar
