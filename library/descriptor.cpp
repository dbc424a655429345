#include "library/descriptor.h"

namespace vk {

RowDescriptor SplitDescriptor(const std::string& text) {
    RowDescriptor result;
    const auto colon = text.find(':');
    result.kind = text.substr(0, colon);
    if (colon == std::string::npos) return result;
    const auto bar = text.find('|', colon + 1);
    result.body = text.substr(colon + 1, bar == std::string::npos ? bar : bar - colon - 1);
    result.hasArgument = bar != std::string::npos;
    if (result.hasArgument) result.argument = text.substr(bar + 1);
    return result;
}

} // namespace vk
