#pragma once

#include <QPointer>
#include <QUrl>
#include <memory>
#include <optional>

#include "platform/Question.h"
#include "platform/documents/UIDocumentPickerViewController.h"
#include "platform/kit/UITableViewCell.h"
#include "screens/FileCellDelegate.h"

namespace pellumar {

// One extracted file: its picture, its name, what there is to say of it, and a button to share it.
// Layout outlets: "titleLabel", "fileImageView".
class FileTableViewCell : public UITableViewCell {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made in C++")
    // The size of a file, how much a folder holds.
    Q_PROPERTY(QString detail READ detail NOTIFY configured)
    Q_PROPERTY(QString iconName READ iconName NOTIFY configured)
    // The address of a small picture of the file; empty if it is none that has one.
    Q_PROPERTY(QString thumbnail READ thumbnail NOTIFY configured)

  public:
    FileTableViewCell(const UIContext& context,
                      QString reuseIdentifier,
                      const DocumentServices& documents)
        : UITableViewCell(context, std::move(reuseIdentifier)), documents_(documents) {}

    // Shows another file. A cell that is used again forgets the one before.
    void configure(const QUrl& url, IndexPath indexPath);
    // Held weakly.
    void setDelegate(const std::weak_ptr<FileCellDelegate>& delegate) { delegate_ = delegate; }
    [[nodiscard]] std::optional<IndexPath> indexPath() const { return indexPath_; }

    Q_INVOKABLE void shareTapped() const { tell(&FileCellDelegate::shareFile); }
    Q_INVOKABLE void openTapped() const { tell(&FileCellDelegate::openFile); }

    [[nodiscard]] QString detail() const { return detail_; }
    [[nodiscard]] QString iconName() const { return iconName_; }
    [[nodiscard]] QString thumbnail() const { return thumbnail_; }

  signals:
    void configured();

  protected:
    void awakeFromNib() override;

  private:
    void tell(void (FileCellDelegate::*what)(IndexPath at)) const;

    const DocumentServices documents_;
    QPointer<QQuickItem> titleLabel_;
    QPointer<QQuickItem> fileImageView_;
    std::optional<IndexPath> indexPath_;
    std::weak_ptr<FileCellDelegate> delegate_;
    // Gone as soon as the cell shows another file.
    Question question_;
    QString detail_;
    QString iconName_;
    QString thumbnail_;
};

}  // namespace pellumar
