#pragma once

#include <QList>
#include <QString>
#include <QUrl>

namespace pellumar {

// What a share sheet has to know of its items before it offers anything.
struct ItemSummary {
    // Those that are there, in their order: files and folders of this machine.
    QList<QUrl> items;
    // How many others were given.
    qsizetype missing = 0;
    qsizetype folders = 0;
    // Of the files, without what is in folders.
    qint64 bytes = 0;
    // Of the first that is there, a name of the theme.
    QString iconName;

    // Looks at each item, which takes as long as their file systems do.
    [[nodiscard]] static ItemSummary of(const QList<QUrl>& items);
};

}  // namespace pellumar
