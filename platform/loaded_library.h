// Libraries of vendors, loaded at run time: their absence is normal.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace vk {

/// One loaded library. Destroying it unloads it: by then no call of it may run.
class LoadedLibrary {
  public:
    virtual ~LoadedLibrary() = default;
    /// The address of a call; null when the library has none of that name.
    virtual void* Symbol(const char* name) const = 0;
    /// The error number that the library's last call on this thread left: GetLastError, or errno.
    virtual unsigned LastError() const = 0;

    /// The call `name` as a function pointer of type `Call`; null when it is missing.
    template<class Call> Call Get(const char* name) const {
        return reinterpret_cast<Call>(Symbol(name));
    }
};

/// The first of `names` (file names for the system's search, or paths) that can be loaded; null
/// when none can, with what the loader said in `reason`.
std::unique_ptr<LoadedLibrary> LoadFirstLibrary(const std::vector<std::string>& names,
                                                std::string& reason);

} // namespace vk
