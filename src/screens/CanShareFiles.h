#pragma once

#include <QList>
#include <QUrl>

#include "screens/ScreenAbility.h"

namespace pellumar {

// A screen that hands files on.
class CanShareFiles : public virtual ScreenAbility {
  protected:
    // Presents the share sheet. `completion` is called once, when the sheet has gone, if the screen
    // has not.
    void shareFiles(const QList<QUrl>& urls,
                    const UIActivityViewController::CompletionWithItems& completion);
};

}  // namespace pellumar
