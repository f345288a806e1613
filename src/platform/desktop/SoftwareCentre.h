#pragma once

#include <QUrl>

namespace pellumar {

// The application with which this desktop's user finds and judges others.
class SoftwareCentre {
  public:
    SoftwareCentre() = delete;

    // Whether some application of this desktop opens the addresses of such pages.
    [[nodiscard]] static bool isInstalled();

    // The page of an application, by its component's identifier. That stands where a URL keeps its
    // case, which it does not for a host.
    [[nodiscard]] static QUrl page(const QString& component);
};

}  // namespace pellumar
