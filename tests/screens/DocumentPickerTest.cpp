#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>

#include "gui/ScreenFixture.h"
#include "platform/FileUrl.h"
#include "platform/GlobalDispatchQueue.h"
#include "platform/MainDispatchQueue.h"
#include "platform/kit/UIAlertController.h"
#include "support/FileContents.h"
#include "support/stoppable/StoppableFolder.h"

namespace pellumar::test {
namespace {

namespace fs = std::filesystem;

class PickDelegate : public UIDocumentPickerDelegate {
  public:
    void documentPickerDidPickDocuments(const QList<QUrl>& urls) override { picks.append(urls); }
    void documentPickerWasCancelled() override { ++cancelled; }

    QList<QList<QUrl>> picks;
    int cancelled = 0;
};

class DocumentPickerTest : public ScreenFixture {
  protected:
    // A picker over the home screen, in the folder `start`.
    std::shared_ptr<UIDocumentPickerViewController> show(const DocumentServices& with,
                                                         const QString& type,
                                                         const char* memoryKey,
                                                         const fs::path& start) {
        memory.setValue(memoryKey, QByteArray::fromStdString(start.string()));
        home_ = home_ ? home_ : showHome();
        const bool several = type == "public.item";
        auto picker = makeController<UIDocumentPickerViewController>(
            services.ui, with, QStringList{type}, several);
        picker->setDelegate(delegate);
        home_->present(picker, true);
        return picker;
    }
    std::shared_ptr<UIDocumentPickerViewController> showFiles(const fs::path& start) {
        auto picker = show(services.documents, "public.item", "LastFileFolder", start);
        settle();
        return picker;
    }
    void press(int key, const QString& text = {}, Qt::KeyboardModifiers with = {}) {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, with, text);
            QCoreApplication::sendEvent(&window, &event);
        }
        settle();
    }
    // The name of the row that has the keyboard, and shows it.
    [[nodiscard]] QString focused() const {
        const QQuickItem* const item = window.activeFocusItem();
        const bool isShown =
            item != nullptr && item->property("focusReason").toInt() == Qt::ShortcutFocusReason;
        return isShown ? item->property("name").toString() : QString();
    }
    static QStringList names(UIDocumentPickerViewController& picker) {
        QStringList names;
        for (int row = 0; row < picker.model()->rowCount(); ++row) {
            names.append(
                picker.model()->data(picker.model()->index(row), FolderModel::kName).toString());
        }
        return names;
    }
    [[nodiscard]] static bool shows(const QQuickItem& item, const QString& text) {
        const auto children = item.childItems();
        return (item.isVisible() && item.property("text").toString() == text) ||
               std::any_of(children.begin(), children.end(), [&text](const QQuickItem* child) {
                   return shows(*child, text);
               });
    }

    const std::shared_ptr<PickDelegate> delegate = std::make_shared<PickDelegate>();

  private:
    std::shared_ptr<ViewController> home_;
};

TEST_F(DocumentPickerTest, KeepsTheSelectionAcrossFoldersAndImportsItOnce) {
    fs::create_directories(folder / "in" / "inner");
    writeFile(folder / "in" / "beach.jpg", "one");
    writeFile(folder / "in" / "inner" / "Beach.jpg", "two");
    const auto picker = showFiles(folder / "in");
    ASSERT_EQ(names(*picker), (QStringList{"inner", "beach.jpg"}));
    EXPECT_FALSE(picker->canConfirm());
    picker->rowTapped(1);
    picker->rowTapped(0);
    settle();
    picker->rowTapped(0);
    EXPECT_EQ(picker->confirmTitle(), "Add (2)");
    EXPECT_TRUE(waitUntil([&] { return shows(picker->view(), "Remove beach.jpg"); }));
    picker->confirmTapped();
    picker->confirmTapped();
    picker->rowTapped(0);
    settle();
    picker->confirmTapped();
    picker->cancelTapped();
    settle();
    ASSERT_EQ(delegate->picks.size(), 1);
    EXPECT_EQ(delegate->cancelled, 0);
    ASSERT_EQ(delegate->picks[0].size(), 2);
    EXPECT_EQ(delegate->picks[0][0].fileName(), "beach.jpg");
    EXPECT_EQ(delegate->picks[0][1].fileName(), "Beach (2).jpg");
    EXPECT_EQ(readText(*localPath(delegate->picks[0][1])), "two");
    EXPECT_EQ(memory.value("LastFileFolder").toByteArray().toStdString(), folder / "in" / "inner");
}

