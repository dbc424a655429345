#include "platform/linux/sound/alsa_input.h"

#include "platform/linux/sound/alsa_quiet.h"

#include <alsa/asoundlib.h>

#include <array>

namespace vk {

namespace {

constexpr unsigned LatencyUs = 200000;
constexpr int WaitMs = 100; // how long a stop may have to wait

// After an overrun the device stands ready and does not run.
bool Recover(snd_pcm_t* pcm, int error) {
    return snd_pcm_recover(pcm, error, 1) >= 0 &&
           (snd_pcm_state(pcm) != SND_PCM_STATE_PREPARED || snd_pcm_start(pcm) >= 0);
}

} // namespace

bool AlsaInput::Start(OnBuffer onBuffer) {
    Stop();
    KeepAlsaQuiet();
    snd_pcm_t* pcm = nullptr;
    bool ready = snd_pcm_open(&pcm, device_.c_str(), SND_PCM_STREAM_CAPTURE, SND_PCM_NONBLOCK) >= 0;
    if (ready && (snd_pcm_set_params(pcm, SND_PCM_FORMAT_S16, SND_PCM_ACCESS_RW_INTERLEAVED, 1,
                                     SampleRate, 1, LatencyUs) < 0 ||
                  snd_pcm_start(pcm) < 0)) {
        snd_pcm_close(pcm);
        ready = false;
    }
    if (!ready) return false;
    stop_ = false;
    running_ = true;
    thread_ = std::thread([this, pcm, onBuffer = std::move(onBuffer)] { Record(pcm, onBuffer); });
    return true;
}

void AlsaInput::Stop() {
    stop_ = true;
    if (thread_.joinable()) thread_.join();
}

// Ends at a stop, or when the device is gone for good.
void AlsaInput::Record(snd_pcm_t* pcm, const OnBuffer& onBuffer) {
    std::array<std::int16_t, BufferSamples> samples{};
    while (!stop_) {
        if (snd_pcm_wait(pcm, WaitMs) == 0) continue;
        const snd_pcm_sframes_t got = snd_pcm_readi(pcm, samples.data(), samples.size());
        if (got > 0)
            onBuffer({samples.data(), static_cast<std::size_t>(got)});
        else if (got != -EAGAIN && !Recover(pcm, static_cast<int>(got)))
            break;
    }
    snd_pcm_close(pcm);
    running_ = false;
}

} // namespace vk
