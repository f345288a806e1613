#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/photos/PHPickerViewController.h"
#include "screens/CanRunJobs.h"
#include "screens/CanShowFilePicker.h"
#include "screens/PhotoSource.h"

namespace pellumar {

// From this version of the platform on, the system has a picker of photos.
inline constexpr double kSystemPickerVersion = 14.0;

// The composer: picks files, or photos and videos, asks for a title, and shares the archive that is
// made of them.
class ZipViewController : public UIViewController,
                          public PHPickerViewControllerDelegate,
                          public CanShowFilePicker,
                          public CanRunJobs {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made in C++")

  public:
    explicit ZipViewController(const ScreenServices& services);

    Q_INVOKABLE void fromFilesTapped();
    // Opens the system's picker, or before kSystemPickerVersion the one of those times.
    Q_INVOKABLE void fromPhotosTapped();

    [[nodiscard]] OperationType currentOperation() const override { return OperationType::kZip; }

    // Asks for the title, and makes the archive of these files.
    void askTitleForFiles(const QList<QUrl>& urls);
    // The same with images, which go through the staging folder.
    void askTitleForImages(const PhotoSource::Images& images);

    void documentPickerDidPickDocuments(const QList<QUrl>& urls) override;
    void pickerDidFinishPicking(const std::shared_ptr<PHPickerViewController>& picker,
                                const QList<PHPickerResult>& results) override;

  protected:
    void viewDidLoad() override;

  private:
    [[nodiscard]] UIViewController& screen() override { return *this; }
    [[nodiscard]] const ScreenServices& services() const override { return services_; }

    void openSystemPicker();
    void openEarlierPicker();
    void takeAssets(const QStringList& identifiers);
    void fetchMedia(const std::vector<PHAsset>& assets);
    // Asks for the title; before that, files of one name get names of their own.
    void nameApart(const QList<QUrl>& urls);
    // What the user says of a new archive; without a password it is null.
    using Save = std::function<void(const QString& title,
                                    const std::shared_ptr<const archive::Password>& password)>;
    void askTitle(const QString& alertTitle, const Save& save);

    const ScreenServices services_;
    const PhotoSource photos_;
};

}  // namespace pellumar
