#pragma once

#include <QStringList>
#include <QUrl>

namespace pellumar {

// What the system knows of a document by its name. Reads no content, so it never waits.
class UIDocumentInteractionController {
  public:
    explicit UIDocumentInteractionController(QUrl url) : url_(std::move(url)) {}

    // Names of the theme's icons for this document, the plainest first and the best last. Never
    // empty.
    [[nodiscard]] QStringList icons() const;

  private:
    QUrl url_;
};

}  // namespace pellumar
