#include "browser/browse_history.h"

#include "library/descriptor.h"

#include <string_view>
#include <utility>

namespace vk {

namespace {

bool Separates(std::string_view history, std::size_t at) {
    return history[at] == '/' && BeginsDescriptor(history.substr(at + 1));
}

} // namespace

std::vector<std::string> SplitHistory(const std::string& history) {
    std::vector<std::string> elements;
    std::size_t start = 0;
    for (std::size_t at = 0; at < history.size(); ++at) {
        if (!Separates(history, at)) continue;
        elements.push_back(history.substr(start, at - start));
        start = at + 1;
    }
    if (!history.empty()) elements.push_back(history.substr(start));
    return elements;
}

void PushHistory(std::string& history, const std::string& descriptor) {
    history += history.empty() ? descriptor : "/" + descriptor;
}

std::string PopHistory(std::string& history) {
    for (std::size_t at = history.size(); at-- > 0;) {
        if (!Separates(history, at)) continue;
        std::string last = history.substr(at + 1);
        history.erase(at);
        return last;
    }
    return std::exchange(history, {});
}

} // namespace vk
