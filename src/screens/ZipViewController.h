#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/kit/MBProgressHUD.h"
#include "platform/photos/PHPickerViewController.h"
#include "screens/CanAskFeedback.h"
#include "screens/CanShareFiles.h"
#include "screens/CanShowFailureAlert.h"
#include "screens/CanShowFilePicker.h"
#include "screens/PhotoSource.h"
#include "screens/ScreenServices.h"

namespace pellumar {

// From this version of the platform on, the system has a picker of photos.
inline constexpr double kSystemPickerVersion = 14.0;

// The composer: picks files, or photos and videos, asks for a title, and shares the archive that is
// made of them.
class ZipViewController : public UIViewController,
                          public ZipManagerDelegate,
                          public PHPickerViewControllerDelegate,
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
    // Opens the system's picker, or before kSystemPickerVersion the one of those times.
    Q_INVOKABLE void fromPhotosTapped();

    [[nodiscard]] OperationType currentOperation() const override { return OperationType::kZip; }
    [[nodiscard]] std::shared_ptr<MBProgressHUD> hud() const { return hud_; }

    // Asks for the title, and makes the archive of these files.
    void askTitleForFiles(const QList<QUrl>& urls);
    // The same with images, which go through the staging folder.
    void askTitleForImages(const PhotoSource::Images& images);

    void documentPickerDidPickDocuments(const QList<QUrl>& urls) override;
    void pickerDidFinishPicking(const std::shared_ptr<PHPickerViewController>& picker,
                                const QList<PHPickerResult>& results) override;
    void zipManagerDidAddFile(qint64 done, qint64 total) override;

  protected:
    void viewDidLoad() override;

  private:
    // Starts a compression under the title given, and calls the completion with its end.
    using Compression =
        std::function<void(const QString& title, const ZipManager::ArchiveCompletion& completion)>;

    void openSystemPicker();
    void openEarlierPicker();
    void fetchMedia(const std::vector<PHAsset>& assets);
    // `label` is that of the overlay.
    void askTitle(const QString& alertTitle, const QString& label, const Compression& compression);
    void compress(const std::optional<QString>& title,
                  const QString& label,
                  const Compression& compression);
    void finish(const std::optional<QUrl>& archive);

    const ScreenServices services_;
    const PhotoSource photos_;
    std::shared_ptr<MBProgressHUD> hud_;
    std::shared_ptr<ZipManager> zipManager_;
};

}  // namespace pellumar
