#pragma once

#include <QStringList>
#include <QUrl>

namespace pellumar {

// What the system knows of a document by its name.
class UIDocumentInteractionController {
  public:
    explicit UIDocumentInteractionController(QUrl url) : url_(std::move(url)) {}

    // Names of the theme's icons for this document, the plainest first and the best last. Never
    // empty.
    [[nodiscard]] QStringList icons() const;
    // The same for a file of this name, without a look at it.
    [[nodiscard]] static QStringList fileIcons(const QString& name);

  private:
    QUrl url_;
};

}  // namespace pellumar
