#include "gallery/Stage.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QQuickItem>
#include <QTimer>

#include "app/MainInterface.h"
#include "gallery/Legibility.h"
#include "platform/kit/Notice.h"
#include "platform/kit/UINavigationController.h"
#include "platform/kit/UITabBarController.h"
#include "platform/look/Look.h"

namespace pellumar::gallery {
namespace {

using namespace std::chrono_literals;

constexpr auto kPatience = 30s;
// Frames without anything left to do: what one brings to light may ask for more.
constexpr int kQuietFrames = 3;

bool isLoading(const QQuickItem& item) {
    // By its name: the class of what shows pictures is none of Qt's public ones.
    constexpr int kLoading = 2;
    if (item.inherits("QQuickImageBase") && item.property("status").toInt() == kLoading) {
        return true;
    }
    const QList<QQuickItem*> children = item.childItems();
    return std::any_of(children.begin(), children.end(), [](const QQuickItem* child) {
        return isLoading(*child);
    });
}

}  // namespace

Stage::Stage(const SampleHome& home) : home_(home) {
    composition_.launch({});
}

void Stage::setDark(bool isDark) {
    applyLook(composition_.engine(), {.isDark = isDark, .isStill = true});
}

bool Stage::savePicture(const QString& file) {
    return composition_.window().grabWindow().save(file);
}

QStringList Stage::illegibleTexts(const QStringList& mayBeCut, QStringList& cut) {
    QStringList faults = illegible(*composition_.window().topLayer(), mayBeCut, cut);
    if (const Notice* const notice = Notice::shownIn(composition_.window())) {
        faults += illegible(*notice->item(), mayBeCut, cut);
    }
    return faults;
}

void Stage::closeNotice() {
    if (Notice* const notice = Notice::shownIn(composition_.window())) {
        notice->close();
    }
}

void Stage::showOnboarding() {
    closeNotice();
    composition_.window().setRootViewController(composition_.storyboard().instantiateViewController(
        QStringLiteral("OnboardingViewController")));
}

std::shared_ptr<ViewController> Stage::showHome() {
    closeNotice();
    composition_.window().setRootViewController(
        makeMainInterface(services().ui, composition_.storyboard()));
    return top<ViewController>();
}

void Stage::showSettings() {
    static_cast<void>(showHome());
    top<UIViewController>()->tabBarController()->select(1);
}

void Stage::push(const std::shared_ptr<UIViewController>& screen) {
    screen->setHidesBottomBarWhenPushed(true);
    showHome()->navigationController()->pushViewController(screen, false);
}

void Stage::present(const std::shared_ptr<UIViewController>& screen) {
    showHome()->present(screen, false);
}

std::shared_ptr<UIViewController> Stage::topScreen() {
    std::shared_ptr<UIViewController> top = composition_.window().topViewController();
    if (const auto tabs = std::dynamic_pointer_cast<UITabBarController>(top)) {
        top = tabs->selectedViewController();
    }
    if (const auto stack = std::dynamic_pointer_cast<UINavigationController>(top)) {
        top = stack->topViewController();
    }
    return top;
}

void Stage::until(const char* what, const std::function<bool()>& condition) {
    const QDeadlineTimer deadline(kPatience);
    while (!condition()) {
        if (deadline.hasExpired()) {
            qFatal("Waited in vain for %s", what);
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    }
}

void Stage::settle() {
    int quiet = 0;
    until("a screen to come to rest", [this, &quiet] {
        drawFrame();
        quiet = isAtRest() ? quiet + 1 : 0;
        return quiet == kQuietFrames;
    });
}

bool Stage::isAtRest() {
    return composition_.waitForWork(0ms) && !isLoading(*composition_.window().contentItem());
}

void Stage::drawFrame() {
    QEventLoop drawing;
    UIWindow& window = composition_.window();
    QObject::connect(&window, &QQuickWindow::frameSwapped, &drawing, &QEventLoop::quit);
    QTimer::singleShot(kPatience, &drawing, &QEventLoop::quit);
    window.update();
    drawing.exec();
}

}  // namespace pellumar::gallery
