#pragma once

#include <QPointer>
#include <memory>

#include "engine/AppFileOpener.h"
#include "platform/kit/NSLayoutConstraint.h"
#include "platform/kit/StoryboardInstantiable.h"
#include "screens/CanRunJobs.h"
#include "screens/CanShowFilePicker.h"
#include "screens/ConfirmationPopupDelegate.h"
#include "screens/RelevantActionCount.h"

namespace pellumar {

// The home screen: extracts an archive that the user picks or another application hands over, and
// leads to the composer. Layout outlets: "topConstraint", "secondaryTopConstraint".
class ViewController : public UIViewController,
                       public StoryboardInstantiable,
                       public AppFileOpenerDelegate,
                       public ConfirmationPopupDelegate,
                       public CanShowFilePicker,
                       public CanRunJobs {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made in C++")

  public:
    // `launches` is the one of the process; both must outlive this.
    ViewController(const ScreenServices& services, RelevantActionCount& launches);

    Q_INVOKABLE void unzipTapped();
    Q_INVOKABLE void zipTapped();

    [[nodiscard]] OperationType currentOperation() const override { return currentOperation_; }

    void documentPickerDidPickDocuments(const QList<QUrl>& urls) override;
    void appFileOpenerDidReceive(const QUrl& url) override;
    void didConfirmUnzip(const QUrl& url) override;

  protected:
    void viewDidLoad() override;
    void viewWillAppear(bool animated) override;
    void viewDidAppear(bool animated) override;

  private:
    [[nodiscard]] UIViewController& screen() override { return *this; }
    [[nodiscard]] const ScreenServices& services() const override { return services_; }
    void askForRating();
    class Work;
    // `start` gets what the job is to call.
    template <typename Start>
    void runJob(const QString& title, const QUrl& archive, bool canBeRescued, Start start);
    void extract(const QUrl& url);
    // What is whole in the damaged archive of that job.
    void salvage(const JobReport& failed);
    void showFailure(const JobReport& report, bool canBeRescued);
    void showResults(const QList<QUrl>& urls, const JobReport& report);

    const ScreenServices services_;
    RelevantActionCount& launches_;
    QPointer<NSLayoutConstraint> topConstraint_;
    QPointer<NSLayoutConstraint> secondaryTopConstraint_;
    OperationType currentOperation_ = OperationType::kZip;
};

}  // namespace pellumar
