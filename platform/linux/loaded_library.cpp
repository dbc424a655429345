#include "platform/loaded_library.h"

#include <dlfcn.h>

#include <cerrno>

namespace vk {

namespace {

class SharedObject : public LoadedLibrary {
  public:
    explicit SharedObject(void* handle) : handle_(handle) {}
    ~SharedObject() override { ::dlclose(handle_); }
    SharedObject(const SharedObject&) = delete;
    SharedObject& operator=(const SharedObject&) = delete;
    void* Symbol(const char* name) const override { return ::dlsym(handle_, name); }
    unsigned LastError() const override { return static_cast<unsigned>(errno); }

  private:
    void* handle_;
};

} // namespace

std::unique_ptr<LoadedLibrary> LoadFirstLibrary(const std::vector<std::string>& names,
                                                std::string& reason) {
    for (const std::string& name : names) {
        if (void* handle = ::dlopen(name.c_str(), RTLD_NOW | RTLD_LOCAL))
            return std::make_unique<SharedObject>(handle);
        if (const char* error = ::dlerror()) reason = error;
    }
    return nullptr;
}

} // namespace vk
