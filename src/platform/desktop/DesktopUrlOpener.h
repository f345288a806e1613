#pragma once

#include "platform/UrlOpener.h"

namespace pellumar {

// Opens addresses in what the desktop has for them.
class DesktopUrlOpener : public UrlOpener {
  public:
    void open(const QUrl& url) override;
};

}  // namespace pellumar
