// A program with its arguments, as one line.
#pragma once

#include <string>
#include <vector>

namespace vk {

struct CommandLine {
    std::string program; ///< its file
    std::vector<std::string> arguments;

    /// The file's path may hold blanks: a line is cut back from its end, blank by blank, until a
    /// file of that name exists. Where there is none the first word stands for it.
    static CommandLine Parse(const std::string& line);
    /// The line that means this.
    std::string Text() const;
};

} // namespace vk
