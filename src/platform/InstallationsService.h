#pragma once

#include <QString>
#include <functional>
#include <optional>

namespace pellumar {

struct InstallationsError {
    QString localizedDescription;
};

// What tells one installation of the application from another, without telling who uses it.
class InstallationsService {
  public:
    using TokenHandler = std::function<void(const std::optional<QString>& token,
                                            const std::optional<InstallationsError>& error)>;

    virtual ~InstallationsService() = default;

    // The token by which the installation shows itself to other services, a new one if it is
    // refreshed by force. The handler is called exactly once, on any thread, with either a token or
    // an error. May be called from any thread.
    virtual void authTokenForcingRefresh(bool forceRefresh, TokenHandler handler) = 0;
};

}  // namespace pellumar
