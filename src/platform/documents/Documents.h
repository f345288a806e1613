#pragma once

namespace pellumar {

// Makes the layouts and types of QML module Pellumar.Documents known. Once, before the first
// engine.
void registerDocuments();

}  // namespace pellumar
