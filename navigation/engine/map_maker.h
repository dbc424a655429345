// Maps for the engine out of extracts of OpenStreetMap, by the program `maptool`.
#pragma once

#include "platform/child_process.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace vk {

/// One map at a time. It is made beside the old one and takes its place whole; a stop or a failure
/// leaves the old one as it was.
class MapMaker {
  public:
    static constexpr int Steps = 14; ///< phases that the program tells of

    explicit MapMaker(MakeChildProcess make, std::string program = "/usr/bin/maptool");

    /// The program is there.
    bool Installed() const;
    /// Begins with `extract` (.osm, .pbf or .o5m; full path) and tells the end by `onEnded`.
    /// What runs goes on.
    void Start(const std::string& extract, const std::string& map);
    /// Ends it without a map; `onEnded` follows.
    void Stop();
    bool Running() const { return running_; }
    /// 0 to 100.
    int Percent() const { return step_ * 100 / Steps; }

    /// Told at each step.
    std::function<void(int percent)> onProgress;
    /// "" when the map is there, else why not, in words for the user.
    std::function<void(const std::string& failure)> onEnded;

  private:
    void Said(std::string_view line);
    void Ended(int code);
    void Finish(const std::string& failure);

    MakeChildProcess make_;
    std::string program_, map_, folder_, said_;
    std::unique_ptr<ChildProcess> child_;
    bool running_ = false, stopped_ = false;
    int step_ = 0;
};

} // namespace vk
