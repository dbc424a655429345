// From the bytes of a tag to texts and numbers of a record.
#pragma once

#include "library/tags/tag_record.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// The bytes as UTF-8. Bytes of two-byte encodings, which are not decoded, hold NULs: those go, as
/// a label would end at the first.
std::string TagText(std::string_view bytes);

/// The values of a frame of ID3v2, by its encoding byte in front: Latin-1, UTF-16 in either order
/// or UTF-8 (https://id3.org/id3v2.4.0-structure). NULs separate them; empty ones are left out.
std::vector<std::string> DecodedValues(std::string_view frame);

/// The number at the start of a text such as "7" or "07/12"; 0 when there is none or it is beyond
/// 16 bits.
std::uint16_t TrackNumber(std::string_view text);

/// Cuts the texts to `TagTextLength` characters.
void CutTexts(TagRecord& tag);

} // namespace vk
