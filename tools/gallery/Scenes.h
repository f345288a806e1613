#pragma once

#include <QString>
#include <functional>
#include <vector>

#include "gallery/Stage.h"

namespace pellumar::gallery {

struct Scene {
    QString name;
    // Puts the scene on the stage; the pictures are taken when that has come to rest.
    std::function<void()> show;
};

// All there is to see. They hold the stage.
[[nodiscard]] std::vector<Scene> scenesOn(Stage& stage);

}  // namespace pellumar::gallery
