#pragma once

#include <QByteArray>

namespace pellumar {

// RFC 1952. Empty if there is not enough memory.
[[nodiscard]] QByteArray gzip(const QByteArray& bytes);

}  // namespace pellumar
