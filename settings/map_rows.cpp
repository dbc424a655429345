#include "settings/map_rows.h"

#include "navigation/engine/map_file.h"
#include "platform/files.h"

#include <utility>

namespace vk {

MapRows::MapRows(Base& base, MakeChildProcess child, std::function<std::string()> map)
    : base_(base), map_(std::move(map)), maker_(std::move(child)) {
    maker_.onEnded = [this](const std::string& failure) {
        ended_ = failure.empty() ? "The map is ready" : failure;
        base_.log.WriteDebugLog("Map of the navigation engine: " + ended_);
    };
}

std::vector<Row> MapRows::Rows() {
    return {{.text =
                 [this] {
                     return std::string(maker_.Running() ? "Stop making the map"
                                                         : "Make a Map (OpenStreetMap)");
                 },
             .use = [this] { maker_.Running() ? maker_.Stop() : Ask(); },
             .name = "cmdMakeMap"},
            ProgressRow([this] { return Status(); },
                        [this] { return maker_.Running() ? maker_.Percent() : -1; })};
}

std::string MapRows::Status() const {
    if (maker_.Running()) return "Making the map: " + std::to_string(maker_.Percent()) + "%";
    if (!ended_.empty()) return ended_;
    return IsMapFile(map_()) ? "There is a map" : "There is no map";
}

void MapRows::Ask() {
    const auto extract =
        base_.dialogs.InputBox("Extract of OpenStreetMap (.osm, .pbf or .o5m):", "Make a Map", "");
    if (!extract || extract->empty() || maker_.Running()) return;
    ended_.clear();
    maker_.Start(*extract, map_());
}

} // namespace vk
