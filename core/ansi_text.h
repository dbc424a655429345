// ANSI text, that is Windows-1252, as old files and devices write it
// (https://encoding.spec.whatwg.org/index-windows-1252.txt).
#pragma once

#include <string>
#include <string_view>

namespace vk {

/// Every byte as the character it stands for. Unlike `ToUtf8` it never takes the bytes for UTF-8,
/// so that it undoes `Utf8ToAnsi`. The five bytes without a meaning become C1 controls.
std::string AnsiToUtf8(std::string_view bytes);

/// The reverse; a character that Windows-1252 lacks becomes "?". Text that is not UTF-8 is taken to
/// be ANSI already.
std::string Utf8ToAnsi(std::string_view text);

} // namespace vk
