#include "tests/sim/xm/sim_receiver.h"

#include <algorithm>
#include <iterator>

namespace vk::test {

namespace {

std::string Zeros(std::size_t count, std::initializer_list<int> first) {
    std::string text(count, '\0');
    std::size_t at = 0;
    for (const int byte : first)
        text[at++] = static_cast<char>(byte);
    return text;
}

void Put(std::string& payload, std::size_t at, std::size_t width, const std::string& text) {
    payload.replace(at, std::min(width, text.size()), text, 0, width);
}

} // namespace

SimReceiver::SimReceiver(Clock& clock, Say say)
    : clock_(clock), say_(std::move(say)), later_(clock_.MakeTimer([this] {
          later_->Stop();
          Flush();
      })) {
    channels[1] = {"XM Preview", "", "", ""};
}

void SimReceiver::AddChannels(int count) {
    constexpr const char* categories[] = {"Decades", "Rock",      "Country", "Jazz-Blues",
                                          "News",    "Classical", "Sports",  "Traffic-Weather"};
    for (int number = 2; number < count + 2; ++number) {
        const std::string n = std::to_string(number);
        channels[number] = {"Channel " + n, categories[number * 8 / (count + 2)], "Artist " + n,
                            "Song " + n};
    }
}

void SimReceiver::Hear(std::string_view bytes) {
    in_ += bytes;
    TakeFrames();
}

// Its own ears resynchronise.
void SimReceiver::TakeFrames() {
    for (;;) {
        const auto begin = in_.find("\x5A\xA5");
        if (begin == std::string::npos) return;
        in_.erase(0, begin);
        if (in_.size() < 4) return;
        const auto length = static_cast<std::size_t>(static_cast<unsigned char>(in_[3]));
        if (in_.size() < length + 6) return;
        const std::string payload = in_.substr(4, length);
        in_.erase(0, length + 6);
        Act(payload);
    }
}

void SimReceiver::Act(std::string_view payload) {
    const auto byte = [&](std::size_t at) {
        return at < payload.size() ? static_cast<unsigned char>(payload[at]) : 0;
    };
    if (byte(0) == 0x00) {
        on = true;
        tuned = 0;
        std::string answer = Zeros(32, {0x80, 0x10});
        Put(answer, 19, 8, script.id);
        Answer(answer);
    } else if (byte(0) == 0x01) {
        on = false;
        Answer(Zeros(3, {0x81}));
    } else if (byte(0) == 0x10) {
        const bool taken = channels.contains(byte(2)) && !script.refused.contains(byte(2));
        if (taken) tuned = byte(2);
        Answer(Zeros(6, {0x90, 0x10, taken ? 0 : 4, 0, byte(2)}));
    } else if (byte(0) == 0x50) {
        Answer(Zeros(6, {0xD0, 1, 0, script.monitor}));
        if (script.monitor != 0) Notify();
    } else if (byte(0) == 0x25 && byte(1) == 0x08) {
        Answer(Info(byte(2)));
    } else if (byte(0) == 0x25) {
        const auto next = channels.upper_bound(byte(2));
        Answer(Info(next == channels.end() ? 0 : next->first));
    } else if (byte(0) == 0x43) {
        std::string answer = Zeros(26, {0xC3, 0, 0, script.signal, script.antenna});
        answer[16] = static_cast<char>(script.terrestrial >> 8);
        answer[17] = static_cast<char>(script.terrestrial);
        answer[24] = static_cast<char>(script.satelliteA);
        answer[25] = static_cast<char>(script.satelliteB);
        Answer(answer);
    } else if (byte(0) == 0x31) {
        std::string answer = Zeros(12, {0xB1});
        Put(answer, 4, 8, "VK654321");
        Answer(answer);
    }
}

std::string SimReceiver::Info(int channel) const {
    const auto found = channels.find(channel);
    const bool gone = channel != 0 && (found == channels.end() || script.gone.contains(channel));
    std::string info = Zeros(87, {0xA5, gone ? 2 : 0, gone ? 9 : 0, channel});
    if (gone || channel == 0) return info;
    Put(info, 6, 16, found->second.name);
    Put(info, 24, 16, found->second.category);
    Put(info, 41, 16, found->second.artist);
    Put(info, 57, 16, found->second.title);
    return info;
}

void SimReceiver::Notify() {
    const auto found = channels.find(tuned);
    if (found == channels.end()) return;
    const SimChannel& channel = found->second;
    std::string name = Zeros(19, {0xD1, tuned, 1}), playing = Zeros(35, {0xD3, tuned, 1});
    Put(name, 3, 16, channel.name);
    Put(playing, 3, 16, channel.artist);
    Put(playing, 19, 16, channel.title);
    std::string category = Zeros(4, {0xD2, tuned, 0, 1});
    std::string artist = Zeros(36, {0xD4, tuned, 1}), title = Zeros(36, {0xD5, tuned, 1});
    Put(artist, 3, 33, channel.artist);
    Put(title, 3, 33, channel.title);
    for (const std::string& told :
         {name, category, playing, artist, title, Zeros(9, {0xD6, tuned, 0, 0, 0, 0, 200, 0, 12})})
        Answer(told);
}

void SimReceiver::Answer(std::string payload) {
    int& lost = script.lost[static_cast<unsigned char>(payload[0])];
    if (script.silent || (lost > 0 && lost-- > 0)) return;
    Send(std::move(payload));
}

void SimReceiver::Send(std::string payload) {
    if (script.tells39 && payload.size() <= 87) payload.resize(87);
    const std::size_t told = script.tells39 && payload.size() == 87 ? 39 : payload.size();
    out_.push_back(
        script.noise +
        Zeros(4, {0x5A, 0xA5, static_cast<int>(told >> 8), static_cast<int>(told & 0xFF)}) +
        payload + "\xED\xED");
    if (script.merge || script.delayMs > 0) {
        if (!later_->Enabled()) later_->Start(std::max(1, script.delayMs));
    } else {
        Flush();
    }
}

void SimReceiver::Flush() {
    std::vector<std::string> frames;
    frames.swap(out_);
    std::string together;
    for (const std::string& frame : frames)
        script.merge ? void(together += frame) : Out(frame);
    if (script.merge) Out(together);
}

void SimReceiver::Out(std::string bytes) {
    if (script.bytesToLive >= 0) {
        bytes.resize(std::min(bytes.size(), static_cast<std::size_t>(script.bytesToLive)));
        script.bytesToLive -= static_cast<int>(bytes.size());
    }
    const std::size_t piece = script.pieceSize == 0 ? bytes.size() : script.pieceSize;
    for (std::size_t at = 0; at < bytes.size(); at += piece)
        say_(std::string_view(bytes).substr(at, piece));
}

} // namespace vk::test
