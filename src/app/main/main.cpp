#include <QCommandLineParser>
#include <QDir>
#include <QGuiApplication>
#include <QQuickStyle>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>

#include "app/App.h"
#include "app/Composition.h"
#include "platform/FileUrl.h"
#include "platform/UserFolders.h"
#include "platform/desktop/SingleInstance.h"
#include "platform/desktop/TerminationSignals.h"

using namespace pellumar;

namespace {

struct Start {
    QList<QUrl> urls;
};

// The arguments as text. A path that is none becomes the URL of its file, which keeps every byte.
QStringList textOf(int argc, char** argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        const QByteArrayView bytes(argv[i]);
        arguments.append(
            bytes.isValidUtf8()
                ? QString::fromUtf8(bytes)
                : QString::fromLatin1(fileUrl(std::filesystem::absolute(argv[i])).toEncoded()));
    }
    return arguments;
}

Start readCommandLine(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription("Opens and makes ZIP archives.");
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument("archive", "An archive to open", "[ARCHIVE...]");
    parser.process(arguments);
    Start start;
    for (const QString& argument : parser.positionalArguments()) {
        const QUrl url(argument);
        start.urls.append(
            url.isLocalFile() ? url : fileUrl(QDir().absoluteFilePath(argument).toStdString()));
    }
    return start;
}

int serve(QGuiApplication& application, SingleInstance& instance, const Start& start) {
    const TerminationSignals termination;
    Composition composition;
    AppDelegate& delegate = composition.delegate();
    const auto open = [&delegate](const QList<QUrl>& urls) {
        for (const QUrl& url : urls) {
            static_cast<void>(delegate.applicationOpen(url));
        }
    };
    UIWindow& window = composition.window();
    const auto raise = [&window] {
        window.show();
        window.raise();
        window.requestActivate();
    };
    QObject::connect(&instance, &SingleInstance::openRequested, &window, open);
    QObject::connect(&instance, &SingleInstance::activated, &window, raise);
    delegate.applicationDidFinishLaunching();
    open(start.urls);
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
    QGuiApplication::setApplicationDisplayName("Pellumar Zip");
    QGuiApplication::setDesktopFileName("org.pellumar.Zip");
    QQuickStyle::setStyle("Basic");
    QGuiApplication application(argc, argv);
    registerLayouts();
    const Start start = readCommandLine(textOf(argc, argv));
    if (const std::optional<std::string> reason = UserFolders::whyMissing()) {
        std::fprintf(stderr, "pellumar-zip: %s\n", reason->c_str());
        return 1;
    }
    SingleInstance instance;
    switch (instance.claim(start.urls)) {
        case SingleInstance::Role::kForwarded:
            return 0;
        case SingleInstance::Role::kNoAnswer:
            std::fputs("pellumar-zip: it is running already, but does not answer\n", stderr);
            return 1;
        case SingleInstance::Role::kFirst:
            break;
    }
    return serve(application, instance, start);
}
