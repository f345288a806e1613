#pragma once

#include <type_traits>
#include <utility>

#include "screens/ScreenServices.h"

namespace pellumar {

// What abilities ask of the screen that adopts them.
class ScreenAbility {
  public:
    virtual ~ScreenAbility() = default;

  protected:
    [[nodiscard]] virtual UIViewController& screen() = 0;
    [[nodiscard]] virtual const ScreenServices& services() const = 0;

    // `work` for a callback that may outlive the screen, which it does not hold: it is called only
    // while the screen lives, and may use `this`.
    template <typename Work>
    [[nodiscard]] auto whileAlive(Work work) {
        return [weak = screen().weak_from_this(), work = std::move(work)](auto&&... values)
                   -> std::enable_if_t<std::is_invocable_v<const Work&, decltype(values)...>> {
            if (const auto alive = weak.lock()) {
                work(std::forward<decltype(values)>(values)...);
            }
        };
    }
};

}  // namespace pellumar
