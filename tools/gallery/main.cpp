#include <QCommandLineParser>
#include <QGuiApplication>
#include <QQuickStyle>
#include <cstdio>

#include "app/App.h"
#include "app/Language.h"
#include "gallery/Gallery.h"

using namespace pellumar;

namespace {

bool show(const gallery::SampleHome& home, const QCommandLineParser& wanted) {
    if (wanted.isSet("language")) {
        QLocale::setDefault(QLocale(wanted.value("language")));
    }
    const Language language{QLocale()};
    gallery::Stage stage(home);
    gallery::Gallery screens(stage, wanted.positionalArguments());
    return wanted.isSet("screenshots") ? screens.savePictures(wanted.value("screenshots"))
                                       : screens.selfTest();
}

bool canBeRead(const gallery::SampleHome& home, const QCommandLineParser& wanted) {
    // Cut off in English as well.
    QStringList names;
    {
        const Language english{QLocale(QLocale::English)};
        gallery::Stage stage(home);
        static_cast<void>(gallery::Gallery(stage, wanted.positionalArguments()).canBeRead(names));
    }
    const QLocale locale(wanted.value("legible"));
    QLocale::setDefault(locale);
    const Language language(locale);
    gallery::Stage stage(home);
    return gallery::Gallery(stage, wanted.positionalArguments()).canBeRead(names);
}

}  // namespace

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
    parser.addOption({"language", "In this language, \"pt\" or \"zh_Hans\".", "LANGUAGE"});
    parser.addOption({"legible", "Fail if a text in this language cannot be read.", "LANGUAGE"});
    parser.addPositionalArgument("scene", "Only the scenes of these names", "[SCENE...]");
    parser.process(application);
    if (!home.isValid()) {
        std::fputs("pellumar-gallery: no folder for temporary files\n", stderr);
        return 1;
    }
    registerLayouts();
    const bool isFine = parser.isSet("legible") ? canBeRead(home, parser) : show(home, parser);
    return isFine ? 0 : 1;
}
