#pragma once

#include <QList>
#include <QUrl>

#include "platform/sharing/UIActivityViewController.h"

namespace pellumar {

// A screen that hands files on.
class CanShareFiles {
  protected:
    ~CanShareFiles() = default;

    // Presents the share sheet on `screen`, which is this. `completion` is called once, when the
    // sheet has gone.
    static void shareFiles(UIViewController& screen,
                           const UIContext& context,
                           const SharingServices& services,
                           const QList<QUrl>& urls,
                           UIActivityViewController::CompletionWithItems completion);
};

}  // namespace pellumar
