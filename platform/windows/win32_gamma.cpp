// The displays' gamma ramps by GDI.
#include "platform/gamma.h"

#include <windows.h>

#include <algorithm>

namespace vk {

namespace {

constexpr std::size_t Size = 256;
constexpr std::size_t Channels = 3;

/// A display's device context, as long as this lives.
class DisplayContext {
  public:
    explicit DisplayContext(const std::string& display)
        : handle_(::CreateDCA(nullptr, display.c_str(), nullptr, nullptr)) {}
    ~DisplayContext() {
        if (handle_) ::DeleteDC(handle_);
    }
    DisplayContext(const DisplayContext&) = delete;
    DisplayContext& operator=(const DisplayContext&) = delete;
    HDC handle() const { return handle_; }

  private:
    HDC handle_;
};

class GdiGamma : public Gamma {
  public:
    std::vector<DisplayRamp> Read() const override {
        std::vector<DisplayRamp> ramps;
        DISPLAY_DEVICEA device = {};
        device.cb = sizeof device;
        for (DWORD i = 0; ::EnumDisplayDevicesA(nullptr, i, &device, 0); ++i)
            if (device.StateFlags & DISPLAY_DEVICE_ATTACHED_TO_DESKTOP)
                ReadInto(ramps, device.DeviceName);
        return ramps;
    }

    bool Write(const DisplayRamp& ramp) override {
        WORD values[Channels][Size] = {};
        const std::vector<std::uint16_t>* channels[] = {&ramp.ramp.red, &ramp.ramp.green,
                                                        &ramp.ramp.blue};
        for (std::size_t i = 0; i < Channels; ++i) {
            if (channels[i]->size() != Size) return false;
            std::ranges::copy(*channels[i], values[i]);
        }
        const DisplayContext context(ramp.display);
        return context.handle() && ::SetDeviceGammaRamp(context.handle(), values);
    }

  private:
    static void ReadInto(std::vector<DisplayRamp>& ramps, const char* display) {
        WORD values[Channels][Size] = {};
        const DisplayContext context(display);
        if (!context.handle() || !::GetDeviceGammaRamp(context.handle(), values)) return;
        ramps.push_back({display,
                         {{values[0], values[0] + Size},
                          {values[1], values[1] + Size},
                          {values[2], values[2] + Size}}});
    }
};

} // namespace

std::unique_ptr<Gamma> MakeGamma() {
    return std::make_unique<GdiGamma>();
}

} // namespace vk
