#pragma once

#include "platform/Console.h"

namespace pellumar {

// Where diagnostics are not wanted.
class SilentConsole : public Console {
  public:
    void writeLine(const QString& /*line*/) override {}
};

}  // namespace pellumar
