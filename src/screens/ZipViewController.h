#pragma once

#include <memory>

#include "platform/kit/MBProgressHUD.h"
#include "screens/CanAskFeedback.h"
#include "screens/CanShareFiles.h"
#include "screens/CanShowFailureAlert.h"
#include "screens/CanShowFilePicker.h"
#include "screens/ScreenServices.h"

namespace pellumar {

// The composer: picks files, asks for a title, and shares the archive that is made of them.
class ZipViewController : public UIViewController,
                          public ZipManagerDelegate,
                          public CanShowFilePicker,
                          public CanShowFailureAlert,
                          public CanShareFiles,
                          public CanAskFeedback {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made in C++")

  public:
    explicit ZipViewController(const ScreenServices& services);

    Q_INVOKABLE void fromFilesTapped();

    [[nodiscard]] OperationType currentOperation() const override { return OperationType::kZip; }
    [[nodiscard]] std::shared_ptr<MBProgressHUD> hud() const { return hud_; }

    // Asks for the title, and makes the archive of these files.
    void askTitleForFiles(const QList<QUrl>& urls);

    void documentPickerDidPickDocuments(const QList<QUrl>& urls) override;
    void zipManagerDidAddFile(qint64 done, qint64 total) override;

  protected:
    void viewDidLoad() override;

  private:
    void compress(const QList<QUrl>& urls, const std::optional<QString>& title);
    void finish(const std::optional<QUrl>& archive);

    const ScreenServices services_;
    std::shared_ptr<MBProgressHUD> hud_;
    std::shared_ptr<ZipManager> zipManager_;
};

}  // namespace pellumar