// The second click of a double one on a folder picked the file that had come into its place, and on
// a file it took the selection back.
TEST_F(DocumentPickerTest, ADoubleClickIsOne) {
    fs::create_directories(folder / "in" / "album");
    writeFile(folder / "in" / "album" / "photo.jpg", "one");
    const auto picker = showFiles(folder / "in");
    auto* const list = outlet<QQuickItem>(picker->view(), "documents");
    EXPECT_TRUE(waitUntil([&] { return shows(*list, "album"); }));
    const QPointF place = list->mapToScene({list->width() / 2, 20});
    const auto send = [&](QEvent::Type type) {
        const auto held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, place, place, Qt::LeftButton, held, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &event);
    };
    const auto click = [&] {
        send(QEvent::MouseButtonPress);
        send(QEvent::MouseButtonRelease);
    };
    const auto clickAgain = [&] {
        send(QEvent::MouseButtonPress);
        send(QEvent::MouseButtonDblClick);
        send(QEvent::MouseButtonRelease);
    };
    click();
    EXPECT_TRUE(waitUntil([&] { return shows(*list, "photo.jpg"); }));
    clickAgain();
    EXPECT_EQ(picker->model()->folder(), folder / "in" / "album");
    EXPECT_EQ(picker->picked()->count(), 0);
    click();
    clickAgain();
    EXPECT_EQ(picker->picked()->count(), 1);
}

TEST_F(DocumentPickerTest, BeginsWhereTheSameKindWasPickedLast) {
    fs::create_directories(folder / "archives");
    fs::create_directories(folder / "files");
    memory.setValue("LastFileFolder", QByteArray::fromStdString(folder / "files"));
    auto picker =
        show(services.documents, "public.zip-archive", "LastArchiveFolder", folder / "archives");
    settle();
    EXPECT_EQ(picker->model()->folder(), folder / "archives");
    EXPECT_EQ(picker->way().last(), "archives");
    picker->stepTapped(static_cast<int>(picker->way().size()) - 2);
    EXPECT_EQ(picker->model()->folder(), folder.path());
    picker->cancelTapped();
    picker = showFiles(folder / "gone");
    EXPECT_EQ(picker->placeNames().value(picker->currentPlace()), "Home") << "as that is gone";
    picker->cancelTapped();
    EXPECT_EQ(delegate->cancelled, 2);
}

TEST_F(DocumentPickerTest, MakesAFolderToSaveInto) {
    const auto picker = show(services.documents, "public.folder", "LastSaveFolder", folder.path());
    settle();
    const auto make = [&](const QString& name) {
        picker->newFolderTapped();
        const auto alert = presented<UIAlertController>();
        ASSERT_TRUE(alert);
        alert->setText(name);
        alert->choose(0);
        settle();
    };
    make("  ");
    EXPECT_EQ(picker->model()->folder(), folder.path());
    make("New one");
    EXPECT_EQ(picker->model()->folder(), folder / "New one");
    picker->upTapped();
    settle();
    EXPECT_GE(picker->model()->rowOf("New one"), 0);
    make("New one");
    EXPECT_EQ(picker->model()->folder(), folder / "New one") << "as it is there already";
    picker->confirmTapped();
    picker->confirmTapped();
    ASSERT_EQ(delegate->picks.size(), 1);
    EXPECT_EQ(delegate->picks[0], QList<QUrl>{fileUrl(folder / "New one")});
}

