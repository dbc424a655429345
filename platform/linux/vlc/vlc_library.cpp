#include "platform/linux/vlc/vlc_library.h"

#include "platform/linux/sound_device.h"
#include "platform/linux/vlc_plugins.h"

#include <malloc.h>

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
