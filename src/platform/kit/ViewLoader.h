#pragma once

#include <QObject>
#include <QQuickItem>
#include <memory>

namespace pellumar {

// An item that goes some time after its owner lets go of it: it may be in the middle of the very
// call that made the owner do so.
struct DeleteLater {
    void operator()(QObject* object) const { object->deleteLater(); }
};
using OwnedItem = std::unique_ptr<QQuickItem, DeleteLater>;

// Makes views from layout files. For the main thread.
class ViewLoader {
  public:
    virtual ~ViewLoader() = default;

    // The view of the layout file that is named after the class of `owner`, without its namespace,
    // or else after the nearest of its base classes that has one. The layout's property
    // "controller" is the owner, which must outlive the view. A layout that is missing or broken is
    // a programming error and stops the process.
    [[nodiscard]] virtual OwnedItem load(QObject& owner) = 0;
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
