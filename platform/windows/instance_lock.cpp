#include "platform/instance_lock.h"

#include "platform/paths.h"
#include "platform/windows/wide_text.h"

#include <windows.h>

#include <algorithm>

namespace vk {

namespace {

class MutexLock : public InstanceLock {
  public:
    ~MutexLock() override { Release(); }
    bool Claim(const std::string& folder) override {
        Release();
        const HANDLE mutex = ::CreateMutexW(nullptr, FALSE, NameOf(folder).c_str());
        const bool others = mutex && ::GetLastError() == ERROR_ALREADY_EXISTS;
        if (others) {
            ::CloseHandle(mutex);
            return false;
        }
        mutex_ = mutex;
        return true;
    }

  private:
    // Backslashes have a meaning of their own in such names; letters have no case in paths.
    static std::wstring NameOf(const std::string& folder) {
        std::wstring name = ToWide(WithoutTrailingSeparator(folder));
        std::ranges::replace(name, L'\\', L'/');
        ::CharLowerW(name.data());
        return L"Velkorandum " + name;
    }
    void Release() {
        if (mutex_) ::CloseHandle(mutex_);
        mutex_ = nullptr;
    }

    HANDLE mutex_ = nullptr;
};

} // namespace

std::unique_ptr<InstanceLock> MakeInstanceLock() {
    return std::make_unique<MutexLock>();
}

} // namespace vk
