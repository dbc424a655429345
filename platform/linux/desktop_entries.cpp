#include "platform/linux/desktop_entries.h"

#include "platform/files.h"
#include "platform/linux/icon_files.h"
#include "platform/paths.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <optional>
#include <set>

namespace vk {

namespace {

constexpr std::size_t LongestEntry = 256 * 1024; // bytes; translations make them long
constexpr std::string_view Header = "[Desktop Entry]";
using Keys = std::map<std::string, std::string, std::less<>>;

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view Blanks = " \t\r";
    const auto from = text.find_first_not_of(Blanks);
    if (from == std::string_view::npos) return {};
    return text.substr(from, text.find_last_not_of(Blanks) - from + 1);
}

// Of values of the type string; what is escaped in no known way stays.
std::string Unescaped(std::string_view value) {
    static constexpr std::string_view Letters = "sntr\\", Meant = " \n\t\r\\";
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        const auto known = value[i] == '\\' && i + 1 < value.size() ? Letters.find(value[i + 1])
                                                                    : std::string_view::npos;
        if (known == std::string_view::npos) {
            text += value[i];
        } else {
            text += Meant[known];
            ++i;
        }
    }
    return text;
}

Keys KeysOf(std::string_view text) {
    Keys keys;
    bool inside = false;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        const std::string_view line = Trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.starts_with('[')) inside = line == Header;
        const auto equals = line.find('=');
        if (!inside || line.starts_with('#') || equals == std::string_view::npos) continue;
        keys.emplace(Trimmed(line.substr(0, equals)), Unescaped(Trimmed(line.substr(equals + 1))));
    }
    return keys;
}

/// The folders of data and of commands, and what has been read of them.
class EntryReader {
  public:
    EntryReader(const std::vector<std::string>& dataFolders,
                const std::vector<std::string>& searched)
        : searched_(searched), icons_(dataFolders) {}

    void ReadFolder(const std::string& folder, const std::string& prefix) {
        for (const FolderEntry& entry : ListFolder(folder)) {
            const std::string path = JoinPath(folder, entry.name);
            if (entry.isFolder && prefix.empty())
                ReadFolder(path, entry.name + "-");
            else if (entry.name.ends_with(".desktop") && seen_.insert(prefix + entry.name).second)
                ReadEntry(path);
        }
    }
    std::vector<InstalledProgram> found;

  private:
    void ReadEntry(const std::string& path) {
        const auto text = ReadWholeFile(path, LongestEntry);
        if (!text) return;
        Keys keys = KeysOf(*text);
        const auto is = [&](const char* key) { return keys[key] == "true"; };
        if (keys["Type"] != "Application" || keys["Name"].empty() || is("NoDisplay") ||
            is("Hidden") || is("Terminal") || (!keys["TryExec"].empty() && !Find(keys["TryExec"])))
            return;
        auto words = ExecWords(keys["Exec"], keys["Name"]);
        const auto program = words.empty() ? std::nullopt : Find(words.front());
        if (!program) return;
        words.erase(words.begin());
        found.push_back({keys["Name"], *program, std::move(words), icons_.Find(keys["Icon"])});
    }
    std::optional<std::string> Find(const std::string& command) const {
        if (IsAbsolutePath(command))
            return IsProgramFile(command) ? std::optional(command) : std::nullopt;
        for (const std::string& folder : searched_)
            if (const std::string path = JoinPath(folder, command); IsProgramFile(path))
                return path;
        return std::nullopt;
    }

    const std::vector<std::string>& searched_;
    IconFiles icons_;
    std::set<std::string> seen_;
};

std::string Variable(const char* name, const std::string& otherwise) {
    const char* value = std::getenv(name);
    return value && *value ? value : otherwise;
}

std::vector<std::string> Folders(const std::string& list) {
    std::vector<std::string> folders;
    for (std::size_t at = 0; at <= list.size();) {
        const auto end = std::min(list.find(':', at), list.size());
        if (end > at) folders.push_back(list.substr(at, end - at));
        at = end + 1;
    }
    return folders;
}

} // namespace

std::vector<std::string> ExecWords(std::string_view exec, const std::string& name) {
    std::vector<std::string> words;
    std::string word;
    bool quoted = false, any = false, code = false;
    const auto end = [&] {
        if (any && !(code && word.empty())) words.push_back(word);
        word.clear();
        any = code = false;
    };
    for (std::size_t i = 0; i < exec.size(); ++i) {
        const char letter = exec[i];
        const bool more = i + 1 < exec.size();
        if (letter == ' ' && !quoted) {
            end();
            continue;
        }
        any = true;
        if (letter == '"') {
            quoted = !quoted;
        } else if (letter == '\\' && quoted && more) {
            word += exec[++i];
        } else if (letter == '%' && more) {
            ++i;
            word += exec[i] == '%' ? "%" : exec[i] == 'c' ? name : "";
            code = true;
        } else {
            word += letter;
        }
    }
    end();
    return quoted ? std::vector<std::string>() : words;
}

std::vector<InstalledProgram> ReadDesktopEntries(const std::vector<std::string>& dataFolders,
                                                 const std::vector<std::string>& searched) {
    EntryReader reader(dataFolders, searched);
    for (const std::string& folder : dataFolders)
        reader.ReadFolder(JoinPath(folder, "applications"), "");
    std::ranges::sort(reader.found, {}, &InstalledProgram::name);
    return std::move(reader.found);
}

std::vector<InstalledProgram> ListInstalledPrograms() {
    const std::string home = Variable("HOME", "/");
    std::vector<std::string> data =
        Folders(Variable("XDG_DATA_DIRS", "/usr/local/share:/usr/share"));
    data.insert(data.begin(), Variable("XDG_DATA_HOME", JoinPath(home, ".local/share")));
    return ReadDesktopEntries(data, Folders(Variable("PATH", "/usr/local/bin:/usr/bin:/bin")));
}

} // namespace vk
