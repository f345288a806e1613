#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "platform/kit/UIViewController.h"

namespace pellumar {

// A row's position in a table.
struct IndexPath {
    int section = 0;
    int row = 0;

    friend bool operator==(const IndexPath&, const IndexPath&) = default;
};

// One row of a table as it is seen; used again for another row when it has scrolled away. Its view
// is loaded with it, from the layout that is named after its class.
class UITableViewCell : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made in C++")

  public:
    explicit UITableViewCell(const UIContext& context, QString reuseIdentifier = {})
        : context_(context), reuseIdentifier_(std::move(reuseIdentifier)) {}

    [[nodiscard]] QQuickItem& view();
    [[nodiscard]] const QString& reuseIdentifier() const { return reuseIdentifier_; }

  protected:
    // Called once, when the view has been loaded.
    virtual void awakeFromNib() {}

  private:
    const UIContext context_;
    const QString reuseIdentifier_;
    OwnedItem view_;
};

}  // namespace pellumar
