#include "gallery/Gallery.h"

#include <QDir>
#include <algorithm>

namespace pellumar::gallery {
namespace {

// A small phone, a larger one, a desktop.
constexpr QSize kSizes[] = {{360, 640}, {390, 844}, {1280, 800}};

bool areClean = true;

void watch(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    const bool isOfLayout =
        message.contains(QStringLiteral("qrc:")) || qstrncmp(context.category, "qml", 3) == 0;
    if (type != QtDebugMsg && type != QtInfoMsg && isOfLayout) {
        areClean = false;
    }
    std::fprintf(stderr, "%s\n", qUtf8Printable(message));
}

}  // namespace

Gallery::Gallery(Stage& stage, const QStringList& names) : stage_(stage), scenes_(scenesOn(stage)) {
    if (!names.isEmpty()) {
        std::erase_if(scenes_,
                      [&names](const Scene& scene) { return !names.contains(scene.name); });
    }
    qInstallMessageHandler(watch);
}

bool Gallery::selfTest() {
    for (const Scene& scene : scenes_) {
        scene.show();
        stage_.settle();
    }
    return areClean;
}

bool Gallery::canBeRead(QStringList& names) {
    const QStringList mayBeCut = names;
    bool isFine = true;
    stage_.resize(kSizes[0]);
    for (const Scene& scene : scenes_) {
        scene.show();
        stage_.settle();
        for (const QString& fault : stage_.illegibleTexts(mayBeCut, names)) {
            std::fprintf(stderr, "%s: %s\n", qUtf8Printable(scene.name), qUtf8Printable(fault));
            isFine = false;
        }
    }
    return isFine && areClean;
}

bool Gallery::savePictures(const QString& folder) {
    bool isSaved = QDir().mkpath(folder);
    for (const QSize& size : kSizes) {
        isSaved = savePicturesAt(size, folder) && isSaved;
    }
    return isSaved && areClean;
}

bool Gallery::savePicturesAt(QSize size, const QString& folder) {
    bool isSaved = true;
    stage_.resize(size);
    for (const bool isDark : {false, true}) {
        stage_.setDark(isDark);
        for (const Scene& scene : scenes_) {
            scene.show();
            stage_.settle();
            const QString file = QStringLiteral("%1/%2-%3x%4-%5.png")
                                     .arg(folder, scene.name)
                                     .arg(size.width())
                                     .arg(size.height())
                                     .arg(isDark ? "dark" : "light");
            isSaved = stage_.savePicture(file) && isSaved;
        }
    }
    return isSaved;
}

}  // namespace pellumar::gallery
