#include "platform/look/Look.h"

#include "platform/look/IconProvider.h"

void qml_register_types_Pellumar_Look();

namespace pellumar {

void registerLook() {
    qml_register_types_Pellumar_Look();
}

void installIcons(QQmlEngine& engine) {
    engine.addImageProvider(QStringLiteral("icon"), new IconProvider);
}

void applyLook(QQmlEngine& engine, const LookSettings& settings) {
    const int type = qmlTypeId("Pellumar.Look", 1, 0, "Theme");
    auto* theme = engine.singletonInstance<QObject*>(type);
    if (theme == nullptr) {
        qFatal("The theme is missing.");
    }
    theme->setProperty("dark", settings.isDark);
    theme->setProperty("still", settings.isStill);
    theme->setProperty("textScale", settings.textScale);
}

}  // namespace pellumar