TEST_F(DocumentPickerTest, ObeysTheKeyboard) {
    fs::create_directories(folder / "in" / "album");
    for (const char* const name : {"b1", "b2", "c"}) {
        writeFile(folder / "in" / name, name);
    }
    const auto picker = showFiles(folder / "in");
    press(Qt::Key_Down);
    EXPECT_EQ(focused(), "album");
    press(Qt::Key_Return);
    EXPECT_EQ(picker->model()->folder(), folder / "in" / "album");
    press(Qt::Key_Backspace);
    EXPECT_EQ(focused(), "album") << "where the keyboard was";
    press(Qt::Key_End);
    EXPECT_EQ(focused(), "c");
    press(Qt::Key_B, "b");
    EXPECT_EQ(focused(), "b1");
    press(Qt::Key_B, "b");
    EXPECT_EQ(focused(), "b2");
    press(Qt::Key_Home);
    press(Qt::Key_PageDown);
    EXPECT_EQ(focused(), "c");
    press(Qt::Key_Up);
    press(Qt::Key_Return);
    EXPECT_EQ(picker->picked()->count(), 1);
    press(Qt::Key_A, QString(QChar(1)), Qt::ControlModifier);
    EXPECT_EQ(picker->picked()->count(), 3);
    press(Qt::Key_Escape);
    EXPECT_EQ(delegate->cancelled, 1);
    EXPECT_TRUE(delegate->picks.isEmpty());
}

TEST_F(DocumentPickerTest, AFolderThatHangsHoldsUpNothing) {
    if (const std::string reason = StoppableFolder::whyNot(); !reason.empty()) {
        GTEST_SKIP() << reason;
    }
    fs::create_directories(folder / "real" / "deep");
    fs::create_directories(folder / "home" / "nas");
    writeFile(folder / "home" / "notes.txt", "text");
    fs::create_symlink("nas/deep", folder / "home" / "shortcut");
    fs::create_symlink("notes.txt", folder / "home" / "also.txt");
    MainDispatchQueue ownMainQueue;
    GlobalDispatchQueue folderQueue(0, 8);
    const StoppableFolder nas(folder / "real", folder / "home" / "nas");
    FolderQueue ownFolders(folderQueue);
    DocumentServices documents{inbox, ownMainQueue, folderQueue, ownFolders, memory};
    nas.stop();
    const auto picker = show(documents, "public.item", "LastFileFolder", nas.path());
    QElapsedTimer turn;
    qint64 longest = 0;
    const auto isSpokenOf = [&] {
        longest = std::max(longest, turn.isValid() ? turn.elapsed() : 0);
        turn.start();
        return shows(picker->view(), QStringLiteral("Reading the folder…"));
    };
    EXPECT_TRUE(waitUntil(isSpokenOf));
    EXPECT_LT(longest, 1000) << "the window answers meanwhile";
    picker->upTapped();
    // The folder that hangs is listed without a look into it, and of the links only the one that
    // leads there is left for later.
    EXPECT_TRUE(waitUntil([&] { return picker->model()->rowCount() > 2; }));
    EXPECT_EQ(names(*picker), (QStringList{"nas", "also.txt", "notes.txt"}));
    EXPECT_TRUE(picker->model()->isLoading());
    for (int i = 0; i < 3; ++i) {
        picker->rowTapped(0);
        EXPECT_EQ(picker->model()->folder(), nas.path());
        picker->upTapped();
        EXPECT_TRUE(waitUntil([&] { return picker->model()->rowCount() > 0; }));
    }
    nas.goOn();
    EXPECT_TRUE(waitUntil([&] { return !picker->model()->isLoading(); }));
    EXPECT_EQ(names(*picker), (QStringList{"nas", "shortcut", "also.txt", "notes.txt"}));
    nas.stop();
    picker->rowTapped(0);
    picker->cancelTapped();
    EXPECT_EQ(delegate->cancelled, 1);
}

}  // namespace
}  // namespace pellumar::test
