#pragma once

#include <QQuickItem>
#include <QStringList>

namespace pellumar::gallery {

// What a reader of `view` and of all in it would miss, a line each: texts that are cut off, do not
// fit into their place, break within a word, or lie over each other. `mayBeCut` are texts that may
// be cut off, such as names of files; what is found to be cut off is added to `cut`.
[[nodiscard]] QStringList illegible(const QQuickItem& view,
                                    const QStringList& mayBeCut,
                                    QStringList& cut);

}  // namespace pellumar::gallery
