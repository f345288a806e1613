#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QString>
#include <functional>
#include <utility>

namespace pellumar {

// What a screen contributes to the bar of its navigation stack.
class UINavigationItem : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to its screen")
    Q_PROPERTY(QString title READ title NOTIFY changed)
    // The button at the right end; none if its title is empty.
    Q_PROPERTY(QString rightTitle READ rightTitle NOTIFY changed)

  public:
    using QObject::QObject;

    [[nodiscard]] QString title() const { return title_; }
    [[nodiscard]] QString rightTitle() const { return rightTitle_; }

    void setTitle(const QString& title) {
        title_ = title;
        emit changed();
    }
    void setRightBarButtonItem(const QString& title, std::function<void()> action) {
        rightTitle_ = title;
        rightAction_ = std::move(action);
        emit changed();
    }

    void rightTapped() {
        if (rightAction_) {
            rightAction_();
        }
    }

  signals:
    void changed();

  private:
    QString title_;
    QString rightTitle_;
    std::function<void()> rightAction_;
};

}  // namespace pellumar
