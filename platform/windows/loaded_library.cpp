#include "platform/loaded_library.h"

#include "platform/windows/wide_text.h"

#include <windows.h>

namespace vk {

namespace {

class DynamicLibrary : public LoadedLibrary {
  public:
    explicit DynamicLibrary(HMODULE module) : module_(module) {}
    ~DynamicLibrary() override { ::FreeLibrary(module_); }
    DynamicLibrary(const DynamicLibrary&) = delete;
    DynamicLibrary& operator=(const DynamicLibrary&) = delete;
    void* Symbol(const char* name) const override {
        return reinterpret_cast<void*>(::GetProcAddress(module_, name));
    }
    unsigned LastError() const override { return ::GetLastError(); }

  private:
    HMODULE module_;
};

} // namespace

std::unique_ptr<LoadedLibrary> LoadFirstLibrary(const std::vector<std::string>& names,
                                                std::string& reason) {
    for (const std::string& name : names) {
        if (const HMODULE module = ::LoadLibraryW(ToWide(name).c_str()))
            return std::make_unique<DynamicLibrary>(module);
        reason = name + ": error " + std::to_string(::GetLastError());
    }
    return nullptr;
}

} // namespace vk
