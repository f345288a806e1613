#pragma once

#include "platform/kit/UITableViewCell.h"

namespace pellumar {

// Learns what the user wants to do with the file of a row.
class FileCellDelegate {
  public:
    virtual ~FileCellDelegate() = default;

    virtual void shareFile(IndexPath at) = 0;
    virtual void openFile(IndexPath at) = 0;
};

}  // namespace pellumar
