#pragma once

#include <QtGlobal>

namespace pellumar {

// Follows the files of a compression.
class ZipManagerDelegate {
  public:
    virtual ~ZipManagerDelegate() = default;

    // `done` entries have been added so far, out of `total` files that were asked for. A file that
    // fails is not counted, so `done` need not reach `total`. Called from the background queue,
    // never from the main one.
    virtual void zipManagerDidAddFile(qint64 done, qint64 total) = 0;
};

}  // namespace pellumar
