#include "visuals/sound/monitor_input.h"

#include "platform/linux/sound/alsa_quiet.h"
#include "platform/linux/sound_device.h"

#include <alsa/asoundlib.h>

#include <chrono>
#include <memory>
#include <vector>

namespace vk {

namespace {

// ALSA's door to the server; `fallback` also keeps its library from starting a server.
constexpr char Configuration[] = "pcm.vk_monitor { type pulse device \"@DEFAULT_MONITOR@\" "
                                 "fallback \"null\" }";
constexpr unsigned Channels = 2, LatencyUs = 30000;
constexpr snd_pcm_uframes_t BlockFrames = 512;
constexpr int WaitMs = 100; // how long the end may have to wait
constexpr auto Again = std::chrono::seconds(2);

struct ClosePcm {
    void operator()(snd_pcm_t* pcm) const { snd_pcm_close(pcm); }
};
using Pcm = std::unique_ptr<snd_pcm_t, ClosePcm>;

struct DeleteConfig {
    void operator()(snd_config_t* config) const { snd_config_delete(config); }
};

Pcm OpenMonitor() {
    snd_input_t* text = nullptr;
    if (snd_input_buffer_open(&text, Configuration, sizeof Configuration - 1) < 0) return nullptr;
    snd_config_t* made = nullptr;
    const bool read = snd_config_top(&made) >= 0 && snd_config_load(made, text) >= 0;
    const std::unique_ptr<snd_config_t, DeleteConfig> config(made);
    snd_input_close(text);
    snd_pcm_t* pcm = nullptr;
    if (!read || snd_pcm_open_lconf(&pcm, "vk_monitor", SND_PCM_STREAM_CAPTURE, SND_PCM_NONBLOCK,
                                    config.get()) < 0)
        return nullptr;
    Pcm opened(pcm);
    if (snd_pcm_type(pcm) == SND_PCM_TYPE_NULL ||
        snd_pcm_set_params(pcm, SND_PCM_FORMAT_S16, SND_PCM_ACCESS_RW_INTERLEAVED, Channels,
                           SoundRate, 1, LatencyUs) < 0 ||
        snd_pcm_start(pcm) < 0)
        return nullptr;
    return opened;
}

bool Recover(snd_pcm_t* pcm, snd_pcm_sframes_t error) {
    return snd_pcm_recover(pcm, static_cast<int>(error), 1) >= 0 && snd_pcm_start(pcm) >= 0;
}

} // namespace

MonitorInput::MonitorInput(SoundRing& ring) : ring_(ring), thread_([this] { Run(); }) {}

MonitorInput::~MonitorInput() {
    stop_ = true;
    thread_.join();
}

bool MonitorInput::Possible() {
    return FindSoundDevice(SoundPlaces::OfEnvironment()) == SoundDevice::Server;
}

void MonitorInput::Run() {
    KeepAlsaQuiet();
    while (!stop_) {
        Listen();
        const auto next = std::chrono::steady_clock::now() + Again;
        while (!stop_ && std::chrono::steady_clock::now() < next)
            std::this_thread::sleep_for(std::chrono::milliseconds(WaitMs));
    }
}

// Until the end, or that of the server.
void MonitorInput::Listen() {
    const Pcm pcm = OpenMonitor();
    if (!pcm) return;
    std::vector<std::int16_t> samples(BlockFrames * Channels);
    while (!stop_) {
        if (snd_pcm_wait(pcm.get(), WaitMs) == 0) continue;
        const snd_pcm_sframes_t got = snd_pcm_readi(pcm.get(), samples.data(), BlockFrames);
        if (got > 0)
            ring_.Write({samples.data(), static_cast<std::size_t>(got) * Channels});
        else if (got != -EAGAIN && !Recover(pcm.get(), got))
            return;
    }
}

} // namespace vk
