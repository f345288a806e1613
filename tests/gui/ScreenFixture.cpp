#include "gui/ScreenFixture.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include "app/App.h"
#include "platform/FileUrl.h"
#include "platform/documents/ThumbnailProvider.h"
#include "platform/look/Look.h"
#include "support/ZipBuilder.h"

namespace pellumar::test {

ScreenFixture::ScreenFixture()
    : defaults(QString::fromStdString(folder / "preferences.ini")),
      settings(defaults),
      analytics(settings, events),
      fileSystem(DocumentDirectory(folder / "Documents"), console, &backgroundQueue),
      memory(QString::fromStdString(folder / "memory.ini"), QSettings::IniFormat),
      inbox(folder / "Inbox", mainQueue, backgroundQueue),
      thumbnails(folder / "thumbnails", Thumbnailers({})),
      photoLibrary({folder / "Pictures", folder / "Videos"}),
      images(thumbnails),
      sharedItems(folder / "Shared"),
      viewLoader(engine, layoutModules()),
      launches(defaults),
      services{.ui = {viewLoader, animator, {}},
               .settings = settings,
               .analytics = analytics,
               .fileSystem = fileSystem,
               .jobs = {.fileSystem = fileSystem,
                        .analytics = analytics,
                        .console = console,
                        .mainQueue = mainQueue,
                        .backgroundQueue = backgroundQueue,
                        .originals = inbox.originals()},
               .documents = {inbox, mainQueue, backgroundQueue, folders, memory},
               .photos = {photoLibrary, images, mainQueue, backgroundQueue, folders},
               .sharing = {services.documents, targets, sharedItems},
               .review = review,
               .sleep = sleep,
               .mainQueue = mainQueue} {
    installIcons(engine);
    engine.addImageProvider(ThumbnailProvider::name(), new ThumbnailProvider(thumbnails));
    fileSystem.createFolders();
}

ScreenFixture::~ScreenFixture() {
    stack_.reset();
    window.setRootViewController(nullptr);
    releaseScreens();
}

void ScreenFixture::releaseScreens() {
    // Containers let go of what they contain as they go themselves.
    for (int depth = 0; depth < 5; ++depth) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void ScreenFixture::settle() {
    for (int round = 0; round < 10; ++round) {
        backgroundQueue.runAll();
        mainQueue.runAll();
        QCoreApplication::processEvents();
    }
}

bool ScreenFixture::waitUntil(const std::function<bool()>& condition,
                              std::chrono::milliseconds patience) {
    const QDeadlineTimer deadline(patience);
    while (!condition() && !deadline.hasExpired()) {
        backgroundQueue.runAll();
        mainQueue.runAll();
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    }
    return condition();
}

std::shared_ptr<ViewController> ScreenFixture::showHome(QSize size) {
    window.resize(size);
    auto home = makeController<ViewController>(services, launches);
    stack_ = makeController<UINavigationController>(services.ui, home);
    const auto tabs = makeController<UITabBarController>(services.ui);
    tabs->setTabs({{{"Zip/Unzip", "zipIcon"}, stack_}});
    window.setRootViewController(tabs);
    window.makeKeyAndVisible();
    return home;
}

QUrl ScreenFixture::makeArchive(const std::string& name) const {
    const std::filesystem::path path = folder / name;
    ZipBuilder().file("hello.txt", "hello").writeTo(path);
    return fileUrl(path);
}

QStringList ScreenFixture::eventNames() const {
    QStringList names;
    for (const auto& event : events.events()) {
        names.append(event.name);
    }
    return names;
}

}  // namespace pellumar::test
