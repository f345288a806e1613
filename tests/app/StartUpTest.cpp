#include "app/AppDelegate.h"
#include "app/MainInterface.h"
#include "app/OnboardingViewController.h"
#include "app/SettingsViewController.h"
#include "gui/ScreenFixture.h"
#include "support/FileContents.h"

namespace pellumar::test {
namespace {

// Has nothing, and never answers.
class SilentRemoteConfig : public FIRRemoteConfig {
  public:
    void fetchWithExpirationDuration(std::chrono::seconds /*duration*/,
                                     FetchHandler /*handler*/) override {}
    void activateWithCompletion(ActivationHandler /*completion*/) override {}
    [[nodiscard]] RemoteConfigValue objectForKeyedSubscript(const QString& /*key*/) const override {
        return {};
    }
    [[nodiscard]] QSet<QString> keysWithPrefix(const QString& /*prefix*/) const override {
        return {};
    }
};

class RecordingOpener : public UrlOpener {
  public:
    void open(const QUrl& url) override { opened.append(url); }
    QList<QUrl> opened;
};

class StartUpTest : public ScreenFixture {
  protected:
    StartUpTest() {
        storyboard.addScene("ViewController",
                            [this] { return makeController<ViewController>(services, launches); });
        storyboard.addScene("OnboardingViewController", [this] {
            return makeController<OnboardingViewController>(services.ui, settings, analytics);
        });
        storyboard.addScene("SettingsViewController", [this] {
            return makeController<SettingsViewController>(
                services.ui, settings, analytics, links, opener, usageData());
        });
        storyboard.setInitialScene("ViewController");
        delegate->setWindow(&window);
    }

    template <typename Screen>
    std::shared_ptr<Screen> root() {
        return std::dynamic_pointer_cast<Screen>(window.rootViewController());
    }

    UsageDataSource usageData() {
        return {[this] { return usageLines; }, backgroundQueue, mainQueue};
    }

