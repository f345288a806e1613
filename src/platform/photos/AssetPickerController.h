#pragma once

#include <QStringList>
#include <atomic>
#include <memory>
#include <set>
#include <vector>

#include "platform/kit/UIViewController.h"
#include "platform/photos/PhotoGridModel.h"
#include "platform/photos/PhotoServices.h"

namespace pellumar {

// A grid of the library's assets, of which the user selects some. What becomes of these is told by
// the pickers that derive from this.
class AssetPickerController : public pellumar::UIViewController {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(AssetPickerController)
    QML_ELEMENT
    QML_UNCREATABLE("Made in C++")
    Q_PROPERTY(QAbstractItemModel* model READ model CONSTANT)
    Q_PROPERTY(QStringList albumNames READ albumNames NOTIFY loaded)
    Q_PROPERTY(int album READ album NOTIFY albumChanged)
    Q_PROPERTY(bool isLoading READ isLoading NOTIFY loaded)
    Q_PROPERTY(int selectedCount READ selectedCount NOTIFY selectionChanged)
    Q_PROPERTY(bool isFull READ isFull NOTIFY selectionChanged)
    // How many are selected, and how many may be; empty while none is.
    Q_PROPERTY(QString counter READ counter NOTIFY selectionChanged)

  public:
    ~AssetPickerController() override;

    Q_INVOKABLE void albumTapped(int album);
    Q_INVOKABLE void assetTapped(int row);
    Q_INVOKABLE void confirmTapped();
    Q_INVOKABLE void cancelTapped();

    [[nodiscard]] PhotoGridModel* model() { return &model_; }
    [[nodiscard]] QStringList albumNames() const { return model_.albumNames(); }
    [[nodiscard]] int album() const { return model_.album(); }
    [[nodiscard]] bool isLoading() const { return isLoading_; }
    [[nodiscard]] int selectedCount() const { return model_.selectedCount(); }
    [[nodiscard]] bool isFull() const { return model_.isFull(); }
    [[nodiscard]] QString counter() const;

    bool goBack() override;

  signals:
    void loaded();
    void albumChanged();
    void selectionChanged();

  protected:
    // Offers assets of these types, of which at most `limit` can be selected.
    AssetPickerController(const UIContext& context,
                          const PhotoServices& services,
                          std::set<PHAssetMediaType> mediaTypes,
                          int limit);

    void viewDidLoad() override;

    // The user is done. None are selected if the pick is cancelled. Once.
    virtual void finish(const std::vector<PHAsset>& assets) = 0;

  private:
    void end(const std::vector<PHAsset>& assets);

    const PhotoServices services_;
    const std::set<PHAssetMediaType> mediaTypes_;
    PhotoGridModel model_;
    // Tells the search that nobody waits for it any more.
    const std::shared_ptr<std::atomic<bool>> isGone_ = std::make_shared<std::atomic<bool>>(false);
    bool isLoading_ = true;
    bool isFinished_ = false;
};

}  // namespace pellumar
