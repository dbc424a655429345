#include "core/line_splitter.h"

#include <utility>

namespace vk {

void LineSplitter::Feed(std::string_view bytes,
                        const std::function<void(std::string_view)>& onLine) {
    while (!bytes.empty()) {
        const auto end = bytes.find('\n');
        const std::string_view piece = bytes.substr(0, end);
        dropping_ = dropping_ || pending_.size() + piece.size() > maxLine_;
        if (dropping_)
            pending_.clear();
        else
            pending_ += piece;
        if (end == std::string_view::npos) return;
        if (!std::exchange(dropping_, false)) onLine(std::exchange(pending_, {}));
        bytes.remove_prefix(end + 1);
    }
}

} // namespace vk
