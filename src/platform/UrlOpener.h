#pragma once

#include <QUrl>

namespace pellumar {

// Opens addresses outside the application. For the main thread.
class UrlOpener {
  public:
    virtual ~UrlOpener() = default;

    // Returns at once. Nothing is told of an address that nobody opens.
    virtual void open(const QUrl& url) = 0;
};

}  // namespace pellumar
