#pragma once

#include <QHash>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QStringList>
#include <memory>

namespace pellumar {

// For what may be let go of in the middle of one of its own calls, or of its view's: it goes with
// the next turn of the event loop.
struct DeleteLater {
    void operator()(QObject* object) const { object->deleteLater(); }
};

// A view; it goes before its owner, whose properties it shows.
using OwnedItem = std::unique_ptr<QQuickItem>;

// Makes views from layout files, which are in the QML modules that are compiled into the program. A
// layout is compiled once, however often it is loaded. For the main thread.
class ViewLoader : public QObject {
    Q_OBJECT

  public:
    // `modules` are searched in their order: "Pellumar.Kit". The engine must outlive this, and has
    // one loader.
    ViewLoader(QQmlEngine& engine, const QStringList& modules);

    // The loader of the engine that made the item. One that has none is a programming error and
    // stops the process.
    [[nodiscard]] static ViewLoader& ofEngineOf(const QQuickItem& item);

    // The view of the layout file that is named after the class of `owner`, without its namespace,
    // or else after the nearest of its base classes that has one. The layout's property
    // "controller" is the owner, which must outlive the view. A layout that is missing or broken is
    // a programming error and stops the process.
    [[nodiscard]] OwnedItem load(QObject& owner);

  private:
    [[nodiscard]] QString layoutFile(const QMetaObject* type) const;

    QQmlEngine& engine_;
    QStringList folders_;
    QHash<QString, std::shared_ptr<QQmlComponent>> components_;
};

// The item or object with this objectName in `view`, or the view itself. A missing one, or one of
// another type, is a programming error and stops the process with its name.
template <typename Outlet>
[[nodiscard]] Outlet* outlet(QQuickItem& view, const QString& name) {
    Outlet* found =
        view.objectName() == name ? qobject_cast<Outlet*>(&view) : view.findChild<Outlet*>(name);
    if (found == nullptr) {
        qFatal("The layout %s has no outlet \"%s\".",
               view.metaObject()->className(),
               qUtf8Printable(name));
    }
    return found;
}

}  // namespace pellumar
