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

// avformat knows lengths at once and seeks in all containers; pictures come into memory, where no
// graphics hardware reaches them. What is interlaced is told by the film.
std::vector<const char*> Options(SoundDevice device) {
    std::vector<const char*> options{
        "--no-xlib",        "--avcodec-hw=none",        "--no-osd", "--no-stats",
        "--no-lua",         "--no-video-title-show",    "--quiet",  "--demux=avformat,any",
        "--deinterlace=-1", "--deinterlace-mode=linear"};
    if (device == SoundDevice::None)
        options.insert(options.end(), {"--aout=alsa", "--alsa-audio-device=null"});
    return options;
}

int FindTagReader(dl_phdr_info* object, std::size_t, void* path) {
    const std::string_view name = object->dlpi_name ? object->dlpi_name : "";
    if (name.ends_with("/libtaglib_plugin.so")) *static_cast<std::string*>(path) = name;
    return 0;
}

// VLC's reader of tags leaves entries in a list of TagLib, which this process uses as well: it may
// not be unloaded with the instance that loaded it.
void KeepTagReader() {
    std::string path;
    ::dl_iterate_phdr(FindTagReader, &path);
    if (!path.empty()) static_cast<void>(::dlopen(path.c_str(), RTLD_NOW | RTLD_NODELETE));
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
    if (!instance_) return;
    KeepTagReader();
    instance_.reset();
    ::malloc_trim(0);
}

} // namespace vk
