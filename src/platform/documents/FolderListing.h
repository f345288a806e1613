#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "platform/FolderQueue.h"

namespace pellumar {

// What a picker shows of a folder.
struct FolderListing {
    struct Row {
        std::string name;
        QString shownName;
        // Of files only: to look at a folder may hang, if another file system begins there.
        QDateTime changed;
        std::uint64_t size = 0;
        bool isFolder = false;
    };

    // Folders first, each kind in natural order.
    std::vector<Row> rows;
    // What would be shown if it was not hidden, and files that cannot be picked.
    int hiddenCount = 0;
    int otherCount = 0;
    bool isUnreadable = false;
};

struct FolderQuestion {
    std::filesystem::path folder;
    // As a document picker takes them.
    QStringList types;
    bool showsHidden = false;
};

// Reads a folder at its place of the queue, and looks at its links where they lead, as there nobody
// may answer. `answer` is called with what is known before the links, if there are any, with what
// becomes known of them, and with everything at the end, each time with all rows of the time before
// in their order; on any thread, but once at a time. Gives up, without an answer, once `isWanted`
// is false. The queue must outlive it.
void readFolder(const FolderQuestion& question,
                FolderQueue& folders,
                std::function<bool()> isWanted,
                std::function<void(FolderListing listing, bool isComplete)> answer);

}  // namespace pellumar
