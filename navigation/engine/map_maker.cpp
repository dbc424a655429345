#include "navigation/engine/map_maker.h"

#include "navigation/engine/map_file.h"
#include "platform/files.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <system_error>

namespace vk {

namespace {

constexpr std::string_view Phase = "PROGRESS: Phase ";
constexpr std::size_t LongestLine = 4096;

// It writes many temporary files where it stands, and tells of its progress on its error stream.
// Unknown countries are kept: a regional extract holds no whole border.
constexpr const char* Script = R"(cd "$1" && exec nice -n 5 "$2" -U $4 -i "$3" new.bin 2>&1)";

const char* KindOf(const std::string& extract) {
    if (extract.ends_with(".pbf")) return "--protobuf";
    return extract.ends_with(".o5m") ? "--o5m" : "";
}

void Remove(const std::string& folder) {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

// Not by the shell: its `mkdir` would outlive it when it is killed, and leave a folder behind.
void MakeAnew(const std::string& folder) {
    Remove(folder);
    std::error_code ignored; // who cannot enter it tells
    std::filesystem::create_directories(folder, ignored);
}

} // namespace

MapMaker::MapMaker(MakeChildProcess make, std::string program)
    : make_(std::move(make)), program_(std::move(program)) {}

bool MapMaker::Installed() const {
    return FileExists(program_);
}

void MapMaker::Start(const std::string& extract, const std::string& map) {
    if (running_) return;
    running_ = true;
    stopped_ = false;
    step_ = 0;
    said_.clear();
    map_ = map;
    folder_ = map + ".making";
    if (!Installed()) return Finish("The program maptool is not installed");
    if (!FileExists(extract)) return Finish("There is no file " + extract);
    MakeAnew(folder_);
    child_ = make_();
    child_->onOutput = [this](std::string_view bytes) {
        said_ += bytes;
        for (auto end = said_.find('\n'); end != std::string::npos; end = said_.find('\n')) {
            Said(std::string_view(said_).substr(0, end));
            said_.erase(0, end + 1);
        }
        if (said_.size() > LongestLine) said_.clear();
    };
    child_->onEnded = [this](int code) { Ended(code); };
    child_->Start("/bin/sh", {"-c", Script, "sh", folder_, program_, extract, KindOf(extract)});
}

void MapMaker::Stop() {
    if (!running_) return;
    stopped_ = true;
    child_->Kill();
}

void MapMaker::Said(std::string_view line) {
    if (!line.starts_with(Phase)) return;
    int step = 0;
    std::from_chars(line.data() + Phase.size(), line.data() + line.size(), step);
    step_ = std::clamp(step, step_, Steps);
    if (onProgress) onProgress(Percent());
}

void MapMaker::Ended(int code) {
    const std::string made = folder_ + "/new.bin";
    if (stopped_) return Finish("Stopped");
    if (code != 0 || !IsMapFile(made)) return Finish("No map could be made of this file");
    Finish(RenameFlushed(made, map_) ? "" : "The map could not be put in its place");
}

void MapMaker::Finish(const std::string& failure) {
    running_ = false;
    Remove(folder_);
    if (onEnded) onEnded(failure);
}

} // namespace vk
