#pragma once

#include <QtGlobal>
#include <chrono>
#include <functional>
#include <memory>
#include <vector>

#include "platform/kit/Animator.h"

namespace pellumar {

// The way of one view on and off the screen:
//
//     gone ─come─► coming ──► here ─leave─► leaving ──► gone
//                    └───────leave─────────────▲
//
// What the state does not allow is refused and changes nothing: a second tap finds a view that
// leaves, and does not act again. For the main thread.
class Transition {
  public:
    enum class State { kGone, kComing, kHere, kLeaving };
    using Then = std::function<void()>;

    static constexpr std::chrono::milliseconds kAtOnce{0};

    // `changed` follows every change of state or presence.
    Transition(Animator& animator, std::function<void()> changed)
        : animator_(animator), changed_(std::move(changed)) {}

    // `here` is called when it has come; never, if it leaves before. False if it is not gone.
    bool come(std::chrono::milliseconds duration, Then here = {});
    // `gone` is called when it has left. False if it leaves already, or is not there.
    bool leave(std::chrono::milliseconds duration, Then gone = {});
    // Called once what goes on has come to its end, in the order of asking, after what `come` or
    // `leave` was given; at once if nothing goes on.
    void whenSettled(Then then);
    // Ends at once what goes on.
    void hurry();

    [[nodiscard]] State state() const { return state_; }
    [[nodiscard]] bool isHere() const { return state_ == State::kHere; }
    [[nodiscard]] bool canLeave() const { return isHere() || state_ == State::kComing; }
    [[nodiscard]] bool isLeaving() const { return state_ == State::kLeaving; }
    [[nodiscard]] bool isMoving() const { return isLeaving() || state_ == State::kComing; }
    // How far it has come: from 0 to 1.
    [[nodiscard]] qreal presence() const { return presence_; }

  private:
    void move(State state, std::chrono::milliseconds duration, Then then);

    Animator& animator_;
    const std::function<void()> changed_;
    State state_ = State::kGone;
    qreal presence_ = 0;
    Then then_;
    std::vector<Then> waiting_;
    // Lives as long as what goes on: a move that was interrupted finds its own no more.
    std::shared_ptr<char> move_;
};

}  // namespace pellumar
