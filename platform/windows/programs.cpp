#include "platform/programs.h"

#include "platform/paths.h"
#include "platform/windows/start_process.h"
#include "platform/windows/wide_text.h"

#include <tlhelp32.h>
#include <windows.h>

#include <algorithm>
#include <cwctype>
#include <map>

namespace vk {

namespace {

std::wstring Lower(std::wstring text) {
    std::ranges::transform(text, text.begin(), [](wchar_t letter) {
        return static_cast<wchar_t>(std::towlower(static_cast<wint_t>(letter)));
    });
    return text;
}

std::wstring WithoutExe(const std::wstring& name) {
    return name.ends_with(L".exe") ? name.substr(0, name.size() - 4) : name;
}

/// Every process with the one that started it.
std::map<DWORD, DWORD> Parents() {
    std::map<DWORD, DWORD> parents;
    const HANDLE all = ::CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (all == INVALID_HANDLE_VALUE) return parents;
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = ::Process32FirstW(all, &entry); more; more = ::Process32NextW(all, &entry))
        parents[entry.th32ProcessID] = entry.th32ParentProcessID;
    ::CloseHandle(all);
    return parents;
}

// A chain as long as there are processes is a ring: numbers are given again.
bool Descends(const std::map<DWORD, DWORD>& parents, DWORD process, DWORD program) {
    for (std::size_t step = 0; step <= parents.size(); ++step) {
        if (process == program) return true;
        const auto parent = parents.find(process);
        if (parent == parents.end()) return false;
        process = parent->second;
    }
    return false;
}

// Its processes end with the last handle of it, however this process ends.
HANDLE MakeTiedJob() {
    const HANDLE job = ::CreateJobObjectW(nullptr, nullptr);
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    ::SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    return job;
}

BOOL CALLBACK CloseIfOf(HWND window, LPARAM program) {
    DWORD owner = 0;
    ::GetWindowThreadProcessId(window, &owner);
    if (owner == static_cast<DWORD>(program)) ::PostMessageW(window, WM_CLOSE, 0, 0);
    return TRUE;
}

class Win32Programs : public Programs {
  public:
    ~Win32Programs() override {
        for (const auto& [id, handle] : children_)
            ::CloseHandle(handle);
        ::CloseHandle(ours_);
    }
    ProgramId Start(const ProgramStart& what) override {
        PROCESS_INFORMATION process{};
        if (!StartProcess(what, process)) return 0;
        if (what.ours) ::AssignProcessToJobObject(ours_, process.hProcess);
        ::ResumeThread(process.hThread);
        ::CloseHandle(process.hThread);
        const auto id = static_cast<ProgramId>(process.dwProcessId);
        if (HANDLE& old = children_[id]) ::CloseHandle(old);
        children_[id] = process.hProcess;
        return id;
    }
    bool Running(ProgramId program) const override { return !Wait(program, 0); }
    void Close(ProgramId program) override {
        if (Running(program)) ::EnumWindows(CloseIfOf, program);
    }
    void Kill(ProgramId program) override {
        const auto child = children_.find(program);
        if (child != children_.end()) ::TerminateProcess(child->second, 0);
    }
    bool IsOf(ProgramId process, ProgramId program) const override {
        return children_.contains(program) &&
               Descends(Parents(), static_cast<DWORD>(process), static_cast<DWORD>(program));
    }
    bool AnyRunning(ProgramId program) const override { return !Family(program).empty(); }
    void KillAll(ProgramId program) override {
        for (const DWORD member : Family(program))
            if (const HANDLE process = ::OpenProcess(PROCESS_ALL_ACCESS, FALSE, member)) {
                ::TerminateProcess(process, 0);
                ::CloseHandle(process);
            }
    }
    bool Wait(ProgramId program, int timeoutMs) const override {
        const auto child = children_.find(program);
        return child == children_.end() ||
               ::WaitForSingleObject(child->second, static_cast<DWORD>(timeoutMs)) == WAIT_OBJECT_0;
    }
    bool ProcessRunning(const std::string& name, ProgramId ownId) const override {
        const std::wstring wanted = WithoutExe(Lower(ToWide(name)));
        const HANDLE all = ::CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
        if (all == INVALID_HANDLE_VALUE) return false;
        PROCESSENTRY32W entry{};
        entry.dwSize = sizeof entry;
        bool found = false;
        for (BOOL more = ::Process32FirstW(all, &entry); more && !found;
             more = ::Process32NextW(all, &entry))
            found = static_cast<ProgramId>(entry.th32ProcessID) != ownId &&
                    Lower(entry.szExeFile).find(wanted) != std::wstring::npos;
        ::CloseHandle(all);
        return found;
    }

  private:
    std::vector<DWORD> Family(ProgramId program) const {
        std::vector<DWORD> members;
        if (!children_.contains(program)) return members;
        const auto parents = Parents();
        for (const auto& [process, parent] : parents)
            if (Descends(parents, process, static_cast<DWORD>(program))) members.push_back(process);
        return members;
    }

    HANDLE ours_ = MakeTiedJob();
    std::map<ProgramId, HANDLE> children_; ///< a handle keeps the number from being given again
};

} // namespace

std::unique_ptr<Programs> MakePrograms(const std::string& /*notes*/) {
    return std::make_unique<Win32Programs>();
}

} // namespace vk
