#include "platform/linux/vlc/disc_angles.h"

#include <dlfcn.h>

#include <mutex>

namespace {

// As libdvdnav's header of the sixth version has them; a status is 1 when all is well.
using Open = int (*)(void** disc, void* context, const void* logger, const char* path);
using Close = int (*)(void* disc);
using AngleInfo = int (*)(void* disc, int* current, int* count);
using ChangeAngle = int (*)(void* disc, int angle);

std::mutex mutex;
void* opened = nullptr; ///< the disc that was opened last; null: none, or it is closed

/// A call of the library, which the plug-in that asks has brought into the process.
template<class Call> Call Real(const char* name) {
    void* const library = ::dlopen("libdvdnav.so.4", RTLD_LAZY | RTLD_NOLOAD);
    if (!library) return nullptr;
    const auto call = reinterpret_cast<Call>(::dlsym(library, name));
    ::dlclose(library);
    return call;
}

} // namespace

// In the names of the library's own, which libVLC's plug-in finds here first.
extern "C" {

int dvdnav_open2(void** disc, void* context, const void* logger, const char* path);
int dvdnav_open2(void** disc, void* context, const void* logger, const char* path) {
    const auto open = Real<Open>("dvdnav_open2");
    const int status = open ? open(disc, context, logger, path) : 0;
    const std::lock_guard lock(mutex);
    if (status == 1) opened = *disc;
    return status;
}

int dvdnav_close(void* disc);
int dvdnav_close(void* disc) {
    {
        const std::lock_guard lock(mutex);
        if (opened == disc) opened = nullptr;
    }
    const auto close = Real<Close>("dvdnav_close");
    return close ? close(disc) : 0;
}
}

namespace vk {

// What is loaded for the whole process is asked before a plug-in's own libraries are.
void DiscAngles::Begin() {
    Dl_info self{};
    if (::dladdr(reinterpret_cast<void*>(&DiscAngles::Begin), &self) != 0)
        ::dlopen(self.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_GLOBAL);
}

int DiscAngles::Current() {
    const std::lock_guard lock(mutex);
    const auto info = opened ? Real<AngleInfo>("dvdnav_get_angle_info") : nullptr;
    int current = 1, count = 1;
    return info && info(opened, &current, &count) == 1 ? current : 1;
}

void DiscAngles::Change(int angle) {
    const std::lock_guard lock(mutex);
    if (const auto change = opened ? Real<ChangeAngle>("dvdnav_angle_change") : nullptr)
        change(opened, angle);
}

} // namespace vk
