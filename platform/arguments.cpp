#include "platform/arguments.h"

#include <algorithm>

namespace vk {

namespace {

bool ClosesAt(std::string_view line, std::size_t at) {
    return line[at] == '"' && (at + 1 == line.size() || line[at + 1] == ' ');
}

} // namespace

std::vector<std::string> SplitArguments(std::string_view line) {
    std::vector<std::string> arguments;
    std::size_t at = 0;
    while ((at = line.find_first_not_of(' ', at)) != std::string_view::npos) {
        const bool quoted = line[at] == '"';
        std::size_t end = quoted ? ++at : at;
        while (end < line.size() && !(quoted ? ClosesAt(line, end) : line[end] == ' '))
            ++end;
        arguments.emplace_back(line.substr(at, end - at));
        at = std::min(line.size(), end + 1);
    }
    return arguments;
}

std::string JoinArguments(const std::vector<std::string>& arguments) {
    std::string line;
    for (const std::string& argument : arguments) {
        const bool plain =
            !argument.empty() && argument.front() != '"' && argument.find(' ') == std::string::npos;
        if (!line.empty()) line += ' ';
        line += plain ? argument : '"' + argument + '"';
    }
    return line;
}

} // namespace vk
