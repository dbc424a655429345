// The frames of the satellite receiver's link, complete as they go over the line.
//
// Both directions: 5A A5, the payload's length in two bytes with the high one first, the payload,
// whose first byte is the command or the type of the answer, ED ED. The opening frames end in
// 74 0D instead.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vk {

inline constexpr std::size_t FrameHeader = 4, FrameTrailer = 2; ///< bytes

/// A payload in its frame.
std::string Frame(std::string_view payload);

/// The three that open the link, `step` from 0.
std::string OpeningFrame(int step);
std::string PowerOnFrame();
std::string PowerOffFrame();
std::string RequestSignalFrame();
std::string RequestIdFrame();
std::string SelectFrame(std::uint8_t channel);
std::string MonitorFrame(std::uint8_t channel);
std::string RequestInfoFrame(std::uint8_t channel);
/// Asks for the channel that follows; 0 begins a scan.
std::string RequestNextFrame(std::uint8_t channel);

/// Byte `at` of a frame's payload, 0 behind its end.
std::uint8_t PayloadByte(std::string_view frame, std::size_t at);
/// "5A A5 00": as the log shows bytes.
std::string Hex(std::string_view bytes);

} // namespace vk
