#include "playback/audio/track_list.h"

#include "core/text.h"
#include "library/lists/list_file.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <exception>

namespace vk {

namespace {

constexpr std::size_t LinesAPulse = 200; ///< few enough to stay fluent on a slow stick

bool EndsInCda(const std::string& text) {
    return EqualNoCase(LastBytes(text, 4), ".CDA");
}

class Reader {
  public:
    Reader(const std::string& listFile, std::int32_t wanted, const TrackListNeeds& needs)
        : folder_(FolderOf(listFile)), wanted_(wanted), needs_(needs) {}

    TrackList Read(const std::vector<std::string>& lines) {
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const bool pulse = i % LinesAPulse == LinesAPulse - 1 && needs_.progress;
            list_.ended = pulse && !needs_.progress(static_cast<int>(i * 100 / lines.size()));
            if (list_.ended) break;
            AddLine(lines[i], i == 0);
        }
        return std::move(list_);
    }

  private:
    std::int32_t Counter() const { return static_cast<std::int32_t>(list_.tracks.size()) + 1; }

    void AddLine(const std::string& line, bool first) {
        if (line.starts_with("#EXT")) return;
        if (line.starts_with("# SELECT")) return AddQuery(line.substr(2));
        if (EndsInCda(line)) return AddDiscTrack(line);
        if (IsStreamAddress(line)) {
            list_.tracks.push_back({line, {}, ToUtf8(line), true});
            return;
        }
        const std::string path = ResolveListEntry(line, folder_);
        if (!path.empty()) {
            list_.tracks.push_back({path, {}, {}, false});
        } else if (line.starts_with("#")) {
            // A comment is no entry, so it cannot be the one that is missing.
            if (first) list_.title = ToUtf8(Trim(line.substr(1)));
        } else if (Counter() == wanted_) {
            list_.wantedMissing = true;
        }
    }

    void AddDiscTrack(const std::string& line) {
        list_.tracks.push_back({line, {}, "CD Audio Track #" + std::to_string(Counter()), true});
    }

    void AddQuery(const std::string& sql) {
        if (!needs_.query) {
            if (needs_.log) needs_.log("No catalogue for the list's query: " + sql);
            return;
        }
        list_.expanded = true;
        for (const CatalogueRow& row : Ask(sql)) {
            if (FileExists(row.path) || EndsInCda(row.path))
                list_.tracks.push_back({row.path, row.artist, row.title, true});
            else if (Counter() == wanted_ && wanted_ != 1)
                list_.wantedMissing = true;
        }
    }

    // A query that fails must not take the rest of the list with it.
    std::vector<CatalogueRow> Ask(const std::string& sql) {
        try {
            return needs_.query(WithMediaType(sql));
        } catch (const std::exception& error) {
            if (needs_.log) needs_.log("The list's query failed: " + sql + ": " + error.what());
            return {};
        }
    }

    const std::string folder_;
    const std::int32_t wanted_;
    const TrackListNeeds& needs_;
    TrackList list_;
};

} // namespace

bool Track::IsDiscTrack() const {
    return EndsInCda(path);
}

bool Track::IsStream() const {
    return IsStreamAddress(path);
}

TrackList ReadTrackList(const std::string& listFile, std::int32_t wanted,
                        const TrackListNeeds& needs) {
    const auto lines = ListLines(ReadWholeFile(listFile, ListFileLimit).value_or(""));
    return Reader(listFile, wanted, needs).Read(lines);
}

std::string WithMediaType(std::string sql) {
    const auto from = sql.find(" FROM");
    if (from == std::string::npos || sql.substr(0, from).find("MediaType") != std::string::npos)
        return sql;
    return sql.insert(from, ", MediaType");
}

} // namespace vk
