// Screens that only write down what was asked of them.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

namespace vk::test {

/// Offers what every screen offers.
class RecordingScreen {
  public:
    void runok() { calls.push_back("runok"); }
    void MoveUp() { calls.push_back("MoveUp"); }
    void MoveDown() { calls.push_back("MoveDown"); }
    void MoveBack() { calls.push_back("MoveBack"); }
    void MoveAhead() { calls.push_back("MoveAhead"); }
    void VolUp() { calls.push_back("VolUp"); }
    void VolDown() { calls.push_back("VolDown"); }
    void doquit() { calls.push_back("doquit"); }
    void ReShow() { calls.push_back("ReShow"); }
    void DoLayout() { calls.push_back("DoLayout"); }
    void switchingform() { calls.push_back("switchingform"); }
    void Hide() { calls.push_back("Hide"); }
    bool Form_KeyDown(const std::string& code) {
        calls.push_back("key " + code);
        return true;
    }
    /// How often an operation was called.
    long Count(const std::string& call) const {
        return std::count(calls.begin(), calls.end(), call);
    }

    std::vector<std::string> calls;
};

/// A player: it has an entry for the browser and a pause as well.
class RecordingPlayerScreen : public RecordingScreen {
  public:
    void ReDisplay() { calls.push_back("ReDisplay"); }
    void DoPause() { calls.push_back("DoPause"); }
};

} // namespace vk::test
