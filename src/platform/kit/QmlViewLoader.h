#pragma once

#include <QHash>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QStringList>
#include <memory>

#include "platform/kit/ViewLoader.h"

namespace pellumar {

// Loads layouts from the QML modules that are compiled into the program. A layout is compiled once,
// however often it is loaded.
class QmlViewLoader : public QObject, public ViewLoader {
    Q_OBJECT

  public:
    // `modules` are searched in their order: "Pellumar.Kit". The engine must outlive this,
    // and has one loader.
    QmlViewLoader(QQmlEngine& engine, const QStringList& modules);

    // The loader of the engine that made the item. One that has none is a programming error and
    // stops the process.
    [[nodiscard]] static ViewLoader& ofEngineOf(const QQuickItem& item);

    [[nodiscard]] OwnedItem load(QObject& owner) override;

  private:
    [[nodiscard]] QString layoutFile(const QMetaObject* type) const;

    QQmlEngine& engine_;
    QStringList folders_;
    QHash<QString, std::shared_ptr<QQmlComponent>> components_;
};

}  // namespace pellumar
