#include "platform/windows/winmm_route.h"

#include <windows.h>

#include <array>
#include <cstdint>

namespace vk {

namespace {

constexpr DWORD Rate = 48000;
constexpr WORD Channels = 2;
constexpr std::size_t BlockSamples = 4096; // about 43 ms
constexpr DWORD WaitMs = 100;              // how long a stop may have to wait

WAVEFORMATEX Format() {
    WAVEFORMATEX format{};
    format.wFormatTag = WAVE_FORMAT_PCM;
    format.nChannels = Channels;
    format.nSamplesPerSec = Rate;
    format.wBitsPerSample = 16;
    format.nBlockAlign = Channels * sizeof(std::int16_t);
    format.nAvgBytesPerSec = Rate * format.nBlockAlign;
    return format;
}

std::string NameOf(UINT device) {
    WAVEINCAPSA caps{};
    return ::waveInGetDevCapsA(device, &caps, sizeof caps) == MMSYSERR_NOERROR ? caps.szPname : "";
}

/// One block on its way: recorded, then played, then recorded again.
struct Block {
    WAVEHDR header{};
    std::array<std::int16_t, BlockSamples> samples{};
    bool playing = false;

    Block() {
        header.lpData = reinterpret_cast<LPSTR>(samples.data());
        header.dwBufferLength = sizeof samples;
    }
};

class Line {
  public:
    explicit Line(UINT device) : event_(::CreateEventA(nullptr, FALSE, FALSE, nullptr)) {
        WAVEFORMATEX format = Format();
        const auto event = reinterpret_cast<DWORD_PTR>(event_);
        if (::waveInOpen(&in_, device, &format, event, 0, CALLBACK_EVENT) != MMSYSERR_NOERROR)
            in_ = nullptr;
        if (::waveOutOpen(&out_, WAVE_MAPPER, &format, event, 0, CALLBACK_EVENT) !=
            MMSYSERR_NOERROR)
            out_ = nullptr;
    }
    ~Line() {
        if (in_) ::waveInReset(in_);
        if (out_) ::waveOutReset(out_);
        for (Block& block : blocks_)
            Release(block);
        if (in_) ::waveInClose(in_);
        if (out_) ::waveOutClose(out_);
        ::CloseHandle(event_);
    }
    Line(const Line&) = delete;
    Line& operator=(const Line&) = delete;

    bool Start() {
        if (!in_ || !out_) return false;
        for (Block& block : blocks_)
            if (!Record(block)) return false;
        return ::waveInStart(in_) == MMSYSERR_NOERROR;
    }
    /// Moves on what is done; false when a device has gone.
    bool Serve() {
        ::WaitForSingleObject(event_, WaitMs);
        for (Block& block : blocks_) {
            if (!(block.header.dwFlags & WHDR_DONE)) continue;
            if (!(block.playing ? Record(block) : Play(block))) return false;
        }
        return true;
    }

  private:
    void Release(Block& block) {
        if (!(block.header.dwFlags & WHDR_PREPARED)) return;
        if (block.playing)
            ::waveOutUnprepareHeader(out_, &block.header, sizeof block.header);
        else
            ::waveInUnprepareHeader(in_, &block.header, sizeof block.header);
    }
    bool Record(Block& block) {
        Release(block);
        block.playing = false;
        block.header.dwFlags = 0;
        block.header.dwBufferLength = sizeof block.samples;
        return ::waveInPrepareHeader(in_, &block.header, sizeof block.header) == MMSYSERR_NOERROR &&
               ::waveInAddBuffer(in_, &block.header, sizeof block.header) == MMSYSERR_NOERROR;
    }
    bool Play(Block& block) {
        const DWORD recorded = block.header.dwBytesRecorded;
        Release(block);
        block.playing = true;
        block.header.dwFlags = 0;
        block.header.dwBufferLength = recorded;
        return ::waveOutPrepareHeader(out_, &block.header, sizeof block.header) ==
                   MMSYSERR_NOERROR &&
               ::waveOutWrite(out_, &block.header, sizeof block.header) == MMSYSERR_NOERROR;
    }

    HANDLE event_;
    HWAVEIN in_ = nullptr;
    HWAVEOUT out_ = nullptr;
    std::array<Block, 6> blocks_;
};

} // namespace

std::vector<CaptureDevice> WinmmRoute::Devices() {
    std::vector<CaptureDevice> devices;
    for (UINT device = 0; device < ::waveInGetNumDevs(); ++device)
        devices.push_back({NameOf(device), NameOf(device)});
    return devices;
}

void WinmmRoute::Start(const std::string& device) {
    Stop();
    stop_ = false;
    running_ = true;
    thread_ = std::thread([this, device] {
        Run(device);
        running_ = false;
    });
}

void WinmmRoute::Stop() {
    stop_ = true;
    if (thread_.joinable()) thread_.join();
}

void WinmmRoute::Run(const std::string& device) {
    UINT number = 0;
    while (number < ::waveInGetNumDevs() && NameOf(number) != device)
        ++number;
    if (number == ::waveInGetNumDevs()) return;
    Line line(number);
    for (bool goesOn = line.Start(); goesOn && !stop_;)
        goesOn = line.Serve();
}

} // namespace vk
