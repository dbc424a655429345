// The moment after a change of what is in front.
#pragma once

#include "core/screens.h"
#include "platform/clock.h"

#include <cstdint>
#include <memory>

namespace vk {

/// Tells for how long what is pressed was meant for the screen that has gone.
class NewScreen {
  public:
    /// From when the new screen can be seen; milliseconds. Nobody answers one faster.
    static constexpr int DeafMs = 250;

    /// Both outlive this object.
    NewScreen(Screens& screens, Clock& clock)
        : screens_(screens), clock_(clock), settled_(clock.MakeTimer([this] {
              settled_->Stop();
              deafUntilMs_ = clock_.TickMs() + DeafMs;
          })) {
        screens_.CurrentForm.onChange = [this] { Changed(); };
    }
    ~NewScreen() { screens_.CurrentForm.onChange = {}; }
    NewScreen(const NewScreen&) = delete;
    NewScreen& operator=(const NewScreen&) = delete;

    /// Another screen is in front, or the last dialog has gone.
    void Changed() {
        // What a screen does as it opens may take its time: presses wait meanwhile in the queue.
        settled_->Start(1);
    }
    /// True from the change on until `DeafMs` after the event loop went on.
    bool Deaf() const { return settled_->Enabled() || clock_.TickMs() < deafUntilMs_; }

  private:
    Screens& screens_;
    Clock& clock_;
    std::int64_t deafUntilMs_ = 0;
    std::unique_ptr<Timer> settled_;
};

} // namespace vk
