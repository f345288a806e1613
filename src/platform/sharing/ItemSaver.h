#pragma once

#include <QList>
#include <QString>
#include <QUrl>
#include <filesystem>
#include <functional>
#include <tl/expected.hpp>
#include <utility>
#include <vector>

#include "platform/documents/FileCopy.h"
#include "platform/sharing/StagingFolder.h"

namespace pellumar {

// Copies items into a folder of the user's: all of them, or none. They are made whole in a hidden
// folder beside their places, flushed to the device, and only then given their names, so nobody
// ever finds half a file under one. Nothing that stands there is replaced: names are made unique,
// "a (2).txt".
//
// Copies keep times and permissions, but their owner may always write to them: what came read-only
// out of an archive is the user's own now. The permissions that the user takes from new files are
// taken from these as well.
class ItemSaver {
  public:
    // Asked again and again; false stops the saving.
    using IsGoingOn = std::function<bool()>;
    // Where the items are now, in their order.
    using Result = tl::expected<QList<QUrl>, FileCopyError>;

    // `notes` is where the hidden folder is noted, for the case that the process is killed.
    explicit ItemSaver(IsGoingOn isGoingOn,
                       std::filesystem::path notes = StagingFolder::standardNotes())
        : isGoingOn_(std::move(isGoingOn)), notes_(std::move(notes)) {}

    // Into `folder`, or into a new folder in it of the name `newFolder`, if that is not empty.
    // After a failure, or when stopped, all that came of it is gone again. For a thread that may
    // block.
    [[nodiscard]] Result save(const QList<QUrl>& items,
                              const std::filesystem::path& folder,
                              const QString& newFolder = {}) const;

  private:
    // A copy that has not got its place yet, and the name that it is to have there.
    struct Copy {
        std::filesystem::path path;
        std::filesystem::path name;
    };
    using Copies = std::vector<Copy>;

    [[nodiscard]] tl::expected<Copies, FileCopyError> copyAll(
        const QList<QUrl>& items,
        const std::filesystem::path& to) const;
    [[nodiscard]] Result settle(const Copies& copies, const std::filesystem::path& folder) const;

    const IsGoingOn isGoingOn_;
    const std::filesystem::path notes_;
};

}  // namespace pellumar
