#include <QGuiApplication>
#include <QQuickStyle>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

#include "app/App.h"
#include "app/Composition.h"
#include "app/Language.h"
#include "app/StartArguments.h"
#include "platform/UserFolders.h"
#include "platform/desktop/SingleInstance.h"
#include "platform/desktop/TerminationSignals.h"

using namespace pellumar;

namespace {

// Qt aborts where it finds no display, after some lines for programmers.
void stopWithoutDisplay(QtMsgType type, const QMessageLogContext& /*context*/, const QString&) {
    if (type == QtFatalMsg) {
        std::fputs(
            "pellumar-zip: There is no display to open a window on. Start it on a desktop, "
            "or use pellumar in the terminal.\n",
            stderr);
        std::_Exit(EXIT_FAILURE);
    }
}

int serve(QGuiApplication& application, SingleInstance& instance, const StartArguments& start) {
    const QList<QUrl> archives = start.archives + instance.takeWaiting(start.isByTheBus);
    const TerminationSignals termination;
    Composition composition;
    UIWindow& window = composition.window();
    const auto open = [&composition](const QList<QUrl>& urls) { composition.open(urls); };
    QObject::connect(&instance, &SingleInstance::openRequested, &window, open);
    QObject::connect(&instance, &SingleInstance::activated, &window, &UIWindow::makeKeyAndVisible);
    composition.launch(archives);
    const int code = application.exec();
    SingleInstance::release();
    if (!composition.stop()) {
        // Nobody waits for what is still being made; the next launch clears it away.
        std::fflush(stdout);
        std::fflush(stderr);
        std::_Exit(code);
    }
    return code;
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication::setApplicationName("pellumar-zip");
    QCoreApplication::setApplicationVersion(PELLUMAR_VERSION);
    StartArguments::answerQuestions(argc, argv);
    QGuiApplication::setApplicationDisplayName("Pellumar Zip");
    QGuiApplication::setDesktopFileName("org.pellumar.Zip");
    QQuickStyle::setStyle("Basic");
    const QtMessageHandler usual = qInstallMessageHandler(stopWithoutDisplay);
    QGuiApplication application(argc, argv);
    qInstallMessageHandler(usual);
    const Language language;
    const StartArguments start = StartArguments::read(argc, argv);
    if (const std::optional<std::string> reason = UserFolders::whyMissing()) {
        std::fprintf(stderr, "pellumar-zip: %s\n", reason->c_str());
        return EXIT_FAILURE;
    }
    registerLayouts();
    SingleInstance instance;
    switch (instance.claim(start.archives)) {
        case SingleInstance::Role::kForwarded:
            return EXIT_SUCCESS;
        case SingleInstance::Role::kNoAnswer:
            std::fputs("pellumar-zip: it is running already, but does not answer\n", stderr);
            return EXIT_FAILURE;
        case SingleInstance::Role::kFirst:
            break;
    }
    return serve(application, instance, start);
}
