#include "platform/desktop/DesktopUrlOpener.h"

#include <QDesktopServices>

namespace pellumar {

void DesktopUrlOpener::open(const QUrl& url) {
    QDesktopServices::openUrl(url);
}

}  // namespace pellumar
