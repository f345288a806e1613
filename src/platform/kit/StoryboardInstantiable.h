#pragma once

#include <memory>

#include "platform/kit/UIStoryboard.h"

namespace pellumar {

// Screens that are scenes of a storyboard.
struct StoryboardInstantiable {
    // The scene whose identifier is the unqualified name of the class; null if there is none, or it
    // is of another class.
    template <typename Controller>
    [[nodiscard]] static std::shared_ptr<Controller> instantiate(const UIStoryboard& storyboard) {
        return std::dynamic_pointer_cast<Controller>(
            storyboard.instantiateViewController(unqualifiedName(Controller::staticMetaObject)));
    }
};

}  // namespace pellumar
