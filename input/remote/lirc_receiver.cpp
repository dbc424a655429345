#include "input/remote/lirc_receiver.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

namespace vk {

namespace {

bool IsHex(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(),
                                        [](unsigned char c) { return std::isxdigit(c) != 0; });
}

// What can stand as a value in keys.ini and come back as it was.
bool IsName(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](unsigned char c) {
        return c > ' ' && c < 0x7F && c != '"' && c != '\'';
    });
}

} // namespace

std::optional<std::string> LircButton(std::string_view line) {
    std::array<std::string_view, 3> fields;
    for (std::string_view& field : fields) {
        const auto blank = line.find(' ');
        if (blank == std::string_view::npos) return std::nullopt;
        field = line.substr(0, blank);
        line.remove_prefix(blank + 1);
    }
    if (!IsHex(fields[0]) || !IsHex(fields[1]) || !IsName(fields[2]) || !IsName(line))
        return std::nullopt;
    return std::string(fields[2]);
}

LircReceiver::LircReceiver(std::unique_ptr<LocalStream> stream, std::vector<std::string> sockets,
                           Clock& clock, const DebugLog& log)
    : stream_(std::move(stream)), sockets_(std::move(sockets)),
      link_(
          clock, log, "lircd", [this] { return Connect(); },
          [this] { return "lircd: nobody listens on " + sockets_.front(); }) {
    stream_->onBytes = [this](std::string_view bytes) { Feed(bytes); };
    stream_->onClosed = [this] { link_.Lost(); };
}

bool LircReceiver::Start() {
    return link_.Start();
}

void LircReceiver::Stop() {
    link_.Stop();
    stream_->Close();
}

bool LircReceiver::Connect() {
    lines_ = LineSplitter(MaxLine);
    return std::any_of(sockets_.begin(), sockets_.end(),
                       [this](const std::string& path) { return stream_->Connect(path); });
}

// All lines are cut before the first is told: events run while a code is carried out, and further
// bytes may come with them.
void LircReceiver::Feed(std::string_view bytes) {
    std::vector<std::string> buttons;
    lines_.Feed(bytes, [&](std::string_view line) {
        if (auto button = LircButton(line)) buttons.push_back(std::move(*button));
    });
    if (!buttons.empty()) link_.Works();
    const int cleared = cleared_;
    for (const std::string& button : buttons)
        if (cleared == cleared_ && onCode) onCode(button);
}

void LircReceiver::ClearBuff() {
    ++cleared_;
    lines_.Feed(stream_->Input(), [](std::string_view) {});
}

} // namespace vk
