#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

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

// Reads a folder. `answer` is called with what is known before links are looked at, if there are
// any, as those may lead to where nobody answers, and with everything at the end. Gives up, without
// an answer, once `isWanted` is false. For a thread that may block, perhaps for ever.
void readFolder(const FolderQuestion& question,
                const std::function<bool()>& isWanted,
                const std::function<void(FolderListing listing, bool isComplete)>& answer);

}  // namespace pellumar
