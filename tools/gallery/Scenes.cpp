#include "gallery/Scenes.h"

#include <QCoreApplication>

#include "app/FeedbackViewController.h"
#include "app/UsageDataViewController.h"
#include "engine/FailureReason.h"
#include "platform/FileUrl.h"
#include "platform/kit/MBProgressHUD.h"
#include "platform/kit/Notice.h"
#include "platform/kit/UIAlertController.h"
#include "platform/kit/UIWindow.h"
#include "platform/sharing/KeptEdits.h"
#include "platform/sharing/ShowInFiles.h"
#include "screens/ConfirmationPopupViewController.h"
#include "screens/PasswordViewController.h"
#include "screens/UnzipViewController.h"
#include "screens/ZipViewController.h"

namespace pellumar::gallery {
namespace {

void showFeedback(Stage& stage) {
    const ScreenServices& services = stage.services();
    const auto feedback = makeController<FeedbackViewController>(
        services.ui, services.settings, services.analytics, services.review);
    stage.present(feedback);
    QObject fourthStar;
    fourthStar.setProperty("tag", 3);
    outlet<StarEvaluationView>(feedback->view(), QStringLiteral("starEvaluationView"))
        ->starSelected(&fourthStar);
}

void showUsageData(Stage& stage, bool isAnyKept) {
    const auto read = [isAnyKept] {
        QByteArray lines;
        qint64 minute = 0;
        for (const char* const name : {"started_tutorial",
                                       "finished_tutorial",
                                       "tapped_unzip",
                                       "unzipped_successfuly",
                                       "tapped_zip",
                                       "tapped_photos",
                                       "zipped_successfuly"}) {
            constexpr qint64 kMorning = 1'784'016'000'000;
            lines += R"({"table":"events","name":")" + QByteArray(name) +
                     R"(","parameters":[],"time":)" +
                     QByteArray::number(kMorning + 60'000 * ++minute) + "}\n";
        }
        lines += R"({"table":"state","installation":"10944e7f-643c-4633-9dcb-8bbaa5cd15dc",)"
                 R"("user_properties":{"participating_tests":"|1|"}})"
                 "\n"
                 R"({"table":"counts","name":"tapped_unzip","day":-1,"total":12})"
                 "\n"
                 R"({"table":"counts","name":"evaluated_app","day":-1,"total":1})"
                 "\n";
        lines += R"({"table":"events","name":"evaluated_app","time":1784016600000,"parameters":)"
                 R"([{"key":"rating","value":{"intValue":"5"}}]})";
        return std::optional(isAnyKept ? lines : QByteArray());
    };
    stage.present(makeController<UsageDataViewController>(
        stage.services().ui,
        UsageDataSource{read, stage.services().jobs.backgroundQueue, stage.services().mainQueue}));
    stage.settle();
}

void showRating(Stage& stage) {
    stage.showHome();
    stage.services().review.requestReview();
    stage.until("the alert", [&stage] { return stage.top<UIAlertController>() != nullptr; });
}

// By the road that an archive takes.
void showResults(Stage& stage) {
    stage.showHome()->didConfirmUnzip(stage.home().archive());
    stage.until("the results", [&stage] { return stage.top<UnzipViewController>() != nullptr; });
}

// Over the results of another archive, and what is asked when they are left.
void showSecondResults(Stage& stage, bool areLeft) {
    const auto home = stage.showHome();
    home->didConfirmUnzip(stage.home().archive());
    stage.until("the results", [&stage] { return stage.top<UnzipViewController>() != nullptr; });
    const auto first = stage.top<UnzipViewController>();
    home->didConfirmUnzip(stage.home().archive());
    stage.until("others", [&] { return stage.top<UnzipViewController>() != first; });
    if (areLeft) {
        stage.settle();
        static_cast<void>(stage.top<UnzipViewController>()->mayGoBack());
    }
}

void showFailure(Stage& stage) {
    stage.showHome()->didConfirmUnzip(stage.home().file(QStringLiteral("Downloads/gone.zip")));
    stage.until("the alert", [&stage] { return stage.top<UIAlertController>() != nullptr; });
}

// The reasons that a home of samples does not bring about by itself.
// As the screens say it.
QString alertText(const char* text) {
    return QCoreApplication::translate("AlertWords", text);
}

void showReason(Stage& stage, const archive::Error& error) {
    JobReport report(OperationType::kUnzip, stage.home().archive());
    report.addFailure(error);
    const FailureReason reason = FailureReason::of(report);
    const auto alert = makeController<UIAlertController>(
        stage.services().ui, alertText("Error"), alertText("Could not complete the operation."));
    UIAlertAction remedy;
    if (reason.canBeSalvaged) {
        remedy.title = ViewController::tr("Rescue what is whole");
    }
    alert->setReason({.text = reason.text, .details = reason.details, .remedy = remedy});
    alert->addAction({alertText("OK"), UIAlertActionStyle::kDefault, {}});
    stage.present(alert);
}

// Results with something to be said about their archive, or what there is to be said.
void showRemarks(Stage& stage, bool inWords) {
    JobReport report(OperationType::kUnzip, stage.home().archive());
    archive::Warnings warnings;
    warnings.add(archive::WarningCode::kBytesBeforeArchive);
    warnings.add(archive::WarningCode::kLegacyCharset, "Grüße aus Köln/Straße.jpg", 4711);
    warnings.add(archive::WarningCode::kDuplicatePath, "Notes.txt", 4812);
    report.addWarnings(warnings);
    const auto results = makeController<UnzipViewController>(
        stage.services(), QList<QUrl>{stage.home().archive()}, report);
    stage.push(results);
    stage.settle();
    if (inWords) {
        results->showRemarks();
    }
}

void showPicker(Stage& stage, const QString& type, bool several) {
    const ScreenServices& services = stage.services();
    const auto picker = makeController<UIDocumentPickerViewController>(
        services.ui, services.documents, QStringList{type}, several);
    stage.present(picker);
    stage.settle();
    picker->placeTapped(static_cast<int>(picker->placeNames().indexOf("Downloads")));
    stage.settle();
    if (several) {
        picker->rowTapped(1);
        picker->rowTapped(2);
    }
}

void showPhotos(Stage& stage) {
    const ScreenServices& services = stage.services();
    const auto picker = makeController<PHPickerViewController>(
        services.ui,
        services.photos,
        PHPickerConfiguration{.isBoundToLibrary = true,
                              .selectionLimit = 100,
                              .filter = {PHAssetMediaType::kImage, PHAssetMediaType::kVideo}});
    stage.present(picker);
    stage.settle();
    for (const int row : {1, 3, 4}) {
        picker->assetTapped(row);
    }
}

class NothingFits : public PasswordRequest {
  public:
    [[nodiscard]] bool wasWrong() const override { return false; }
    void tryPassword(Password /*password*/, std::function<void(bool)> reply) override {
        reply(false);
    }
    void giveUp() override {}
};

void showPassword(Stage& stage) {
    const ScreenServices& services = stage.services();
    const auto dialog =
        makeController<PasswordViewController>(services.ui,
                                               lastPathComponent(stage.home().archive()),
                                               std::make_shared<NothingFits>(),
                                               [] {});
    stage.present(dialog);
    stage.settle();
    outlet<QQuickItem>(dialog->view(), QStringLiteral("passwordField"))
        ->setProperty("text", QStringLiteral("geheim"));
    dialog->openTapped(QStringLiteral("geheim"));
}

std::shared_ptr<ZipViewController> showComposer(Stage& stage) {
    auto composer = makeController<ZipViewController>(stage.services());
    stage.push(composer);
    return composer;
}

void showTitleAlert(Stage& stage, bool withPassword) {
    showComposer(stage)->askTitleForFiles(
        {stage.home().file(QStringLiteral("Downloads/Invoice 2026-104.pdf"))});
    stage.settle();
    if (withPassword) {
        QQuickItem& view = stage.top<UIAlertController>()->view();
        QMetaObject::invokeMethod(outlet<QQuickItem>(view, QStringLiteral("secretButton")),
                                  "clicked");
    }
}

void showOverlay(Stage& stage) {
    const auto composer = showComposer(stage);
    const auto hud = MBProgressHUD::showAddedTo(stage.services().ui, composer->view(), false);
    hud->setMode(MBProgressHUD::Mode::kAnnularDeterminate);
    hud->setLabel(ViewController::tr("Compressing files"));
    hud->setProgress(0.5F);
    // It lives as long as what it covers.
    QObject::connect(composer.get(), &QObject::destroyed, [hud] {});
}

void showNotice(Stage& stage) {
    Notice::show(*stage.showHome()->window(),
                 KeptEdits::text({fileUrl(KeptEdits::standardFolder() / "Letter to Grandma.odt")}),
                 {showInFilesTitle(), [] {}},
                 Notice::Stay::kUntilClosed);
}

}  // namespace

