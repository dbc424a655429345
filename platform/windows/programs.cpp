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
    }
    ProgramId Start(const ProgramStart& what) override {
        PROCESS_INFORMATION process{};
        if (!StartProcess(what, process)) return 0;
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
    std::map<ProgramId, HANDLE> children_; ///< a handle keeps the number from being given again
};

} // namespace

std::unique_ptr<Programs> MakePrograms() {
    return std::make_unique<Win32Programs>();
}

} // namespace vk
