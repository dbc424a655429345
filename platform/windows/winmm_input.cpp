#include "platform/windows/winmm_input.h"

#include <windows.h>

#include <array>
#include <atomic>
#include <thread>

namespace vk {

/// The device, its buffers, and the thread that hands them on. The device only signals an event:
/// its own callback must not call back into it, as putting a buffer back does.
class WinmmInput::Ring {
  public:
    explicit Ring(OnBuffer onBuffer)
        : onBuffer_(std::move(onBuffer)), event_(::CreateEventA(nullptr, FALSE, FALSE, nullptr)) {}
    ~Ring();
    Ring(const Ring&) = delete;
    Ring& operator=(const Ring&) = delete;

    bool Start();

  private:
    struct Buffer {
        WAVEHDR header{};
        std::array<std::int16_t, BufferSamples> samples{};
    };
    bool Queue(Buffer& buffer);
    void Serve();

    OnBuffer onBuffer_;
    HANDLE event_;
    HWAVEIN device_ = nullptr;
    std::array<Buffer, 4> buffers_;
    std::atomic<bool> stop_ = false;
    std::thread thread_;
};

bool WinmmInput::Ring::Start() {
    WAVEFORMATEX format{};
    format.wFormatTag = WAVE_FORMAT_PCM;
    format.nChannels = 1;
    format.nSamplesPerSec = SampleRate;
    format.wBitsPerSample = 16;
    format.nBlockAlign = sizeof(std::int16_t);
    format.nAvgBytesPerSec = SampleRate * format.nBlockAlign;
    if (::waveInOpen(&device_, WAVE_MAPPER, &format, reinterpret_cast<DWORD_PTR>(event_), 0,
                     CALLBACK_EVENT) != MMSYSERR_NOERROR) {
        device_ = nullptr;
        return false;
    }
    for (Buffer& buffer : buffers_)
        if (!Queue(buffer)) return false;
    thread_ = std::thread([this] { Serve(); });
    return ::waveInStart(device_) == MMSYSERR_NOERROR;
}

WinmmInput::Ring::~Ring() {
    stop_ = true;
    ::SetEvent(event_);
    if (thread_.joinable()) thread_.join();
    if (device_) {
        ::waveInStop(device_);
        ::waveInReset(device_);
        for (Buffer& buffer : buffers_)
            ::waveInUnprepareHeader(device_, &buffer.header, sizeof buffer.header);
        ::waveInClose(device_);
    }
    ::CloseHandle(event_);
}

bool WinmmInput::Ring::Queue(Buffer& buffer) {
    if (!(buffer.header.dwFlags & WHDR_PREPARED)) {
        buffer.header.lpData = reinterpret_cast<LPSTR>(buffer.samples.data());
        buffer.header.dwBufferLength = sizeof buffer.samples;
        if (::waveInPrepareHeader(device_, &buffer.header, sizeof buffer.header) !=
            MMSYSERR_NOERROR)
            return false;
    }
    return ::waveInAddBuffer(device_, &buffer.header, sizeof buffer.header) == MMSYSERR_NOERROR;
}

void WinmmInput::Ring::Serve() {
    while (::WaitForSingleObject(event_, INFINITE) == WAIT_OBJECT_0 && !stop_)
        for (Buffer& buffer : buffers_) {
            if (!(buffer.header.dwFlags & WHDR_DONE)) continue;
            onBuffer_(
                {buffer.samples.data(), buffer.header.dwBytesRecorded / sizeof(std::int16_t)});
            Queue(buffer);
        }
}

WinmmInput::WinmmInput() = default;

WinmmInput::~WinmmInput() = default;

bool WinmmInput::Start(OnBuffer onBuffer) {
    Stop();
    auto ring = std::make_unique<Ring>(std::move(onBuffer));
    if (!ring->Start()) return false;
    ring_ = std::move(ring);
    return true;
}

void WinmmInput::Stop() {
    ring_.reset();
}

} // namespace vk
