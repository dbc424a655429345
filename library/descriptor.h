// The descriptor of a list row: what choosing the row means.
#pragma once

#include <string>

namespace vk {

/// `<kind>:<body>` or `<kind>:<body>|<argument>`.
struct RowDescriptor {
    std::string kind;     ///< what precedes the first ":"; "" for an inert row
    std::string body;     ///< the rest, up to the first "|"
    std::string argument; ///< what follows the first "|", further ones included
    bool hasArgument = false;

    /// The whole rest: for kinds whose body is a path, as a file name may hold "|".
    std::string Rest() const { return hasArgument ? body + "|" + argument : body; }
};

/// Splits a row's text; without a ":" all of it is the kind.
RowDescriptor SplitDescriptor(const std::string& text);

} // namespace vk
