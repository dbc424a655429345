#include "platform/linux/linux_desktop.h"

#include "platform/files.h"
#include "platform/paths.h"

#include <cstdlib>
#include <iterator>
#include <utility>

namespace vk {

namespace {

constexpr const char* Schemas[] = {"org.gnome.desktop.media-handling",
                                   "org.cinnamon.desktop.media-handling",
                                   "org.mate.media-handling"};
constexpr std::size_t LongestAnswer = 1 << 16; // bytes
// What is added to the usual number for each key that keeps the desktop quiet; both make 255.
constexpr std::int32_t FolderStaysShut = 2, NothingRuns = 4;

std::string Variable(const char* name, const std::string& otherwise) {
    const char* value = std::getenv(name);
    return value && *value ? value : otherwise;
}

// "org.gnome.desktop.media-handling autorun-never true"
bool Says(const std::string& answer, const std::string& key, const std::string& value) {
    return answer.find(" " + key + " " + value) != std::string::npos;
}

std::int32_t NumberOf(const std::string& answer) {
    const bool shut = Says(answer, "automount-open", "false");
    const bool never = Says(answer, "autorun-never", "true");
    if (shut && never) return Desktop::NothingOpens;
    return Desktop::UsualOpens + (shut ? FolderStaysShut : 0) + (never ? NothingRuns : 0);
}

// Exec of a desktop entry: in double quotes, with these four escaped.
std::string Quoted(const std::string& path) {
    std::string text = "\"";
    for (const char c : path) {
        if (c == '"' || c == '`' || c == '$' || c == '\\') text += '\\';
        text += c;
        if (c == '%') text += '%';
    }
    return text + "\"";
}

} // namespace

LinuxDesktop::Places UsersPlaces() {
    const std::string home = Variable("HOME", "/");
    return {.program = JoinPath(ExecutableFolder(), "velkorandum"),
            .configFolder = Variable("XDG_CONFIG_HOME", JoinPath(home, ".config")),
            .home = home,
            .session = Variable("XDG_CURRENT_DESKTOP", "")};
}

std::string LinuxDesktop::Entry() const {
    return JoinPath(JoinPath(places_.configFolder, "autostart"), "velkorandum.desktop");
}

bool LinuxDesktop::IsShell() const {
    if (!shell_) shell_ = FileExists(Entry());
    return *shell_;
}

bool LinuxDesktop::SetShell(bool on) {
    shell_.reset();
    if (!on) return !FileExists(Entry()) || DeleteFileAt(Entry());
    for (const std::string& folder : {places_.configFolder, FolderOf(Entry())})
        if (!FolderExists(folder) && !MakeFolder(folder)) return false;
    return ReplaceFile(Entry(), "[Desktop Entry]\nType=Application\nName=Velkorandum\nExec=" +
                                    Quoted(places_.program) + "\n");
}

void LinuxDesktop::AskAutoPlay(std::function<void(std::optional<std::int32_t>)> told) {
    told_ = std::move(told);
    AskSchema(0);
}

void LinuxDesktop::AskSchema(std::size_t number) {
    child_.reset();
    answer_.clear();
    schema_.clear();
    if (number == std::size(Schemas) || !FileExists(places_.gsettings)) {
        if (const auto told = std::exchange(told_, {})) told(std::nullopt);
        return;
    }
    child_ = makeChild_();
    child_->onOutput = [this](std::string_view bytes) {
        if (answer_.size() < LongestAnswer) answer_ += bytes;
    };
    child_->onEnded = [this, number](int code) {
        if (code != 0) return AskSchema(number + 1); // it is not there
        schema_ = Schemas[number];
        if (const auto told = std::exchange(told_, {})) told(NumberOf(answer_));
    };
    child_->Start(places_.gsettings, {"list-recursively", Schemas[number]});
}

bool LinuxDesktop::SetAutoPlay(std::int32_t value) {
    if (schema_.empty()) return false;
    const std::int32_t quiet =
        value == NothingOpens ? FolderStaysShut | NothingRuns : value - UsualOpens;
    const auto set = [this](const char* key, bool on) {
        return programs_.Start(
            {places_.gsettings, {"set", schema_, key, on ? "true" : "false"}, "/"});
    };
    return set("automount-open", (quiet & FolderStaysShut) == 0) != 0 &&
           set("autorun-never", (quiet & NothingRuns) != 0) != 0;
}

bool LinuxDesktop::OpenExplorer() {
    return FileExists(places_.opener) &&
           programs_.Start({places_.opener, {places_.home}, places_.home}) != 0;
}

} // namespace vk
