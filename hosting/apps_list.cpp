#include "hosting/apps_list.h"

#include "core/text.h"
#include "library/lists/list_file.h"
#include "platform/files.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace vk {

namespace {

constexpr std::size_t Command = 0, Name = 1, Maximize = 3, Force = 4;

bool IsControl(char letter) {
    return static_cast<unsigned char>(letter) < 0x20 || letter == 0x7F;
}

} // namespace

std::optional<ListedApp> ListedApp::Parse(const std::string& line) {
    if (line.size() > AppsList::LongestLine || std::ranges::any_of(line, IsControl)) return {};
    std::vector<std::string> fields = Split(line, '|');
    fields.resize(std::max<std::size_t>(fields.size(), Force + 1));
    if (Trim(fields[Command]).empty()) return {};
    const std::string& name = fields[Name].empty() ? fields[Command] : fields[Name];
    const auto is = [&](std::size_t field) { return EqualNoCase(Trim(fields[field]), "True"); };
    return ListedApp{fields[Command], name, is(Maximize), is(Force)};
}

std::string ListedApp::Line() const {
    const char* tail = force ? "|0|True|True" : maximize ? "|0|True|False" : "|0|False|False";
    return command + "|" + name + tail;
}

bool AppsList::Exists() const {
    return FileExists(path_);
}

std::vector<std::string> AppsList::Lines() const {
    const std::string text = ReadWholeFile(path_, LongestFile).value_or("");
    std::vector<std::string> lines = ListLines(text);
    if (text.size() == LongestFile && !lines.empty()) lines.pop_back(); // it may be cut
    return lines;
}

std::vector<ListedApp> AppsList::Read() const {
    std::vector<ListedApp> apps;
    std::size_t strange = 0;
    for (const std::string& line : Lines())
        if (const auto app = ListedApp::Parse(line))
            apps.push_back(*app);
        else
            ++strange;
    if (FileLength(path_) >= LongestFile) ++strange;
    if (std::exchange(strange_, strange) != strange && strange > 0)
        log_.WriteDebugLog(FileLength(path_) >= LongestFile
                               ? "apps.lst is too long: only its beginning is read"
                               : "apps.lst: " + std::to_string(strange) +
                                     " lines are no applications and are left out");
    return apps;
}

bool AppsList::Add(const ListedApp& app) const {
    std::vector<std::string> lines = Lines();
    lines.push_back(app.Line());
    return Write(lines);
}

bool AppsList::Remove(std::size_t place, const ListedApp& app) const {
    std::vector<std::string> lines = Lines();
    const auto found = std::ranges::find_if(lines, [&](const std::string& line) {
        const auto each = ListedApp::Parse(line);
        return each && place-- == 0;
    });
    if (found == lines.end()) return false;
    const auto there = ListedApp::Parse(*found);
    if (there->command != app.command || there->name != app.name) return false;
    lines.erase(found);
    return Write(lines);
}

bool AppsList::Write(const std::vector<std::string>& lines) const {
    std::string reason = "it is too long";
    if (FileLength(path_) < LongestFile &&
        ReplaceFile(path_, lines.empty() ? "" : Join(lines, "\r\n") + "\r\n", &reason))
        return true;
    log_.WriteDebugLog("apps.lst could not be written: " + reason);
    return false;
}

} // namespace vk
