#include "playback/visuals/vis_plugins.h"

#include "core/ini_document.h"
#include "core/text.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <algorithm>

namespace vk {

namespace {

constexpr const char* IniName = "winamp.ini";
constexpr const char* PluginKey = "visplugin_name";
constexpr std::size_t ListBytes = 65536, PluginBytes = 4096, LongestName = 120;

bool IsText(const std::string& line) {
    return std::ranges::all_of(line, [](unsigned char c) { return c >= ' '; });
}

// A name, never a way out of the folder.
bool IsFileName(const std::string& file) {
    return !file.empty() && file.size() <= LongestName && IsText(file) && !file.starts_with('.') &&
           file.find_first_of("/\\") == std::string::npos;
}

} // namespace

std::string VisFolder(const std::string& appDir) {
    return JoinPath(appDir, "plugins");
}

VisPlugin ReadVisPlugin(const std::string& appDir, const std::string& file) {
    constexpr const char* Section = "visualisation";
    VisPlugin plugin;
    if (!IsFileName(file)) return plugin;
    const auto bytes = ReadWholeFile(JoinPath(VisFolder(appDir), file), PluginBytes);
    if (bytes && bytes->starts_with('[')) {
        const IniDocument document(*bytes);
        plugin.name = Left(Trim(ToUtf8(document.Value(Section, "name").value_or(""))), LongestName);
        plugin.scene = document.Value(Section, "scene").value_or("");
    }
    if (!IsText(plugin.name)) plugin.name.clear();
    if (plugin.name.empty()) plugin.name = ToUtf8(file.substr(0, file.rfind('.')));
    return plugin;
}

std::vector<std::string> ReadVisList(const std::string& appDir) {
    std::vector<std::string> list;
    const std::string text = ReadWholeFile(JoinPath(appDir, "VNFO.dat"), ListBytes).value_or("");
    for (const std::string& line : Split(ReplaceAll(text, "\r", "\n"), '\n')) {
        const std::string name = Trim(line);
        if (list.size() < VisListLimit && IsFileName(name)) list.push_back(name);
    }
    return list;
}

std::vector<std::string> VisFiles(const std::string& appDir) {
    std::vector<std::string> files;
    for (const FolderEntry& entry : ListFolder(VisFolder(appDir)))
        if (!entry.isFolder && EqualNoCase(ExtensionOf(entry.name), "dll") &&
            IsFileName(entry.name))
            files.push_back(entry.name);
    std::ranges::sort(files);
    return files;
}

std::string VisChoice::File() const {
    return settings_.ini().ReadText(settings_.File(IniName), "Winamp", PluginKey);
}

// The player reads the file when it starts the plug-in, and a running one looks at it.
bool VisChoice::Choose(const std::string& file) {
    if (!IsFileName(file)) return false;
    settings_.Set(setting::VisWindowName, ReadVisPlugin(settings_.AppDir(), file).name);
    return settings_.ini().WriteINI(settings_.File(IniName), "Winamp", PluginKey, file) != 0;
}

bool VisChoice::Step(int step) {
    const std::vector<std::string> list = ReadVisList(settings_.AppDir());
    const std::string now = File();
    const auto at =
        std::ranges::find_if(list, [&](const std::string& file) { return EqualNoCase(file, now); });
    const auto count = static_cast<int>(list.size());
    if (count == 0 || (count == 1 && at != list.end())) return false;
    const int next = at == list.end() ? 0 : (static_cast<int>(at - list.begin()) + step + count);
    return Choose(list[static_cast<std::size_t>(next % count)]);
}

} // namespace vk
