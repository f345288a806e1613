#pragma once

#include <QList>
#include <QString>
#include <QUrl>
#include <atomic>
#include <functional>
#include <memory>

#include "platform/documents/UIDocumentPickerViewController.h"
#include "platform/kit/MBProgressHUD.h"
#include "platform/sharing/ItemSaver.h"

namespace pellumar {

// The whole road of "Save to…": lets the user choose a folder, copies there in the background under
// an overlay, and says in a notice what was saved and where, with "Show in files".
//
//     saving_ = ItemSaving::start(*this, services_.documents,
//                                 {.items = urls_, .newFolder = "Holiday"},
//                                 [self = weakly(this)](const ItemSaving::Outcome& outcome) { … });
//
// Whoever holds it lets it go on: when it is let go of, copying stops and what it has left is taken
// back. For the main thread.
class ItemSaving : public UIDocumentPickerDelegate,
                   public std::enable_shared_from_this<ItemSaving> {
  public:
    struct Order {
        QList<QUrl> items;
        // The items go into a new folder of this name, made unique; into the chosen one itself if
        // it is empty.
        QString newFolder;
    };
    struct Outcome {
        // Where the items are now, in their order; empty if they were not saved.
        QList<QUrl> saved;
        // What went wrong, for a person: the caller says it. Empty, with nothing saved, if the user
        // chose no folder.
        QString failure;
    };
    using Completion = std::function<void(const Outcome& outcome)>;

    // Presents the picker on `screen`, whose view the overlay covers; both may go at any time.
    // `completion` is called once, unless this is let go of before, or the picker is taken away
    // with all that is in the window.
    [[nodiscard]] static std::shared_ptr<ItemSaving> start(UIViewController& screen,
                                                           const DocumentServices& documents,
                                                           Order order,
                                                           Completion completion);
    // Whether the folder was chosen, and the overlay is there.
    [[nodiscard]] bool isCopying() const { return hud_ != nullptr; }
    ~ItemSaving() override;
    ItemSaving(const ItemSaving&) = delete;
    ItemSaving& operator=(const ItemSaving&) = delete;

    // The folder that was chosen.
    void documentPickerDidPickDocuments(const QList<QUrl>& urls) override;
    void documentPickerWasCancelled() override;

  private:
    ItemSaving(UIViewController& screen,
               const DocumentServices& documents,
               Order order,
               Completion completion);

    void finish(const std::filesystem::path& folder, const ItemSaver::Result& result);
    void end(const Outcome& outcome);
    void sayThatItIsSaved(const std::filesystem::path& folder, const QList<QUrl>& saved) const;

    const std::weak_ptr<UIViewController> screen_;
    const DocumentServices documents_;
    const Order order_;
    Completion completion_;
    // While it copies.
    std::shared_ptr<MBProgressHUD> hud_;
    std::shared_ptr<void> occupied_;
    const std::shared_ptr<std::atomic<bool>> isGoingOn_;
};

}  // namespace pellumar
