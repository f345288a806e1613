#pragma once

#include <QHash>
#include <QString>
#include <functional>
#include <memory>

#include "platform/kit/ClassName.h"
#include "platform/kit/UIViewController.h"

namespace pellumar {

// The scenes that are made by name. Each scene's layout file is named after its class.
class UIStoryboard {
  public:
    using SceneMaker = std::function<std::shared_ptr<UIViewController>()>;

    void addScene(const QString& identifier, const SceneMaker& maker) {
        scenes_.insert(identifier, maker);
    }
    // A screen that is made in code only: to ask for it as a scene is a programming error and stops
    // the process.
    void refuseScene(const QString& identifier) {
        scenes_.insert(identifier, []() -> std::shared_ptr<UIViewController> {
            qFatal("init(coder:) has not been implemented");
        });
    }
    void setInitialScene(const QString& identifier) { initial_ = identifier; }

    // Null if there is no such scene.
    [[nodiscard]] std::shared_ptr<UIViewController> instantiateViewController(
        const QString& identifier) const {
        const SceneMaker maker = scenes_.value(identifier);
        return maker ? maker() : nullptr;
    }
    [[nodiscard]] std::shared_ptr<UIViewController> instantiateInitialViewController() const {
        return instantiateViewController(initial_);
    }

  private:
    QHash<QString, SceneMaker> scenes_;
    QString initial_;
};

}  // namespace pellumar
