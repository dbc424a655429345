#include "hosting/command_line.h"

#include "core/text.h"
#include "platform/arguments.h"
#include "platform/files.h"

namespace vk {

CommandLine CommandLine::Parse(const std::string& text) {
    const std::string line = Trim(text);
    for (auto end = line.size(); end != std::string::npos && end > 0;
         end = line.rfind(' ', end - 1)) {
        const std::string path = Trim(line.substr(0, end));
        if (!path.empty() && FileExists(path)) return {path, SplitArguments(line.substr(end))};
    }
    std::vector<std::string> words = SplitArguments(line);
    if (words.empty()) return {};
    const std::string program = words.front();
    words.erase(words.begin());
    return {program, words};
}

std::string CommandLine::Text() const {
    return arguments.empty() ? program : program + " " + JoinArguments(arguments);
}

} // namespace vk
