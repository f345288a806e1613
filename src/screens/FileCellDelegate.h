#pragma once

#include "platform/kit/UITableViewCell.h"

namespace pellumar {

// Learns that the user wants to share the file of a row.
class FileCellDelegate {
  public:
    virtual ~FileCellDelegate() = default;

    virtual void shareFile(IndexPath at) = 0;
};

}  // namespace pellumar
