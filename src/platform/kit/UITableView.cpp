#include "platform/kit/UITableView.h"

#include <utility>

namespace pellumar {

void UITableView::registerCell(const CellMaker& maker, const QString& reuseIdentifier) {
    makers_.insert(reuseIdentifier, maker);
}

std::shared_ptr<UITableViewCell> UITableView::dequeueReusableCell(const QString& reuseIdentifier) {
    auto& waiting = waiting_[reuseIdentifier];
    if (!waiting.empty()) {
        std::shared_ptr<UITableViewCell> cell = std::move(waiting.back());
        waiting.pop_back();
        return cell;
    }
    const CellMaker maker = makers_.value(reuseIdentifier);
    return maker ? maker() : nullptr;
}

void UITableView::setDataSource(const std::weak_ptr<UITableViewDataSource>& dataSource) {
    dataSource_ = dataSource;
    emit rowCountChanged();
}

int UITableView::rowCount() const {
    const auto source = dataSource_.lock();
    return source && source->numberOfSections(*this) > 0 ? source->numberOfRows(*this, 0) : 0;
}

void UITableView::show(int row, QQuickItem* host) {
    hide(host);
    const auto source = dataSource_.lock();
    if (!source || row < 0 || row >= rowCount()) {
        return;
    }
    std::shared_ptr<UITableViewCell> cell = source->cellForRow(*this, IndexPath{0, row});
    cell->view().setParentItem(host);
    cell->view().setVisible(true);
    cell->view().setFocus(true);
    shown_[host] = std::move(cell);
}

void UITableView::hide(QQuickItem* host) {
    const auto found = shown_.find(host);
    if (found == shown_.end()) {
        return;
    }
    const std::shared_ptr<UITableViewCell> cell = std::move(found->second);
    shown_.erase(found);
    cell->view().setVisible(false);
    cell->view().setParentItem(nullptr);
    waiting_[cell->reuseIdentifier()].push_back(cell);
}

std::size_t UITableView::waitingCount() const {
    std::size_t count = 0;
    for (const auto& cells : waiting_) {
        count += cells.size();
    }
    return count;
}

}  // namespace pellumar
