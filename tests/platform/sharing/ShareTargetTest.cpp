#include "platform/sharing/ShareTarget.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <QClipboard>
#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QGuiApplication>
#include <QMimeData>
#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/FileUrl.h"
#include "platform/bus/BusService.h"
#include "platform/bus/WaitUntil.h"
#include "platform/sharing/ActivityType.h"
#include "platform/sharing/DesktopTargets.h"
#include "support/FileContents.h"
#include "support/TemporaryFolder.h"

namespace pellumar::test {
namespace {

namespace fs = std::filesystem;

constexpr uint kSuccess = 0;
constexpr uint kCancelled = 1;

std::string contentOf(const QDBusUnixFileDescriptor& file) {
    std::array<char, 100> buffer{};
    const ssize_t count = ::pread(file.fileDescriptor(), buffer.data(), buffer.size(), 0);
    return {buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0))};
}

// A portal whose user answers at once, before the call itself has been answered.
class AskingPortal : public BusService {
  public:
    explicit AskingPortal(uint response)
        : BusService("org.freedesktop.portal.Desktop",
                     [this, response](const Call& call) -> std::optional<QVariantList> {
                         const auto options = qdbus_cast<QVariantMap>(call.arguments.last());
                         const QString path = "/org/freedesktop/portal/desktop/request/" +
                                              QString(call.sender).remove(':').replace('.', '_') +
                                              '/' + options.value("handle_token").toString();
                         emitSignal(path,
                                    "org.freedesktop.portal.Request",
                                    "Response",
                                    {response, QVariantMap()});
                         return {{QVariant::fromValue(QDBusObjectPath(path))}};
                     }) {}
};

class ShareTargetTest : public testing::Test {
    Q_DISABLE_COPY_MOVE(ShareTargetTest)

  public:
    ~ShareTargetTest() override { qputenv("PATH", path); }

  protected:
    ShareTargetTest() {
        fs::create_directories(folder / "bin");
        fs::create_directories(folder / "tree");
        writeFile(folder / "a b.zip", "first");
        writeFile(folder / "grün.zip", "second");
        writeFile(folder / "caf\xe9.zip", "third");
        qputenv("PATH", (folder / "bin").c_str());
    }

    // Puts a program in the PATH that writes its arguments, one a line, and moves them to NAME.out
    // when it is done.
    void install(const std::string& name) {
        const fs::path out = folder / (name + ".out");
        writeFile(folder / "bin" / name,
                  "#!/bin/sh\nprintf '%s\\n' \"$@\" > '" + out.string() + ".part'\n/bin/mv '" +
                      out.string() + ".part' '" + out.string() + "'\n");
        fs::permissions(folder / "bin" / name, fs::perms(0755));
    }
    [[nodiscard]] std::string argumentsOf(const std::string& name) {
        const fs::path out = folder / (name + ".out");
        return waitUntil([&out] { return fs::exists(out); }) ? readText(out) : "not started";
    }
    [[nodiscard]] QList<QUrl> files(const std::vector<std::string>& names) const {
        QList<QUrl> urls;
        for (const std::string& name : names) {
            urls.append(fileUrl(folder / name));
        }
        return urls;
    }
    [[nodiscard]] static ShareTarget target(const QString& type) {
        for (const ShareTarget& each : desktopTargets()) {
            if (each.activityType == type) {
                return each;
            }
        }
        return {};
    }
    [[nodiscard]] static QStringList offered(const QList<QUrl>& urls) {
        QStringList types;
        const ItemSummary summary = ItemSummary::of(urls);
        for (const ShareTarget& each : desktopTargets()) {
            if (each.canPerform(summary)) {
                types.append(each.activityType);
            }
        }
        return types;
    }
    // What came of it; it is over when this returns.
    [[nodiscard]] static ShareTarget::Result perform(const QString& type, const QList<QUrl>& urls) {
        int answers = 0;
        ShareTarget::Result result;
        target(type).perform(urls, [&](const ShareTarget::Result& answer) {
            ++answers;
            result = answer;
        });
        EXPECT_TRUE(waitUntil([&answers] { return answers > 0; }));
        EXPECT_FALSE(waitUntil([&answers] { return answers > 1; }, std::chrono::milliseconds(20)));
        return result;
    }

    TemporaryFolder folder;
    QByteArray path = qgetenv("PATH");
};

TEST_F(ShareTargetTest, OffersOnlyWhatWorksHere) {
    const QList<QUrl> one = files({"a b.zip"});
    EXPECT_EQ(offered(one), (QStringList{activity::kOpenWith, activity::kCopy}));
    for (const char* program : {"xdg-email", "bluetooth-sendto", "kdeconnect-handler"}) {
        install(program);
    }
    const BusService fileManager("org.freedesktop.FileManager1",
                                 [](const BusService::Call&) { return QVariantList(); });
    EXPECT_EQ(offered(one),
              (QStringList{activity::kOpenWith,
                           activity::kMail,
                           activity::kBluetooth,
                           activity::kPhone,
                           activity::kCopy,
                           activity::kShowInFiles}));
    // Of two, one at a time would be lost.
    EXPECT_EQ(offered(files({"a b.zip", "grün.zip"})),
              (QStringList{
                  activity::kMail, activity::kBluetooth, activity::kCopy, activity::kShowInFiles}));
    EXPECT_EQ(offered(files({"a b.zip", "tree"})),
              (QStringList{activity::kCopy, activity::kShowInFiles}));
}

