#pragma once

#include <QtQml/qqmlregistration.h>
#include <QHash>
#include <QPointer>
#include <QQuickItem>
#include <QString>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

#include "platform/kit/UITableViewCell.h"

namespace pellumar {

class UITableView;

// Tells a table what is in it. The table holds it weakly.
class UITableViewDataSource {
  public:
    virtual ~UITableViewDataSource() = default;

    [[nodiscard]] virtual int numberOfSections(const UITableView& tableView) const = 0;
    [[nodiscard]] virtual int numberOfRows(const UITableView& tableView, int section) const = 0;
    // A cell that shows the row; never null.
    [[nodiscard]] virtual std::shared_ptr<UITableViewCell> cellForRow(UITableView& tableView,
                                                                      IndexPath indexPath) = 0;
};

// A list of rows, of which only those in sight have cells. The layout shows a ListView with as many
// rows as `rowCount`, whose delegates call show() and hide() with a host for a cell.
class UITableView : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(int rowCount READ rowCount NOTIFY rowCountChanged)

  public:
    using CellMaker = std::function<std::shared_ptr<UITableViewCell>()>;

    explicit UITableView(QQuickItem* parent = nullptr) : QQuickItem(parent) {}

    // How cells of this identifier are made.
    void registerCell(const CellMaker& maker, const QString& reuseIdentifier);
    // A cell that has scrolled away, or a new one; null if nothing is registered.
    [[nodiscard]] std::shared_ptr<UITableViewCell> dequeueReusableCell(
        const QString& reuseIdentifier);

    void setDataSource(const std::weak_ptr<UITableViewDataSource>& dataSource);
    [[nodiscard]] int rowCount() const;

    // For the layout: puts the cell of the row into `host`, or takes it out again.
    Q_INVOKABLE void show(int row, QQuickItem* host);
    Q_INVOKABLE void hide(QQuickItem* host);

    // Cells that are shown or wait to be.
    [[nodiscard]] std::size_t cellCount() const { return shown_.size() + waitingCount(); }

  signals:
    void rowCountChanged();

  private:
    [[nodiscard]] std::size_t waitingCount() const;

    std::weak_ptr<UITableViewDataSource> dataSource_;
    QHash<QString, CellMaker> makers_;
    QHash<QString, std::vector<std::shared_ptr<UITableViewCell>>> waiting_;
    std::unordered_map<QQuickItem*, std::shared_ptr<UITableViewCell>> shown_;
};

}  // namespace pellumar
