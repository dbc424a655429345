// MPEG transport streams, as .ts, .m2ts and .mts files are: small packets of one size, which carry
// those of several streams in pieces. (ISO/IEC 13818-1, 2.4.3)
#pragma once

#include "platform/mpeg/program_stream.h"

#include <memory>
#include <string_view>

namespace vk {

/// True for bytes that a transport stream begins with.
bool IsTransportStream(std::string_view bytes);

/// Of each packet only what stands in its first piece. The bytes outlive the object.
std::unique_ptr<Packets> PacketsOfTransport(std::string_view bytes);

} // namespace vk
