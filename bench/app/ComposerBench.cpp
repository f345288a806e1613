#include "app/ComposerBench.h"

#include <QImage>
#include <QStandardPaths>
#include <algorithm>
#include <fstream>
#include <string>

#include "app/Figure.h"
#include "platform/documents/UIDocumentPickerViewController.h"
#include "platform/kit/UIAlertController.h"
#include "platform/photos/PHPickerViewController.h"
#include "platform/sharing/UIActivityViewController.h"
#include "screens/ZipViewController.h"

namespace pellumar::bench {
namespace {

namespace fs = std::filesystem;

constexpr int kPhotos = 5000;
constexpr int kFiles = 1000;
constexpr int kScrollMs = 4000;

// Photos of twelve megapixels, under thousands of names.
void makePhotos(const fs::path& folder) {
    constexpr int kOriginals = 4;
    fs::create_directories(folder);
    for (int original = 0; original < kOriginals; ++original) {
        QImage image(4000, 3000, QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y) {
            auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
            for (int x = 0; x < image.width(); ++x) {
                line[x] = qRgb((x * (original + 1)) >> 4U, (y + x * y / 4096) & 255, x ^ y);
            }
        }
        const fs::path first = folder / (std::to_string(original) + ".jpg");
        image.save(QString::fromStdString(first), "JPEG", 85);
        for (int copy = original + kOriginals; copy < kPhotos; copy += kOriginals) {
            fs::create_hard_link(first, folder / (std::to_string(copy) + ".jpg"));
        }
    }
}

void makeFiles(const fs::path& folder) {
    fs::create_directories(folder);
    for (int number = 0; number < kFiles; ++number) {
        std::ofstream file(folder / ("note " + std::to_string(number) + ".txt"));
        for (int line = 0; line < 1000; ++line) {
            file << "line " << line * number << " of a file of which there are many\n";
        }
    }
}

// What the process takes of the machine's memory, in MiB.
double residentMib() {
    std::ifstream status("/proc/self/status");
    std::string word;
    double kib = 0;
    while (status >> word) {
        if (word == "VmRSS:") {
            status >> kib;
        }
    }
    return kib / 1024;
}

}  // namespace

ComposerBench::ComposerBench(Composition& composition,
                             FrameWatch& watch,
                             UINavigationController& stack)
    : composition_(composition),
      watch_(watch),
      stack_(stack),
      home_(QStandardPaths::writableLocation(QStandardPaths::HomeLocation).toStdString()) {}

template <typename Screen>
std::shared_ptr<Screen> ComposerBench::waitFor() {
    while (true) {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 2);
        auto screen = std::dynamic_pointer_cast<Screen>(composition_.window().topViewController());
        if (screen && screen->appearance() == UIViewController::Appearance::kAppeared) {
            return screen;
        }
    }
}

void ComposerBench::measurePhotos() {
    makePhotos(home_ / "Pictures" / "Camera");
    const auto composer = makeController<ZipViewController>(composition_.screens());
    stack_.pushViewController(composer, true);
    print("memory before the photos", residentMib(), "MiB", 0);
    QElapsedTimer opened;
    opened.start();
    composer->fromPhotosTapped();
    const auto picker = waitFor<PHPickerViewController>();
    while (picker->isLoading()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 2);
    }
    watch_.waitForFrame();
    print("5,000 photos in the grid after", milliseconds(opened), "ms", 0);
    auto* const grid = outlet<QQuickItem>(picker->view(), QStringLiteral("assetGrid"));
    const double way = grid->property("contentHeight").toDouble() - grid->height();
    double peak = 0;
    QElapsedTimer scrolled;
    scrolled.start();
    watch_.restart();
    while (scrolled.elapsed() < kScrollMs) {
        grid->setProperty("contentY", way * milliseconds(scrolled) / kScrollMs);
        watch_.waitForFrame();
        // Which processEvents() leaves out, and exec() does not.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        peak = std::max(peak, residentMib());
    }
    print("frames a second of scrolling through them", watch_.frames() * 1000.0 / kScrollMs, "", 0);
    print("longest frame of it", watch_.longestFrame(), "ms", 100);
    print("memory meanwhile", peak, "MiB", 200);
    picker->cancelTapped();
    static_cast<void>(waitFor<UIViewController>());
    stack_.popViewController(false);
}

void ComposerBench::measureFiles() {
    const fs::path folder = home_ / "Notes";
    makeFiles(folder);
    const DocumentServices& documents = composition_.screens().documents;
    documents.memory.setValue("LastFileFolder", QByteArray::fromStdString(folder.string()));
    const auto composer = makeController<ZipViewController>(composition_.screens());
    stack_.pushViewController(composer, true);
    composer->fromFilesTapped();
    const auto picker = waitFor<UIDocumentPickerViewController>();
    while (picker->model()->rowCount() < kFiles) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 2);
    }
    for (int row = 0; row < kFiles; ++row) {
        picker->rowTapped(row);
    }
    QElapsedTimer lasted;
    lasted.start();
    watch_.restart();
    picker->confirmTapped();
    const auto alert = waitFor<UIAlertController>();
    print("1,000 files copied after", milliseconds(lasted), "ms", 0);
    lasted.restart();
    alert->setText("Notes");
    alert->choose(0);
    const auto sheet = waitFor<UIActivityViewController>();
    print("and compressed after", milliseconds(lasted), "ms", 0);
    print("longest wait for a frame meanwhile", watch_.longestFrame(), "ms", 100);
    print("longest turn of the main thread", watch_.longestTurn(), "ms", 100);
    sheet->cancelTapped();
    while (composition_.window().topViewController() == sheet) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 2);
    }
    stack_.popViewController(false);
}

}  // namespace pellumar::bench
