#include "settings/log_view.h"

#include "core/text.h"
#include "platform/random_file.h"

#include <algorithm>

namespace vk {

namespace {

constexpr std::uint64_t ReadFromEnd = 128 << 10; // bytes
constexpr std::size_t Given = 20;                // lines
constexpr std::size_t Piece = 150; // characters: four of them are no more than a small panel shows
constexpr std::size_t Least = 8;   // lines, of the oldest
constexpr std::size_t LongWord = 30;       // bytes that are never broken
constexpr const char* MayBreak = "\u200B"; // seen as nothing

std::string Breakable(const std::string& line) {
    std::string text;
    std::size_t word = 0;
    for (const char byte : line) {
        const bool within = (byte & 0xC0) == 0x80; // of a character
        if (word >= LongWord && !within) {
            text += MayBreak;
            word = 0;
        }
        text += byte;
        word = byte == ' ' ? 0 : word + 1;
    }
    return text;
}

} // namespace

const std::string& LogView::Text() {
    Follow();
    return text_;
}

// One that is being read stays as it is, but not when it was begun anew.
void LogView::Follow() {
    const FileStamp now = StampOf(file_);
    if (known_ && now.settled && now.SameAs(read_)) return;
    if (back_ > 0 && now.length >= read_.length) return;
    read_ = now;
    known_ = true;
    back_ = 0;
    ReadEnd();
    Take();
}

void LogView::ReadEnd() {
    lines_.clear();
    const RandomFile log(file_);
    std::string bytes(log.IsOpen() ? std::min(log.Length(), ReadFromEnd) : 0, '\0');
    bytes.resize(log.IsOpen() ? log.ReadAt(log.Length() - bytes.size(), bytes.data(), bytes.size())
                              : 0);
    for (std::string rest : Split(Trim(ReplaceAll(ToUtf8(bytes), "\r", "")), '\n'))
        do {
            lines_.push_back(Left(rest, Piece));
            rest.erase(0, lines_.back().size());
        } while (!rest.empty());
    if (bytes.empty()) lines_ = {"The log is empty"};
}

void LogView::Take() {
    const std::size_t end = lines_.size() - back_;
    const std::size_t first = end - std::min(end, Given);
    std::vector<std::string> shown;
    for (std::size_t i = first; i < end; ++i)
        shown.push_back(Breakable(lines_[i]));
    text_ = Join(shown, "\n");
}

void LogView::Move(int lines) {
    const std::size_t most = lines_.size() - std::min(lines_.size(), Least);
    const auto back = static_cast<std::ptrdiff_t>(back_) + lines;
    back_ = std::min(static_cast<std::size_t>(std::max<std::ptrdiff_t>(back, 0)), most);
    Take();
}

} // namespace vk