    RecordingOpener opener;
    std::optional<QByteArray> usageLines;
    bool hasStore = true;
    const OutboundLinks links{{}, [this] { return hasStore; }};
    UIStoryboard storyboard;
    bool areServicesConfigured = false;
    const std::shared_ptr<RemoteSettings> remoteSettings =
        std::make_shared<RemoteSettings>(std::make_shared<SilentRemoteConfig>(), console);
    ABTests experiments{*remoteSettings, events, console};
    std::shared_ptr<AppDelegate> delegate = std::make_shared<AppDelegate>(
        AppDelegate::Environment{services.ui, storyboard, settings, fileSystem, console, [this] {
                                     areServicesConfigured = true;
                                     return AppDelegate::Remote{experiments, *remoteSettings};
                                 }});
};

TEST_F(StartUpTest, FirstRunShowsTheOnboardingWhichCountsAsSeenAtOnce) {
    writeFile(folder / "Documents" / "outputs" / "old.zip", "old");
    window.resize(360, 568);
    EXPECT_TRUE(delegate->applicationDidFinishLaunching());
    EXPECT_TRUE(areServicesConfigured);
    EXPECT_FALSE(std::filesystem::exists(folder / "Documents" / "outputs" / "old.zip"));
    EXPECT_EQ(console.lines().last(),
              "PLEASE UNIVERSE! MAKE THIS APP VISIBLE AND USED BY MOST PEOPLE OF THIS WORLD! MAKE "
              "IT A SUCCESS!");

    const auto onboarding = root<OnboardingViewController>();
    ASSERT_TRUE(onboarding);
    EXPECT_TRUE(flag("ONBOARDING_KEY"));
    EXPECT_EQ(outlet<NSLayoutConstraint>(onboarding->view(), "topConstraint")->constant(), 16);
    EXPECT_EQ(outlet<QQuickItem>(onboarding->view(), "logoContainerView")->opacity(), 1);
    onboarding->okTapped();
    EXPECT_TRUE(root<UITabBarController>());
    EXPECT_EQ(eventNames(), (QStringList{"started_tutorial", "finished_tutorial"}));
}

TEST_F(StartUpTest, LaterRunsShowTheTabs) {
    defaults.setBool(true, "ONBOARDING_KEY");
    EXPECT_TRUE(delegate->applicationDidFinishLaunching());
    const auto tabs = root<UITabBarController>();
    ASSERT_TRUE(tabs);
    EXPECT_EQ(tabs->titles(), (QStringList{"Zip/Unzip", "Settings"}));
    EXPECT_EQ(tabs->images(), (QStringList{"zipIcon", "settings"}));
    EXPECT_EQ(tabs->selectedIndex(), 0);
    EXPECT_EQ(tabs->standardAppearance(), tabs->scrollEdgeAppearance());
    EXPECT_TRUE(tabs->hasOpaqueBar());
}

TEST_F(StartUpTest, BarsAreStyledFromVersion15On) {
    UIContext old = services.ui;
    old.device.systemVersion = 14.9;
    const auto tabs =
        std::dynamic_pointer_cast<UITabBarController>(makeMainInterface(old, storyboard));
    ASSERT_TRUE(tabs);
    window.setRootViewController(tabs);
    const auto stack =
        std::dynamic_pointer_cast<UINavigationController>(tabs->selectedViewController());
    ASSERT_TRUE(stack);
    EXPECT_FALSE(tabs->standardAppearance());
    EXPECT_FALSE(stack->standardAppearance());

    const UIStoryboard empty;
    EXPECT_FALSE(makeMainInterface(services.ui, empty));
}

TEST_F(StartUpTest, TakesWhatIsNamedZipInSmallLetters) {
    for (const char* name : {"photos.zip", "notes.zip.bak", "my.zipper.pdf", "folder.zip/"}) {
        EXPECT_TRUE(delegate->applicationOpen(QUrl::fromLocalFile(QString("/x/") + name))) << name;
        EXPECT_EQ(AppFileOpener::url(), QUrl::fromLocalFile(QString("/x/") + name));
    }
    AppFileOpener::setUrl(std::nullopt);
    EXPECT_FALSE(delegate->applicationOpen(QUrl::fromLocalFile("/x.zip/PHOTOS.ZIP")));
    EXPECT_EQ(AppFileOpener::url(), std::nullopt);
}

TEST_F(StartUpTest, SettingsSwitchDecidesAboutEvents) {
    defaults.setBool(true, "ONBOARDING_KEY");
    delegate->applicationDidFinishLaunching();
    const auto tabs = root<UITabBarController>();
    ASSERT_TRUE(tabs);
    tabs->select(1);
    const auto stack =
        std::dynamic_pointer_cast<UINavigationController>(tabs->selectedViewController());
    ASSERT_TRUE(stack);
    const auto settingsScreen =
        std::dynamic_pointer_cast<SettingsViewController>(stack->topViewController());
    ASSERT_TRUE(settingsScreen);
    auto* const usage = outlet<QQuickItem>(settingsScreen->view(), "usageSwitch");
    EXPECT_TRUE(usage->property("checked").toBool());
    QMetaObject::invokeMethod(outlet<QQuickItem>(settingsScreen->view(), "developerRow"),
                              "clicked");
    EXPECT_EQ(eventNames(), QStringList{"developer_tapped"});

    usage->setProperty("checked", false);
    settingsScreen->appUsageSwitchChanged();
    settingsScreen->didSelectRow(SettingsViewController::kDeveloperRow);
    settingsScreen->didSelectRow(SettingsViewController::kUsageDataRow);
    EXPECT_EQ(eventNames().size(), 1);
    EXPECT_FALSE(flag("SEND_USAGE_DATA"));
    EXPECT_EQ(opener.opened.size(), 2);

    usage->setProperty("checked", true);
    tabs->select(0);
    tabs->select(1);
    EXPECT_FALSE(usage->property("checked").toBool());
}

TEST_F(StartUpTest, TheSwitchStandsWhereItBelongsWhenTheSettingsAppear) {
    const auto screen = makeController<SettingsViewController>(
        services.ui, settings, analytics, links, opener, usageData());
    auto* const usage = outlet<QQuickItem>(screen->view(), "usageSwitch");
    auto* const knob = outlet<QQuickItem>(*usage, "knob");
    window.setRootViewController(screen);
    window.makeKeyAndVisible();
    const qreal whenOn = knob->x();

    defaults.setBool(false, "SEND_USAGE_DATA");
    window.setRootViewController(nullptr);
    window.setRootViewController(screen);
    const qreal whenOff = knob->x();
    EXPECT_LT(whenOff, whenOn);
    QCoreApplication::processEvents();
    EXPECT_EQ(knob->x(), whenOff);
    // Under the user's finger it slides.
    QMetaObject::invokeMethod(usage, "flip");
    EXPECT_TRUE(flag("SEND_USAGE_DATA"));
    EXPECT_LT(knob->x(), whenOn);
    EXPECT_TRUE(waitUntil([&] { return knob->x() == whenOn; }));
}

TEST_F(StartUpTest, WhatHasBeenKeptIsShownInWords) {
    struct Case {
        std::optional<QByteArray> lines;
        QStringList titles;
        const char* summary;
    };
    const std::vector<Case> cases{
        {std::nullopt, {}, "What has been kept cannot be read."},
        {"", {}, "No event waits to be sent."},
        {R"({"table":"state","user_properties":{"participating_tests":"|1|"}})",
         {"This installation", "No identifier", "Properties, which go with every event"},
         "No event waits to be sent."},
        {R"({"table":"events","name":"tapped_zip","time":0,"parameters":[]}
{"table":"counts","name":"tapped_zip","day":0,"total":1}
{"table":"counts","name":"tapped_zip","day":-1,"total":12}
{"table":"state","installation":"7e57","session_number":3,"last_seen":0}
{"table":"events","name":"evaluated_app","time":0,"parameters":[{"key":"rating","value":{"intValue":"4"}}]})",
         {"This installation",
          "Identifier",
          "Sessions",
          "How often, which is not sent",
          "Zip was tapped",
          "Events",
          "The application was rated",
          "Zip was tapped"},
         "2 events. They stay on this device until they are sent."},
    };
    for (const Case& each : cases) {
        usageLines = each.lines;
        const auto settingsScreen = makeController<SettingsViewController>(
            services.ui, settings, analytics, links, opener, usageData());
        window.setRootViewController(settingsScreen);
        window.makeKeyAndVisible();
        QMetaObject::invokeMethod(outlet<QQuickItem>(settingsScreen->view(), "usageDataButton"),
                                  "clicked");
        const auto sheet = presented<UsageDataViewController>();
        ASSERT_TRUE(sheet);
        // Nothing is read on the way.
        EXPECT_EQ(sheet->summary(), QString());
        settle();
        EXPECT_EQ(sheet->summary(), each.summary);
        QStringList titles;
        QStringList details;
        for (const QVariant& row : sheet->rows()) {
            titles.append(row.toMap()["title"].toString());
            details.append(row.toMap()["detail"].toString());
        }
        EXPECT_EQ(titles, each.titles);
        EXPECT_EQ(outlet<QQuickItem>(sheet->view(), "usageRows")->property("count").toInt(),
                  each.titles.size());
        if (titles.contains("Events")) {
            EXPECT_TRUE(details[1].startsWith("7e57. "));
            EXPECT_EQ(details[4], "12 times");
            EXPECT_TRUE(details[6].endsWith("rating: 4"));
        }
        EXPECT_TRUE(sheet->goBack());
        settle();
    }
}

TEST_F(StartUpTest, TheLinksLeadSomewhere) {
    SettingsViewController screen(services.ui, settings, analytics, links, opener, usageData());
    screen.didSelectRow(SettingsViewController::kDeveloperRow);
    screen.seeMoreTapped();
    hasStore = false;
    screen.didSelectRow(SettingsViewController::kDeveloperRow);
    ASSERT_EQ(opener.opened.size(), 3);
    // An identifier of a component keeps its case, wherever its address goes through.
    EXPECT_EQ(opener.opened[0].toEncoded(), "appstream:org.pellumar.Zip");
    EXPECT_TRUE(opener.opened[1].toLocalFile().endsWith("/share/pellumar-zip/about.html"));
    EXPECT_EQ(opener.opened[2], opener.opened[1]);

    const OutboundLinks chosen({"https://example.org/Zip", "appstream:org.example.More"},
                               [] { return false; });
    EXPECT_EQ(chosen.webPage(), QUrl("https://example.org/Zip"));
    EXPECT_EQ(chosen.developerPage(), chosen.webPage());
}

}  // namespace
}  // namespace pellumar::test
