#include "platform/desktop/Appearance.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QMap>
#include <QPalette>

#include "platform/bus/BusService.h"
#include "platform/bus/WaitUntil.h"

namespace pellumar::test {
namespace {

const QString kPath = "/org/freedesktop/portal/desktop";
const QString kInterface = "org.freedesktop.portal.Settings";

// The portal with these settings, by "group key"; it knows no others.
class SettingsPortal : public BusService {
  public:
    explicit SettingsPortal(const QMap<QString, QVariant>& settings)
        : BusService("org.freedesktop.portal.Desktop",
                     [settings](const Call& call) -> std::optional<QVariantList> {
                         const QString key = call.arguments.value(0).toString() + ' ' +
                                             call.arguments.value(1).toString();
                         if (call.method != kInterface + ".Read" || !settings.contains(key)) {
                             return std::nullopt;
                         }
                         // Wrapped twice, as the real one does it.
                         return {{QVariant::fromValue(QDBusVariant(
                             QVariant::fromValue(QDBusVariant(settings.value(key)))))}};
                     }) {}

    void change(const QString& group, const QString& key, const QVariant& value) {
        emitSignal(kPath,
                   kInterface,
                   "SettingChanged",
                   {group, key, QVariant::fromValue(QDBusVariant(value))});
    }
};

TEST(AppearanceTest, FollowsThePortalFromTheFirstAnswerOn) {
    SettingsPortal portal({{"org.freedesktop.appearance color-scheme", 1U},
                           {"org.gnome.desktop.interface enable-animations", false},
                           {"org.gnome.desktop.interface text-scaling-factor", 1.5}});
    const Appearance appearance;
    EXPECT_FALSE(appearance.isDark());
    EXPECT_TRUE(waitUntil([&appearance] {
        return appearance.isDark() && appearance.isStill() && appearance.textScale() == 1.5;
    }));

    portal.change("org.freedesktop.appearance", "color-scheme", 2U);
    portal.change("org.gnome.desktop.interface", "enable-animations", true);
    portal.change("org.gnome.desktop.interface", "text-scaling-factor", 40.0);
    EXPECT_TRUE(waitUntil([&appearance] {
        return !appearance.isDark() && !appearance.isStill() && appearance.textScale() == 3;
    }));
}

TEST(AppearanceTest, TakesThePaletteWhereThePortalHasNoWish) {
    const QPalette before = QGuiApplication::palette();
    QGuiApplication::setPalette(QPalette(Qt::white, Qt::black));
    SettingsPortal portal({{"org.freedesktop.appearance color-scheme", 0U}});
    const Appearance appearance;
    EXPECT_TRUE(appearance.isDark());
    int changes = 0;
    QObject::connect(&appearance, &Appearance::changed, [&changes] { ++changes; });
    portal.change("org.gnome.desktop.interface", "text-scaling-factor", 2.0);
    EXPECT_TRUE(waitUntil([&appearance] { return appearance.textScale() == 2; }));
    EXPECT_TRUE(appearance.isDark());
    EXPECT_EQ(changes, 1);
    QGuiApplication::setPalette(before);
}

TEST(AppearanceTest, EnvironmentOverrulesThePortal) {
    qputenv("PELLUMAR_APPEARANCE", "dark");
    qputenv("PELLUMAR_REDUCED_MOTION", "1");
    qputenv("PELLUMAR_TEXT_SCALE", "nan");
    SettingsPortal portal({});
    const Appearance appearance;
    EXPECT_TRUE(appearance.isDark());
    EXPECT_TRUE(appearance.isStill());
    EXPECT_EQ(appearance.textScale(), 1);
    qunsetenv("PELLUMAR_TEXT_SCALE");
    portal.change("org.freedesktop.appearance", "color-scheme", 2U);
    portal.change("org.gnome.desktop.interface", "text-scaling-factor", 2.0);
    EXPECT_TRUE(waitUntil([&appearance] { return appearance.textScale() == 2; }));
    EXPECT_TRUE(appearance.isDark());
    qunsetenv("PELLUMAR_APPEARANCE");
    qunsetenv("PELLUMAR_REDUCED_MOTION");
}

}  // namespace
}  // namespace pellumar::test
