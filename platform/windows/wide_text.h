// UTF-8 of the system to the wide text of Win32 calls and back.
#pragma once

#include <string>
#include <string_view>

namespace vk {

/// Bytes that are no UTF-8 become replacement characters.
std::wstring ToWide(std::string_view text);
std::string FromWide(std::wstring_view text);

} // namespace vk
