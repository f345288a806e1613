#include <QCommandLineParser>
#include <QGuiApplication>
#include <QQuickStyle>
#include <cstdio>

#include "app/App.h"
#include "gallery/Gallery.h"

using namespace pellumar;

int main(int argc, char** argv) {
    // As the application, whose folders and texts it shows.
    QCoreApplication::setApplicationName("pellumar-zip");
    QGuiApplication::setApplicationDisplayName("Pellumar Zip");
    QQuickStyle::setStyle("Basic");
    qputenv("PELLUMAR_REDUCED_MOTION", "1");
    const gallery::SampleHome home;
    const QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription("Shows every screen of Pellumar Zip.");
    parser.addHelpOption();
    parser.addOption({"self-test", "Load every screen; fails if a layout complains."});
    parser.addOption({"screenshots", "Save a picture of every screen in DIR.", "DIR"});
    parser.addPositionalArgument("scene", "Only the scenes of these names", "[SCENE...]");
    parser.process(application);
    if (!home.isValid()) {
        std::fputs("pellumar-gallery: no folder for temporary files\n", stderr);
        return 1;
    }
    registerLayouts();
    gallery::Stage stage(home);
    gallery::Gallery screens(stage, parser.positionalArguments());
    const bool isFine = parser.isSet("screenshots")
                            ? screens.savePictures(parser.value("screenshots"))
                            : screens.selfTest();
    return isFine ? 0 : 1;
}
