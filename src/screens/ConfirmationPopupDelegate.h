#pragma once

#include <QUrl>

namespace pellumar {

// Learns that the user agreed to extract an archive.
class ConfirmationPopupDelegate {
  public:
    virtual ~ConfirmationPopupDelegate() = default;

    virtual void didConfirmUnzip(const QUrl& url) = 0;
};

}  // namespace pellumar
