// Measures the application's window: long lists, many photos and files, and whether it stays alive
// while it works.
//
//   window_bench ARCHIVE    with a large archive; prints "name value unit goal" in lines
//
// It empties the application's workspace: bench/window gives it folders of its own.

#include <QElapsedTimer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QQuickStyle>
#include <cstdio>

#include "app/App.h"
#include "app/ComposerBench.h"
#include "app/Composition.h"
#include "app/Figure.h"
#include "app/FrameWatch.h"
#include "app/MainInterface.h"
#include "platform/FileUrl.h"
#include "platform/kit/UINavigationController.h"
#include "platform/kit/UITabBarController.h"
#include "screens/UnzipViewController.h"
#include "screens/ViewController.h"

namespace pellumar::bench {
namespace {

constexpr int kRows = 100'000;
constexpr int kPages = 60;
constexpr int kSettleMs = 600;

class WindowBench {
  public:
    WindowBench() : watch_(composition_.window()) {
        composition_.launch({});
        const auto tabs = std::dynamic_pointer_cast<UITabBarController>(
            makeMainInterface(composition_.screens().ui, composition_.storyboard()));
        composition_.window().setRootViewController(tabs);
        stack_ = std::dynamic_pointer_cast<UINavigationController>(tabs->selectedViewController());
        settle();
    }

    void measureRows() {
        QList<QUrl> urls;
        for (int i = 0; i < kRows; ++i) {
            urls.append(fileUrl("/data/photos/Holiday " + std::to_string(i) + ".jpg"));
        }
        QElapsedTimer opened;
        opened.start();
        const auto results = makeController<UnzipViewController>(composition_.screens(), urls);
        stack_->pushViewController(results, true);
        watch_.waitForFrame();
        print("100,000 rows on the screen after", milliseconds(opened), "ms", 200);
        settle();
        scroll(*results);
        stack_->popViewController(true);
        // The home screen empties the workspace when it has come into view.
        while (stack_->topViewController()->appearance() !=
               UIViewController::Appearance::kAppeared) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
        settle();
    }

    void measureExtraction(const QUrl& archive) {
        const auto home = std::dynamic_pointer_cast<ViewController>(stack_->topViewController());
        QElapsedTimer lasted;
        lasted.start();
        watch_.restart();
        home->didConfirmUnzip(archive);
        UIWindow& window = composition_.window();
        while (stack_->topViewController() == home &&
               window.topViewController() == window.rootViewController()) {
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents,
                                            2);
        }
        watch_.waitForFrame();
        const double seconds = milliseconds(lasted) / 1000;
        const bool isExtracted = stack_->topViewController() != home;
        print(isExtracted ? "extracted in" : "FAILED after", seconds, "s", isExtracted ? 0 : -1);
        print("longest wait for a frame meanwhile", watch_.longestFrame(), "ms", 100);
        print("longest turn of the main thread", watch_.longestTurn(), "ms", 100);
        print("frames a second", watch_.frames() / seconds, "", 0);
    }

    void measureComposer() {
        ComposerBench composer(composition_, watch_, *stack_);
        composer.measurePhotos();
        settle();
        composer.measureFiles();
    }

  private:
    static void settle() {
        QElapsedTimer waited;
        waited.start();
        while (waited.elapsed() < kSettleMs) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
    }

    // A page with every frame, over the whole list.
    void scroll(UIViewController& results) {
        auto* const rows = results.view().findChild<QQuickItem*>("rows");
        if (rows == nullptr) {
            qFatal("The results have no rows to scroll.");
        }
        const double way = rows->property("contentHeight").toDouble() - rows->height();
        watch_.restart();
        for (int page = 1; page <= kPages; ++page) {
            rows->setProperty("contentY", way * page / kPages);
            watch_.waitForFrame();
        }
        print("longest frame of scrolling through them", watch_.longestFrame(), "ms", 100);
    }

    Composition composition_;
    FrameWatch watch_;
    std::shared_ptr<UINavigationController> stack_;
};

}  // namespace
}  // namespace pellumar::bench

int main(int argc, char** argv) {
    using namespace pellumar;
    QCoreApplication::setApplicationName("pellumar-zip");
    QQuickStyle::setStyle("Basic");
    const QGuiApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("usage: window_bench ARCHIVE\n", stderr);
        return 2;
    }
    registerLayouts();
    bench::WindowBench bench;
    // First, as what the long list has taken is not given back.
    bench.measureComposer();
    bench.measureRows();
    bench.measureExtraction(fileUrl(QFileInfo(argv[1]).absoluteFilePath().toStdString()));
    return 0;
}
