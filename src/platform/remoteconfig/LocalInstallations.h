#pragma once

#include <mutex>

#include "platform/InstallationsService.h"

namespace pellumar {

// Gives random tokens out of its own: no server knows them, and the next process has another one.
class LocalInstallations : public InstallationsService {
  public:
    // Calls the handler before it returns.
    void authTokenForcingRefresh(bool forceRefresh, TokenHandler handler) override;

  private:
    std::mutex mutex_;
    QString token_;
};

}  // namespace pellumar
