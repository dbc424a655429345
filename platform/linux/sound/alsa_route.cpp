#include "platform/linux/sound/alsa_route.h"

#include "platform/linux/sound/alsa_quiet.h"

#include <alsa/asoundlib.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <vector>

namespace vk {

namespace {

constexpr unsigned Rate = 48000, Channels = 2;
constexpr unsigned LatencyUs = 200000;
constexpr snd_pcm_uframes_t BlockFrames = 1024;
constexpr int WaitMs = 100; // how long a stop may have to wait

struct ClosePcm {
    void operator()(snd_pcm_t* pcm) const { snd_pcm_close(pcm); }
};
using Pcm = std::unique_ptr<snd_pcm_t, ClosePcm>;

Pcm Open(const std::string& device, snd_pcm_stream_t direction) {
    snd_pcm_t* pcm = nullptr;
    if (snd_pcm_open(&pcm, device.c_str(), direction, SND_PCM_NONBLOCK) < 0) return nullptr;
    Pcm opened(pcm);
    if (snd_pcm_set_params(pcm, SND_PCM_FORMAT_S16, SND_PCM_ACCESS_RW_INTERLEAVED, Channels, Rate,
                           1, LatencyUs) < 0)
        return nullptr;
    return opened;
}

bool Recover(snd_pcm_t* pcm, snd_pcm_sframes_t error, bool start) {
    return snd_pcm_recover(pcm, static_cast<int>(error), 1) >= 0 &&
           (!start || snd_pcm_start(pcm) >= 0);
}

// What finds no room is dropped: the two devices have clocks of their own.
bool Play(snd_pcm_t* out, const std::int16_t* samples, snd_pcm_sframes_t frames) {
    const snd_pcm_sframes_t put =
        snd_pcm_writei(out, samples, static_cast<snd_pcm_uframes_t>(frames));
    return put >= 0 || put == -EAGAIN || Recover(out, put, false);
}

} // namespace

std::vector<CaptureDevice> AlsaRoute::Devices() {
    KeepAlsaQuiet();
    std::vector<CaptureDevice> devices;
    for (int card = -1; snd_card_next(&card) >= 0 && card >= 0;) {
        snd_ctl_t* control = nullptr;
        const std::string number = "hw:" + std::to_string(card);
        if (snd_ctl_open(&control, number.c_str(), SND_CTL_NONBLOCK) < 0) continue;
        snd_ctl_card_info_t* info = nullptr;
        snd_ctl_card_info_alloca(&info);
        snd_pcm_info_t* pcm = nullptr;
        snd_pcm_info_alloca(&pcm);
        snd_pcm_info_set_stream(pcm, SND_PCM_STREAM_CAPTURE);
        if (snd_ctl_card_info(control, info) >= 0 && snd_ctl_pcm_info(control, pcm) >= 0)
            devices.push_back({"plughw:CARD=" + std::string(snd_ctl_card_info_get_id(info)),
                               snd_ctl_card_info_get_name(info)});
        snd_ctl_close(control);
    }
    return devices;
}

void AlsaRoute::Start(const std::string& device) {
    Stop();
    KeepAlsaQuiet();
    stop_ = false;
    running_ = true;
    thread_ = std::thread([this, device] {
        Run(device);
        running_ = false;
    });
}

void AlsaRoute::Stop() {
    stop_ = true;
    if (thread_.joinable()) thread_.join();
}

void AlsaRoute::Run(const std::string& device) {
    const Pcm in = Open(device, SND_PCM_STREAM_CAPTURE);
    const Pcm out = Open(output_, SND_PCM_STREAM_PLAYBACK);
    if (!in || !out || snd_pcm_start(in.get()) < 0) return;
    std::vector<std::int16_t> samples(BlockFrames * Channels);
    while (!stop_) {
        if (snd_pcm_wait(in.get(), WaitMs) == 0) continue;
        const snd_pcm_sframes_t got = snd_pcm_readi(in.get(), samples.data(), BlockFrames);
        const bool goesOn = got > 0          ? Play(out.get(), samples.data(), got)
                            : got == -EAGAIN ? true
                                             : Recover(in.get(), got, true);
        if (!goesOn) return;
    }
}

} // namespace vk
