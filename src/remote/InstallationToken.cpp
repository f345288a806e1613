#include "remote/InstallationToken.h"

namespace pellumar {

void printInstallationToken(InstallationsService& installations, Console& console) {
    installations.authTokenForcingRefresh(
        true,
        [&console](const std::optional<QString>& token,
                   const std::optional<InstallationsError>& error) {
            if (error) {
                console.writeLine(QStringLiteral("Error fetching token: ") +
                                  error->localizedDescription);
            } else if (token) {
                console.writeLine(QStringLiteral("Installation auth token: ") + *token);
            }
        });
}

}  // namespace pellumar
