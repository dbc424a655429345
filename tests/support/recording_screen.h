// Screens that only write down what was asked of them.
#pragma once

#include "playback/transport.h"

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

namespace vk {
class InputCode;
}

namespace vk::test {

/// Offers what every screen offers.
class RecordingScreen {
  public:
    void runok() { Tell("runok"); }
    void MoveUp() { Tell("MoveUp"); }
    void MoveDown() { Tell("MoveDown"); }
    void MoveBack() { Tell("MoveBack"); }
    void MoveAhead() { Tell("MoveAhead"); }
    void VolUp() { Tell("VolUp"); }
    void VolDown() { Tell("VolDown"); }
    void doquit() { Tell("doquit"); }
    void ReShow() { Tell("ReShow"); }
    void DoLayout() { Tell("DoLayout"); }
    void switchingform() { Tell("switchingform"); }
    void Hide() { Tell("Hide"); }
    bool Form_KeyDown(const std::string& code) {
        Tell("key " + code);
        return true;
    }
    bool DoAction(const InputCode&) {
        Tell("DoAction");
        return true;
    }
    /// How often an operation was called.
    long Count(const std::string& call) const {
        return std::count(calls.begin(), calls.end(), call);
    }

    std::vector<std::string> calls;
    std::function<void(const std::string& call)> onCall; ///< runs at each call

  protected:
    void Tell(const std::string& call) {
        calls.push_back(call);
        if (onCall) onCall(call);
    }
};

/// A player: it has an entry for the browser and a tape deck's keys as well.
class RecordingPlayerScreen : public RecordingScreen, public Transport {
  public:
    void ReDisplay() { Tell("ReDisplay"); }
    void DoPause() override { Tell("DoPause"); }
    void DoPlay() override { Tell("DoPlay"); }
    void MoveAhead() override { Tell("MoveAhead"); }
    void MoveBack() override { Tell("MoveBack"); }
    void DoFF() override { Tell("DoFF"); }
    void DoRW() override { Tell("DoRW"); }
    void doquit() override { Tell("doquit"); }
    bool DoAction(const InputCode& code) override { return RecordingScreen::DoAction(code); }
    NowPlaying Now() override { return now; }

    NowPlaying now;
};

} // namespace vk::test
