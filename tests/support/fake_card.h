// The fake ALSA card of tests/alsa, as a test sets it up and looks at it from outside.
#pragma once

#include "tests/support/temp_folder.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

namespace vk::test {

/// Polls until `condition` holds; false after ten seconds.
template<class Condition> bool Soon(Condition condition) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline) return false;
        std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    return true;
}

/// While it lives, it is the "default" control device of this process and its children.
class FakeCard {
  public:
    /// Each element, such as "Master Playback", is a volume and a switch, which is on.
    explicit FakeCard(std::vector<std::string> elements, int minimum = 0, int maximum = 100)
        : elements_(std::move(elements)) {
        std::string list;
        for (const std::string& name : elements_) {
            list += " \"" + name + "\"";
            numbers_.insert(numbers_.end(), {minimum, 1});
        }
        const std::string file = folder_.Write(
            "asound.conf",
            "ctl_type.fake { lib \"" VK_FAKE_CARD "\" }\nctl.!default {\n type fake\n elements [" +
                list + " ]\n state \"" + State() + "\"\n minimum " + std::to_string(minimum) +
                "\n maximum " + std::to_string(maximum) + "\n}\n");
        ::setenv("ALSA_CONFIG_PATH", file.c_str(), 1);
        PlugIn();
    }
    ~FakeCard() { ::unsetenv("ALSA_CONFIG_PATH"); }

    /// The card is there, as it was when it was pulled.
    void PlugIn() { Offer(elements_.size()); }
    /// It has only the first elements of those that it had when it was plugged in.
    void Offer(std::size_t elements) {
        folder_.Write("state", {reinterpret_cast<const char*>(numbers_.data()), elements * 8});
    }
    void Pull() {
        for (std::size_t i = 0; i < numbers_.size(); ++i)
            numbers_[i] = Number(i);
        DeleteFileAt(State());
    }
    /// Until it is told off, no write to a control returns, or the first volume takes none.
    void Hang(bool on) const { Mark("state.hang", on); }
    void Refuse(bool on) const { Mark("state.refuse", on); }
    std::int32_t Volume(const std::string& element) const { return Number(Index(element)); }
    std::int32_t Switch(const std::string& element) const { return Number(Index(element) + 1); }
    /// What another program does.
    void SetVolume(const std::string& element, std::int32_t value) const {
        std::fstream file(State(), std::ios::in | std::ios::out | std::ios::binary);
        file.seekp(static_cast<std::streamoff>(Index(element) * sizeof value));
        file.write(reinterpret_cast<const char*>(&value), sizeof value);
    }

  private:
    void Mark(const char* name, bool on) const {
        on ? void(folder_.Write(name, "")) : void(DeleteFileAt(folder_.File(name)));
    }
    std::string State() const { return folder_.File("state"); }
    std::size_t Index(const std::string& element) const {
        const auto found = std::ranges::find(elements_, element);
        return static_cast<std::size_t>(found - elements_.begin()) * 2;
    }
    std::int32_t Number(std::size_t index) const {
        std::int32_t value = -1;
        const std::string state = folder_.Read("state");
        if (state.size() >= (index + 1) * sizeof value)
            std::memcpy(&value, state.data() + index * sizeof value, sizeof value);
        return value;
    }

    TempFolder folder_;
    std::vector<std::string> elements_;
    std::vector<std::int32_t> numbers_;
};

} // namespace vk::test