TEST_F(ShareTargetTest, PortalAttachesTheFilesThemselves) {
    qDBusRegisterMetaType<QList<QDBusUnixFileDescriptor>>();
    const AskingPortal portal(kSuccess);
    const QList<QUrl> urls = files({"a b.zip", "caf\xe9.zip"});
    ASSERT_TRUE(target(activity::kMail).canPerform(ItemSummary::of(urls)));
    EXPECT_TRUE(perform(activity::kMail, urls).isCompleted);
    ASSERT_EQ(portal.calls().size(), 1);
    const BusService::Call& call = portal.calls().first();
    EXPECT_EQ(call.method, "org.freedesktop.portal.Email.ComposeEmail");
    const auto options = qdbus_cast<QVariantMap>(call.arguments.value(1));
    const auto attached =
        qdbus_cast<QList<QDBusUnixFileDescriptor>>(options.value("attachment_fds"));
    ASSERT_EQ(attached.size(), 2);
    EXPECT_EQ(contentOf(attached[0]), "first");
    EXPECT_EQ(contentOf(attached[1]), "third");
}

TEST_F(ShareTargetTest, MailGoesByProgramWithoutAPortal) {
    install("xdg-email");
    EXPECT_TRUE(perform(activity::kMail, files({"a b.zip", "grün.zip"})).isCompleted);
    EXPECT_EQ(argumentsOf("xdg-email"),
              "--attach\n" + (folder / "a b.zip").string() + "\n--attach\n" +
                  (folder / "grün.zip").string() + "\n");
}

TEST_F(ShareTargetTest, OpensAnyFileThroughThePortalAndSaysIfTheUserWouldNot) {
    std::optional<AskingPortal> portal(kSuccess);
    EXPECT_TRUE(perform(activity::kOpenWith, files({"caf\xe9.zip"})).isCompleted);
    ASSERT_EQ(portal->calls().size(), 1);
    EXPECT_EQ(portal->calls().first().method, "org.freedesktop.portal.OpenURI.OpenFile");
    EXPECT_EQ(
        contentOf(portal->calls().first().arguments.value(1).value<QDBusUnixFileDescriptor>()),
        "third");
    // In a sandbox, it could otherwise not save what it has changed.
    EXPECT_TRUE(qdbus_cast<QVariantMap>(portal->calls().first().arguments.value(2))
                    .value("writable")
                    .toBool());
    portal.reset();
    portal.emplace(kCancelled);
    const ShareTarget::Result result = perform(activity::kOpenWith, files({"a b.zip"}));
    EXPECT_FALSE(result.isCompleted);
    EXPECT_EQ(result.error, QString());
}

TEST_F(ShareTargetTest, PortalThatEndsMeanwhileIsNoWaitForEver) {
    auto portal = std::make_unique<BusService>(
        "org.freedesktop.portal.Desktop",
        [](const BusService::Call&) -> std::optional<QVariantList> {
            return {{QVariant::fromValue(QDBusObjectPath("/request"))}};
        });
    std::optional<ShareTarget::Result> result;
    target(activity::kOpenWith)
        .perform(files({"a b.zip"}),
                 [&result](const ShareTarget::Result& answer) { result = answer; });
    ASSERT_TRUE(waitUntil([&portal] { return !portal->calls().isEmpty(); }));
    portal.reset();
    EXPECT_TRUE(waitUntil([&result] { return result.has_value(); }));
    EXPECT_FALSE(result->isCompleted);
}

TEST_F(ShareTargetTest, ProgramsGetEveryFile) {
    install("bluetooth-sendto");
    install("kdeconnect-handler");
    EXPECT_TRUE(perform(activity::kBluetooth, files({"a b.zip", "grün.zip"})).isCompleted);
    EXPECT_EQ(argumentsOf("bluetooth-sendto"),
              (folder / "a b.zip").string() + "\n" + (folder / "grün.zip").string() + "\n");
    EXPECT_TRUE(perform(activity::kPhone, files({"a b.zip"})).isCompleted);
    EXPECT_EQ(argumentsOf("kdeconnect-handler"),
              files({"a b.zip"}).first().toEncoded().toStdString() + "\n");
}

TEST_F(ShareTargetTest, FileManagerGetsAddressesOfAnyName) {
    const BusService fileManager("org.freedesktop.FileManager1",
                                 [](const BusService::Call&) { return QVariantList(); });
    const QList<QUrl> urls = files({"caf\xe9.zip", "tree"});
    EXPECT_TRUE(perform(activity::kShowInFiles, urls).isCompleted);
    // Some file managers open a window for each.
    const QList<QUrl> many(3000, urls.first());
    EXPECT_TRUE(perform(activity::kShowInFiles, many).isCompleted);
    ASSERT_EQ(fileManager.calls().size(), 2);
    EXPECT_TRUE(fileManager.calls().first().method.endsWith(".ShowItems"));
    EXPECT_EQ(fileManager.calls().first().arguments.value(0).toStringList(),
              (QStringList{urls[0].toEncoded(), urls[1].toEncoded()}));
    EXPECT_TRUE(fileManager.calls().last().method.endsWith(".ShowFolders"));
    EXPECT_EQ(fileManager.calls().last().arguments.value(0).toStringList(),
              QStringList(fileUrl(folder / "").toEncoded()));
}

TEST_F(ShareTargetTest, ClipboardServesFileManagersAndTerminals) {
    const QList<QUrl> urls = files({"a b.zip", "caf\xe9.zip"});
    EXPECT_TRUE(perform(activity::kCopy, urls).isCompleted);
    const QMimeData* const content = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(content->urls(), urls);
    EXPECT_EQ(content->data("x-special/gnome-copied-files"),
              "copy\n" + urls[0].toEncoded() + '\n' + urls[1].toEncoded());
    EXPECT_TRUE(content->text().startsWith(QString::fromStdString(folder / "a b.zip") + '\n'));
}

}  // namespace
}  // namespace pellumar::test
