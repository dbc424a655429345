// A satellite receiver without a device: hears the bytes of the link and answers as one does, or as
// badly as it is told to.
#pragma once

#include "platform/clock.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace vk::test {

struct SimChannel {
    std::string name, category, artist, title;
};

/// How it behaves; may be changed at any moment.
struct SimScript {
    bool silent = false;          ///< hears, and says nothing
    int delayMs = 0;              ///< between a question and its answer
    std::size_t pieceSize = 0;    ///< frames come in pieces of so many bytes; 0: whole
    bool merge = false;           ///< frames that wait come together
    std::string noise = {};       ///< bytes in front of each answer
    bool tells39 = false;         ///< the length of frames of 93 bytes is told as 39
    std::set<int> gone = {};      ///< channels that it tells to be no more
    std::set<int> refused = {};   ///< channels that it does not select
    std::map<int, int> lost = {}; ///< how many answers of a type do not arrive
    int bytesToLive = -1;         ///< it dies after so many more; -1: never
    std::string id = "VK012345";
    int signal = 3, antenna = 3; ///< of the signal report
    int terrestrial = 30, satelliteA = 50, satelliteB = 20;
    int monitor = 1; ///< 0: it will not tell by itself
};

class SimReceiver {
  public:
    using Say = std::function<void(std::string_view bytes)>;
    /// `clock` outlives it. `say` gets the bytes that it sends.
    SimReceiver(Clock& clock, Say say);

    /// Bytes from the system.
    void Hear(std::string_view bytes);
    /// Tells by itself what plays on the tuned channel: names, artist, title, long texts, time.
    void Notify();
    /// Sends a payload as a frame, whatever it says.
    void Send(std::string payload);
    /// As many channels from 2 on, in eight categories.
    void AddChannels(int count);

    SimScript script;
    std::map<int, SimChannel> channels;
    bool on = false;
    int tuned = 0;

  private:
    void TakeFrames();
    void Act(std::string_view payload);
    std::string Info(int channel) const;
    void Answer(std::string payload);
    void Out(std::string bytes);
    void Flush();

    Clock& clock_;
    Say say_;
    std::string in_;
    std::vector<std::string> out_; ///< frames that wait
    std::unique_ptr<Timer> later_;
};

} // namespace vk::test
