#include "platform/look/Look.h"

#include <QQmlComponent>
#include <memory>

#include "platform/look/IconProvider.h"

namespace pellumar {

void installIcons(QQmlEngine& engine) {
    engine.addImageProvider(QStringLiteral("icon"), new IconProvider);
}

void applyLook(QQmlEngine& engine, const LookSettings& settings) {
    QQmlComponent component(&engine,
                            QUrl("qrc:/qt-project.org/imports/Pellumar/Look/ThemeAccess.qml"));
    const std::unique_ptr<QObject> access(component.create());
    if (access == nullptr) {
        qFatal("The theme is broken: %s", qUtf8Printable(component.errorString()));
    }
    auto* theme = access->property("theme").value<QObject*>();
    theme->setProperty("dark", settings.isDark);
    theme->setProperty("still", settings.isStill);
    theme->setProperty("textScale", settings.textScale);
}

}  // namespace pellumar
