#pragma once

#include <QPointer>
#include <memory>

#include "engine/AppFileOpener.h"
#include "platform/kit/MBProgressHUD.h"
#include "platform/kit/NSLayoutConstraint.h"
#include "platform/kit/StoryboardInstantiable.h"
#include "screens/CanAskFeedback.h"
#include "screens/CanShareFiles.h"
#include "screens/CanShowFailureAlert.h"
#include "screens/CanShowFilePicker.h"
#include "screens/ConfirmationPopupDelegate.h"
#include "screens/RelevantActionCount.h"
#include "screens/ScreenServices.h"

namespace pellumar {

// The home screen: extracts an archive that the user picks or another application hands over, and
// leads to the composer. Layout outlets: "topConstraint", "secondaryTopConstraint".
class ViewController : public UIViewController,
                       public StoryboardInstantiable,
                       public ZipManagerDelegate,
                       public AppFileOpenerDelegate,
                       public ConfirmationPopupDelegate,
                       public CanShowFilePicker,
                       public CanShowFailureAlert,
                       public CanShareFiles,
                       public CanAskFeedback {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made in C++")

  public:
    // `launches` is the one of the process; both must outlive this.
    ViewController(const ScreenServices& services, RelevantActionCount& launches);

    Q_INVOKABLE void unzipTapped();
    Q_INVOKABLE void zipTapped();

    [[nodiscard]] OperationType currentOperation() const override { return currentOperation_; }
    [[nodiscard]] std::shared_ptr<MBProgressHUD> hud() const { return hud_; }

    void documentPickerDidPickDocuments(const QList<QUrl>& urls) override;
    void zipManagerDidAddFile(qint64 done, qint64 total) override;
    void appFileOpenerDidReceive(const QUrl& url) override;
    void didConfirmUnzip(const QUrl& url) override;

  protected:
    void viewDidLoad() override;
    void viewWillAppear(bool animated) override;
    void viewDidAppear(bool animated) override;

  private:
    void askForRating();
    void compress(const QList<QUrl>& urls);
    void extract(const QUrl& url);
    void showResults(const std::optional<QList<QUrl>>& urls);

    const ScreenServices services_;
    RelevantActionCount& launches_;
    QPointer<NSLayoutConstraint> topConstraint_;
    QPointer<NSLayoutConstraint> secondaryTopConstraint_;
    std::shared_ptr<ZipManager> zipManager_;
    std::shared_ptr<MBProgressHUD> hud_;
    OperationType currentOperation_ = OperationType::kZip;
};

}  // namespace pellumar
