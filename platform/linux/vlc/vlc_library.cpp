#include "platform/linux/vlc/vlc_library.h"

#include "platform/linux/sound_device.h"

#include <dlfcn.h>
#include <link.h>
#include <malloc.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vk {

namespace {

// avformat knows lengths at once and seeks in all containers, but it cannot read texts among the
// streams and holds the film's time back for them; pictures come into memory, where no graphics
// hardware reaches them, and are scaled in the cheapest way that smooths. What is interlaced is
// told by the film.
std::vector<const char*> Options(SoundDevice device) {
    std::vector<const char*> options{"--no-xlib",        "--avcodec-hw=none",
                                     "--no-osd",         "--no-stats",
                                     "--no-lua",         "--no-video-title-show",
                                     "--quiet",          "--demux=mkv,mp4,avformat,any",
                                     "--deinterlace=-1", "--deinterlace-mode=linear",
                                     "--swscale-mode=0"};
    if (device == SoundDevice::None)
        options.insert(options.end(), {"--aout=alsa", "--alsa-audio-device=null"});
    return options;
}

// VLC's reader of tags leaves entries in a list of TagLib, which this process uses as well: it may
// not be unloaded with the instance that loaded it. Under a sanitizer no plug-in may: what an
// unloaded one has kept would be taken for a leak.
bool Stays(std::string_view path) {
#ifdef __SANITIZE_ADDRESS__
    return path.find("/vlc/plugins/") != std::string_view::npos;
#else
    return path.ends_with("/libtaglib_plugin.so");
#endif
}

int FindStaying(dl_phdr_info* object, std::size_t, void* paths) {
    const std::string_view path = object->dlpi_name ? object->dlpi_name : "";
    if (Stays(path)) static_cast<std::vector<std::string>*>(paths)->emplace_back(path);
    return 0;
}

void KeepPlugins() {
    std::vector<std::string> paths;
    ::dl_iterate_phdr(FindStaying, &paths);
    for (const std::string& path : paths)
        static_cast<void>(::dlopen(path.c_str(), RTLD_NOW | RTLD_NODELETE));
}

} // namespace

std::shared_ptr<libvlc_instance_t> VlcLibrary::Get() {
    const std::lock_guard lock(mutex_);
    if (instance_) return instance_;
    const auto options = Options(FindSoundDevice(SoundPlaces::OfEnvironment()));
    libvlc_instance_t* made = libvlc_new(static_cast<int>(options.size()), options.data());
    if (made) instance_.reset(made, libvlc_release);
    return instance_;
}

void VlcLibrary::Release() {
    const std::lock_guard lock(mutex_);
    if (!instance_ || instance_.use_count() > 1) return;
    KeepPlugins();
    instance_.reset();
    ::malloc_trim(0);
}

} // namespace vk
