#include "platform/kit/ViewLoader.h"

#include <QFile>
#include <QGuiApplication>
#include <QQmlProperty>
#include <QVariantMap>

#include "platform/kit/ClassName.h"

namespace pellumar {
namespace {

// Views that are made by layouts, and have one of their own, have nothing else to hold on to.
constexpr const char* kLoaderProperty = "pellumarViewLoader";

}  // namespace

ViewLoader::ViewLoader(QQmlEngine& engine, const QStringList& modules) : engine_(engine) {
    for (QString module : modules) {
        folders_.append(":/qt-project.org/imports/" + module.replace('.', '/') + '/');
    }
    engine.setProperty(kLoaderProperty, QVariant::fromValue(this));
}

ViewLoader& ViewLoader::ofEngineOf(const QQuickItem& item) {
    const QQmlEngine* const engine = qmlEngine(&item);
    auto* const loader =
        engine == nullptr ? nullptr : engine->property(kLoaderProperty).value<ViewLoader*>();
    if (loader == nullptr) {
        qFatal("%s was not made by a layout.", item.metaObject()->className());
    }
    return *loader;
}

QString ViewLoader::layoutFile(const QMetaObject* type) const {
    for (const QMetaObject* each = type; each != nullptr; each = each->superClass()) {
        for (const QString& folder : folders_) {
            const QString file = folder + unqualifiedName(*each) + ".qml";
            if (QFile::exists(file)) {
                return "qrc" + file;
            }
        }
    }
    qFatal("There is no layout for a class.");
}

OwnedItem ViewLoader::load(QObject& owner) {
    const QString file = layoutFile(owner.metaObject());
    std::shared_ptr<QQmlComponent>& component = components_[file];
    if (!component) {
        component = std::make_shared<QQmlComponent>(&engine_, QUrl(file));
    }
    QQmlEngine::setObjectOwnership(&owner, QQmlEngine::CppOwnership);
    const QVariantMap controller{{"controller", QVariant::fromValue(&owner)}};
    auto* item = component->isReady()
                     ? qobject_cast<QQuickItem*>(component->createWithInitialProperties(controller))
                     : nullptr;
    if (item == nullptr) {
        qFatal("The layout %s is broken: %s",
               qUtf8Printable(file),
               qUtf8Printable(component->errorString()));
    }
    QQmlEngine::setObjectOwnership(item, QQmlEngine::CppOwnership);
    if (QGuiApplication::isRightToLeft()) {
        for (const char* const property :
             {"LayoutMirroring.enabled", "LayoutMirroring.childrenInherit"}) {
            QQmlProperty::write(item, QString::fromLatin1(property), true, qmlContext(item));
        }
    }
    return OwnedItem(item);
}

}  // namespace pellumar
