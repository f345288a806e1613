#include "platform/desktop/Appearance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QGuiApplication>
#include <QPalette>
#include <algorithm>
#include <cmath>
#include <tuple>

namespace pellumar {
namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString kAppearance = QStringLiteral("org.freedesktop.appearance");
const QString kColorScheme = QStringLiteral("color-scheme");
const QString kDesktop = QStringLiteral("org.gnome.desktop.interface");
const QString kAnimations = QStringLiteral("enable-animations");
const QString kTextScale = QStringLiteral("text-scaling-factor");
// The portal's color-scheme: 1 dark, 2 light; all else is no preference.
constexpr uint kPrefersDark = 1;
constexpr uint kPrefersLight = 2;

bool isPaletteDark() {
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::Window).lightness() <
           palette.color(QPalette::WindowText).lightness();
}

bool isDarkWith(uint colorScheme) {
    return colorScheme == kPrefersDark || (colorScheme != kPrefersLight && isPaletteDark());
}

// What is no size at all counts as the normal one.
qreal boundedScale(qreal scale) {
    return std::isfinite(scale) && scale > 0 ? std::clamp(scale, 0.5, 3.0) : 1;
}

}  // namespace

Appearance::Appearance() : isDark_(isPaletteDark()) {
    takeEnvironment();
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return;
    }
    // A slot with an unknown type is not connected.
    qRegisterMetaType<QDBusVariant>();
    bus.connect(kService,
                kPath,
                kInterface,
                QStringLiteral("SettingChanged"),
                this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    ask(kAppearance, kColorScheme);
    ask(kDesktop, kAnimations);
    ask(kDesktop, kTextScale);
}

void Appearance::ask(const QString& group, const QString& key) {
    QDBusMessage call =
        QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("Read"));
    call << group << key;
    auto* const answer =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer, group, key] {
        answer->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (!reply.isError()) {
            take(group, key, reply.value().variant());
        }
    });
}

void Appearance::settingChanged(const QString& group,
                                const QString& key,
                                const QDBusVariant& value) {
    take(group, key, value.variant());
}

void Appearance::take(const QString& group, const QString& key, QVariant value) {
    // The portal's Read wraps its values twice.
    if (value.canConvert<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    const auto before = std::tuple(isDark_, isStill_, textScale_);
    if (group == kAppearance && key == kColorScheme) {
        isDark_ = isDarkWith(value.toUInt());
    } else if (group == kDesktop && key == kAnimations) {
        isStill_ = !value.toBool();
    } else if (group == kDesktop && key == kTextScale) {
        textScale_ = boundedScale(value.toDouble());
    }
    takeEnvironment();
    if (before != std::tuple(isDark_, isStill_, textScale_)) {
        emit changed();
    }
}

void Appearance::takeEnvironment() {
    if (qEnvironmentVariableIsSet("PELLUMAR_APPEARANCE")) {
        isDark_ = qgetenv("PELLUMAR_APPEARANCE") == "dark";
    }
    if (qEnvironmentVariableIsSet("PELLUMAR_REDUCED_MOTION")) {
        isStill_ = qgetenv("PELLUMAR_REDUCED_MOTION") != "0";
    }
    if (qEnvironmentVariableIsSet("PELLUMAR_TEXT_SCALE")) {
        textScale_ = boundedScale(qgetenv("PELLUMAR_TEXT_SCALE").toDouble());
    }
}

}  // namespace pellumar