std::vector<Scene> scenesOn(Stage& stage) {
    const ScreenServices& with = stage.services();
    const UIContext& ui = with.ui;
    const QUrl archive = stage.home().archive();
    // clang-format off
    return {
        {"onboarding", [&] { stage.showOnboarding(); }},
        {"home", [&] { stage.showHome(); }},
        {"settings", [&] { stage.showSettings(); }},
        {"usage-data", [&] { showUsageData(stage, true); }},
        {"usage-data-none", [&] { showUsageData(stage, false); }},
        {"feedback", [&] { showFeedback(stage); }},
        {"rating", [&] { showRating(stage); }},
        {"popup", [&, archive] { stage.present(makeController<ConfirmationPopupViewController>(ui, archive)); }},
        {"password", [&] { showPassword(stage); }},
        {"results", [&] { showResults(stage); }},
        {"results-second", [&] { showSecondResults(stage, false); }},
        {"results-left", [&] { showSecondResults(stage, true); }},
        {"results-empty", [&] { stage.push(makeController<UnzipViewController>(with, QList<QUrl>())); }},
        {"picker", [&] { showPicker(stage, "public.item", true); }},
        {"picker-archive", [&] { showPicker(stage, "public.zip-archive", false); }},
        {"picker-folder", [&] { showPicker(stage, "public.folder", false); }},
        {"share", [&, archive] { stage.present(makeController<UIActivityViewController>(ui, with.sharing, QList<QUrl>{archive})); }},
        {"share-gone", [&] { stage.present(makeController<UIActivityViewController>(ui, with.sharing, QList<QUrl>{QUrl::fromLocalFile("/gone/Invoice.pdf")})); }},
        {"notice", [&] { showNotice(stage); }},
        {"composer", [&] { showComposer(stage); }},
        {"photos", [&] { showPhotos(stage); }},
        {"title-alert", [&] { showTitleAlert(stage, false); }},
        {"title-alert-password", [&] { showTitleAlert(stage, true); }},
        {"failure-alert", [&] { showFailure(stage); }},
        {"results-remarks", [&] { showRemarks(stage, false); }},
        {"remarks", [&] { showRemarks(stage, true); }},
        {"reason-room", [&] { showReason(stage, {.code = archive::ErrorCode::kTooLarge, .entry = {}, .bytesNeeded = 1'200'000'000, .bytesFree = 300'000'000}); }},
        {"reason-damaged", [&] { showReason(stage, {.code = archive::ErrorCode::kChecksumMismatch, .entry = "Pictures of the summer at the lake/IMG_20260714_181533_HDR.jpg", .offset = 4711}); }},
        {"overlay", [&] { showOverlay(stage); }},
    };
    // clang-format on
}

}  // namespace pellumar::gallery
