#include "tuners/xm/input_queue.h"

#include "tuners/xm/frames.h"

#include <algorithm>

namespace vk {

namespace {

constexpr char FirstByte = '\x5A', SecondByte = '\xA5';
constexpr std::size_t SmallestQueue = 7; // bytes, before it is looked into
// The receiver tells a length of 39 for a frame of 93 bytes.
constexpr std::size_t ToldLength = 39, RealLength = 87;
// A blocked queue grows no more once the longest frame would lie in it.
constexpr std::size_t LargestQueue = 0xFFFF + FrameHeader + FrameTrailer;

std::size_t PayloadLength(std::string_view frame) {
    const auto high = static_cast<unsigned char>(frame[2]);
    const auto low = static_cast<unsigned char>(frame[3]);
    const std::size_t told = 256u * high + low;
    return told == ToldLength ? RealLength : told;
}

} // namespace

void InputQueue::Add(std::string_view bytes) {
    if (bytes_.size() == 1 && bytes_[0] != FirstByte) bytes_.clear();
    bytes_ += bytes.substr(0, LargestQueue - std::min(bytes_.size(), LargestQueue));
}

std::optional<std::string> InputQueue::TakeFrame() {
    if (bytes_.size() < SmallestQueue || bytes_[0] != FirstByte || bytes_[1] != SecondByte)
        return std::nullopt;
    const std::size_t length = PayloadLength(bytes_);
    const std::size_t whole = FrameHeader + length + FrameTrailer;
    if (bytes_.size() < whole) return std::nullopt;
    std::string payload = bytes_.substr(FrameHeader, length);
    Remove(whole);
    return payload;
}

void InputQueue::Remove(std::size_t count) {
    if (bytes_.size() == count) return bytes_.clear();
    trace_.Log("truncating inputQueue");
    if (trace_.Bytes()) trace_.Log("before: " + Hex(bytes_));
    bytes_.erase(0, count);
    if (!trace_.Bytes()) return;
    trace_.Log("new queue size: " + std::to_string(bytes_.size() - 1));
    trace_.Log("after: " + Hex(bytes_));
}

} // namespace vk
