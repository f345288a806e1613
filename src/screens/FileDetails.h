#pragma once

#include <QString>
#include <QUrl>

namespace pellumar {

// What there is to say of an extracted file or folder: "1.2 MB", "3 items"; nothing of what is
// gone. Counting a large folder takes its time.
[[nodiscard]] QString fileDetails(const QUrl& url);

}  // namespace pellumar
