// What the main program and the catalogue server say to each other: one JSON object a line
// (https://www.rfc-editor.org/rfc/rfc8259). Paths are bytes, percent-encoded.
#pragma once

#include "core/app_state.h"
#include "core/line_splitter.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vk {

/// What a scan works on.
struct ScanRequest {
    /// A full scan also compacts the catalogue where that is worth it.
    bool full = true;
    std::string appDir;                           ///< where tags.mdb lies
    std::string mediaDir;                         ///< the folder that is catalogued
    std::string audioExtensions, videoExtensions; ///< joined by ":", as the settings hold them
    std::string decimalSymbol = ".";
    bool extendedTags = false; ///< as the setting says
};

/// A line to the server.
struct ServerRequest {
    enum class Kind { Scan, Stop, Quit };
    Kind kind = Kind::Stop;
    ScanRequest scan; ///< for `Scan`
};

/// Steps of a scan, as the progress bar of the settings screen counts them.
enum class ScanStep : int {
    Counting = 0,    ///< `count`: files that the walk has found so far
    Counted = 1,     ///< `count`: files there are
    Comparing = 2,   ///< with the rows of the last time
    ToRead = 3,      ///< `count`: files that are new or changed
    Reading = 4,     ///< `count`: files read so far
    Reconciling = 5, ///< `count`: rows without a file, which go
    Writing = 6,
    Checkpoint = 8, ///< the new file is being handed over
    Ready = 9
};

/// How far a scan is; `text` is what the status line shows.
struct ScanProgress {
    ScanStep step = ScanStep::Ready;
    std::int64_t count = 0;
    std::string text;
};

/// A failure in the server; a silent one is only logged.
struct ServerError {
    int number = 0;
    std::string source, description;
    bool silent = true;
};

/// A line from the server.
struct ServerEvent {
    enum class Kind { StatusChanged, ShowProgress, UnhookDB, DBError };
    Kind kind = Kind::UnhookDB;
    DBStateValue state = DBStateValue::Offline; ///< for `StatusChanged`
    ScanProgress progress;                      ///< for `ShowProgress`
    ServerError error;                          ///< for `DBError`
};

/// Without the line end.
std::string ToLine(const ServerRequest& request);
std::string ToLine(const ServerEvent& event);

/// Nothing for a line that is none of the protocol's.
std::optional<ServerRequest> ParseRequest(std::string_view line);
std::optional<ServerEvent> ParseEvent(std::string_view line);

} // namespace vk
