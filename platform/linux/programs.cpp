#include "platform/programs.h"

#include "platform/files.h"
#include "platform/linux/child_watch.h"
#include "platform/linux/program_family.h"
#include "platform/linux/program_notes.h"
#include "platform/linux/spawn.h"
#include "platform/paths.h"

#include <strings.h>
#include <unistd.h>

#include <cctype>
#include <csignal>
#include <cstdlib>
#include <cstring>

namespace vk {

namespace {

constexpr char ReplacedMark[] = " (deleted)";

// The file name of a process's program; "" when it has gone or belongs to somebody else.
std::string ProgramOf(const std::string& id) {
    std::string path(4096, '\0');
    const std::string link = "/proc/" + id + "/exe";
    const ssize_t length = ::readlink(link.c_str(), path.data(), path.size());
    path.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    if (path.ends_with(ReplacedMark)) path.resize(path.size() - sizeof ReplacedMark + 1);
    return FileNameOf(path);
}

std::string WithoutExe(const std::string& name) {
    const bool has = name.size() > 4 && strcasecmp(name.c_str() + name.size() - 4, ".exe") == 0;
    return has ? name.substr(0, name.size() - 4) : name;
}

class LinuxPrograms : public Programs {
  public:
    explicit LinuxPrograms(const std::string& notes) : notes_(notes) {}
    ~LinuxPrograms() override {
        if (!ours_.empty()) Note();
    }

    ProgramId Start(const ProgramStart& what) override {
        const pid_t child = SpawnDetached(what.program, what.arguments, what.folder);
        if (child == 0) return 0;
        if (what.background) PutInBackground(child);
        families_.Add(child);
        children_.Watch(child);
        if (what.ours) {
            ours_.push_back(child);
            Note();
        }
        return child;
    }
    bool Running(ProgramId program) const override { return children_.Running(Pid(program)); }
    void Close(ProgramId program) override {
        children_.Running(Pid(program)) ? children_.Signal(Pid(program), SIGTERM)
                                        : families_.Close(Pid(program));
    }
    void Kill(ProgramId program) override { children_.Signal(Pid(program), SIGKILL); }
    bool IsOf(ProgramId process, ProgramId program) const override {
        return families_.Has(Pid(process), Pid(program));
    }
    bool AnyRunning(ProgramId program) const override { return families_.Any(Pid(program)); }
    void KillAll(ProgramId program) override { families_.Kill(Pid(program)); }
    std::vector<ProgramId> LeftBehind() override {
        std::vector<ProgramId> left;
        for (const auto& each : notes_.Read())
            if (families_.Add(each)) {
                left.push_back(each.first);
                ours_.push_back(each.first);
            }
        Note();
        return left;
    }
    bool Wait(ProgramId program, int timeoutMs) const override {
        return children_.Wait(Pid(program), timeoutMs);
    }
    bool ProcessRunning(const std::string& name, ProgramId ownId) const override {
        const std::string wanted = WithoutExe(name);
        for (const FolderEntry& entry : ListFolder("/proc")) {
            if (!entry.isFolder || !std::isdigit(static_cast<unsigned char>(entry.name[0])))
                continue;
            if (std::atol(entry.name.c_str()) == ownId) continue;
            if (strcasestr(ProgramOf(entry.name).c_str(), wanted.c_str())) return true;
        }
        return false;
    }

  private:
    static pid_t Pid(ProgramId program) { return static_cast<pid_t>(program); }
    void Note() {
        const StartedPrograms living = families_.Living(ours_);
        std::erase_if(ours_, [&](pid_t each) { return !living.contains(each); });
        notes_.Write(living);
    }

    ChildWatch children_;
    ProgramFamilies families_{children_};
    ProgramNotes notes_;
    std::vector<pid_t> ours_; ///< that are noted
};

} // namespace

std::unique_ptr<Programs> MakePrograms(const std::string& notes) {
    return std::make_unique<LinuxPrograms>(notes);
}

} // namespace vk
