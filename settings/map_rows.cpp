#include "settings/map_rows.h"

#include "navigation/engine/map_file.h"
#include "platform/paths.h"
#include "settings/file_kinds.h"

#include <utility>

namespace vk {

MapRows::MapRows(Base& base, MakeChildProcess child, std::function<std::string()> map,
                 std::function<void()> made)
    : base_(base), map_(std::move(map)), maker_(std::move(child)) {
    maker_.onEnded = [this, made = std::move(made)](const std::string& failure) {
        ended_ = failure.empty() ? "The map is ready" : failure;
        base_.log.WriteDebugLog("Map of the navigation engine: " + ended_);
        if (failure.empty()) made();
    };
}

std::vector<Row> MapRows::Rows() {
    return {{.text =
                 [this] {
                     return std::string(maker_.Running() ? "Stop making the map"
                                                         : "Make a Map (OpenStreetMap)");
                 },
             .use = [this] { maker_.Running() ? maker_.Stop() : Ask(); },
             .sheet = "New Map",
             .name = "cmdMakeMap"},
            ProgressRow([this] { return Status(); },
                        [this] { return maker_.Running() ? maker_.Percent() : -1; })};
}

std::string MapRows::Status() const {
    if (maker_.Running()) return "Making the map: " + std::to_string(maker_.Percent()) + "%";
    if (!ended_.empty()) return ended_;
    return IsMapFile(map_()) ? "There is a map" : "There is no map";
}

// The extract that was made into a map before is often brought up to date in its place.
void MapRows::Ask() {
    const std::string extract =
        base_.dialogs.ChooseFile({.caption = "Extract of OpenStreetMap (.osm, .pbf or .o5m)",
                                  .start = FolderOf(extract_),
                                  .accepts = EndsIn("osm pbf o5m")});
    if (extract.empty() || maker_.Running()) return;
    extract_ = extract;
    ended_.clear();
    maker_.Start(extract, map_());
}

} // namespace vk
