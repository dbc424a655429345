#include "visuals/sound/file_input.h"

#include "core/text.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <algorithm>
#include <cstdlib>
#include <span>
#include <thread>

namespace vk {

namespace {

constexpr std::int64_t MostDrift = 250, OpensIn = 60; // milliseconds
constexpr auto Settles = std::chrono::milliseconds(1500);
constexpr std::int64_t LongestHold = 400000; // microseconds
constexpr const char* Options[] = {"--no-video",           "--no-xlib", "--quiet", "--no-stats",
                                   "--demux=avformat,any", "--no-spu"};

bool CanBeOpenedTwice(const std::string& file) {
    return !EqualNoCase(ExtensionOf(file), "cda") && FileExists(file);
}

} // namespace

FileInput::FileInput(SoundRing& ring)
    : ring_(ring), library_(libvlc_new(static_cast<int>(std::size(Options)), Options)) {
    if (!library_) return;
    player_.reset(libvlc_media_player_new(library_.get()));
    libvlc_audio_set_format(player_.get(), "S16N", SoundRate, 2);
    libvlc_audio_set_callbacks(player_.get(), &FileInput::OnSound, nullptr, nullptr, nullptr,
                               nullptr, this);
    libvlc_event_attach(libvlc_media_player_event_manager(player_.get()),
                        libvlc_MediaPlayerTimeChanged, &FileInput::OnTime, this);
}

FileInput::~FileInput() {
    if (player_) libvlc_media_player_stop(player_.get());
}

// The sound comes before its time: held back here, the decoder waits for it.
void FileInput::OnSound(void* self, const void* samples, unsigned count, std::int64_t due) {
    const std::int64_t early = std::clamp<std::int64_t>(libvlc_delay(due), 0, LongestHold);
    std::this_thread::sleep_for(std::chrono::microseconds(early));
    static_cast<FileInput*>(self)->ring_.Write(
        {static_cast<const std::int16_t*>(samples), std::size_t{2} * count});
}

void FileInput::OnTime(const libvlc_event_t* event, void* self) {
    auto& input = *static_cast<FileInput*>(self);
    const std::lock_guard lock(input.mutex_);
    input.timeMs_ = event->u.media_player_time_changed.new_time;
    input.timeAt_ = Clock::now();
}

std::int64_t FileInput::PositionMs() {
    const std::lock_guard lock(mutex_);
    const auto since = Clock::now() - timeAt_;
    return timeMs_ + std::chrono::duration_cast<std::chrono::milliseconds>(since).count();
}

void FileInput::Open(const PlayerNews& news) {
    libvlc_media_player_stop(player_.get());
    file_ = news.file;
    if (!CanBeOpenedTwice(file_)) return;
    const VlcMedia media(libvlc_media_new_path(library_.get(), file_.c_str()));
    const double start = static_cast<double>(news.positionMs + OpensIn) / 1000;
    libvlc_media_add_option(media.get(), (":start-time=" + std::to_string(start)).c_str());
    libvlc_media_player_set_media(player_.get(), media.get());
    libvlc_media_player_play(player_.get());
    steadyFrom_ = Clock::now() + Settles;
}

void FileInput::Seek(std::int64_t positionMs) {
    libvlc_media_player_set_time(player_.get(), positionMs + OpensIn);
    steadyFrom_ = Clock::now() + Settles;
}

void FileInput::Follow(const PlayerNews& news) {
    if (!player_) return;
    if (news.file != file_) return Open(news);
    if (!CanBeOpenedTwice(file_)) return;
    const libvlc_state_t state = libvlc_media_player_get_state(player_.get());
    if (news.playing && (state == libvlc_Ended || state == libvlc_Stopped)) return Open(news);
    if (news.playing != (state != libvlc_Paused)) {
        libvlc_media_player_set_pause(player_.get(), news.playing ? 0 : 1);
        steadyFrom_ = Clock::now() + Settles;
        return;
    }
    if (!news.playing || Clock::now() < steadyFrom_) return;
    if (std::abs(PositionMs() - news.positionMs) > MostDrift) Seek(news.positionMs);
}

} // namespace vk
