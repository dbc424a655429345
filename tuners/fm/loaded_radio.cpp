#include "platform/loaded_library.h"
#include "platform/paths.h"
#include "tuners/fm/radio.h"

#include <utility>

#ifdef _WIN32
#define VK_RADIO_CALL __stdcall
#else
#define VK_RADIO_CALL
#endif

namespace vk {

namespace {

#ifdef _WIN32
constexpr const char* LibraryName = "radio.dll";
#else
constexpr const char* LibraryName = "libvkradio.so";
#endif

class LoadedRadio : public Radio {
  public:
    explicit LoadedRadio(std::unique_ptr<LoadedLibrary> library) : library_(std::move(library)) {
        open_ = library_->Get<Call>("open_radio");
        close_ = library_->Get<Call>("close_radio");
        power_ = library_->Get<CallWith>("turn_power");
        freq_ = library_->Get<CallWith>("set_freq");
        stereo_ = library_->Get<Call>("get_stereo");
        name_ = library_->Get<NameCall>("radio_name");
    }
    bool Complete() const { return open_ && close_ && power_ && freq_ && stereo_; }

    bool open_radio() override { return open_() != 0; }
    void close_radio() override { close_(); }
    void turn_power(bool on) override { power_(on ? 1 : 0); }
    bool set_freq(std::int32_t units) override { return freq_(units) != 0; }
    bool get_stereo() override { return stereo_() != 0; }
    std::string Name() const override { return name_ ? name_() : std::string(); }

  private:
    using Call = std::int32_t(VK_RADIO_CALL*)();
    using CallWith = std::int32_t(VK_RADIO_CALL*)(std::int32_t);
    using NameCall = const char*(VK_RADIO_CALL*)(); ///< only our own libraries have it

    std::unique_ptr<LoadedLibrary> library_;
    Call open_, close_, stereo_;
    CallWith power_, freq_;
    NameCall name_;
};

} // namespace

std::unique_ptr<Radio> LoadRadioLibrary(const std::string& appDir, std::string& reason) {
    auto library = LoadFirstLibrary({JoinPath(appDir, LibraryName), LibraryName}, reason);
    if (!library) return nullptr;
    auto radio = std::make_unique<LoadedRadio>(std::move(library));
    if (radio->Complete()) return radio;
    reason = std::string(LibraryName) + " lacks a call";
    return nullptr;
}

} // namespace vk
