#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

namespace pellumar {

// A distance in a layout that code may change. The layout gives it a value and an objectName, and
// binds to it.
class NSLayoutConstraint : public QObject {
    Q_OBJECT
    QML_ELEMENT
    // In device-independent pixels.
    Q_PROPERTY(qreal constant READ constant WRITE setConstant NOTIFY constantChanged)

  public:
    using QObject::QObject;

    [[nodiscard]] qreal constant() const { return constant_; }
    void setConstant(qreal constant);

  signals:
    void constantChanged();

  private:
    qreal constant_ = 0;
};

}  // namespace pellumar
