// Video discs, recognised by the folders in their root.
#pragma once

#include "library/descriptor.h"

#include <optional>
#include <string>

namespace vk {

/// What a folder of a disc means for the list.
struct DiscVideo {
    std::string name;      ///< "DVD Video: ", "SVCD Video: " or "VCD Video: "
    Descriptor descriptor; ///< inert when the folder holds no film after all
};

/// Judges one folder by its name (in any case) below `discFolder`; nothing for a plain folder.
std::optional<DiscVideo> RecogniseDiscVideo(const std::string& discFolder, const std::string& name);

} // namespace vk
