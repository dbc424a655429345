#include "app/modules/tuners_module.h"

#include "settings/tuner_page.h"
#include "tuners/fm/fm_source.h"
#include "tuners/xm/xm_source.h"

namespace vk {

TunersModule::TunersModule(Host& host, LibraryModule& library, PlaybackModule& playback)
    : Module(host.modules), host_(host), playback_(playback), channels_(library.channels),
      fm_(host.base, host.ports.tuners.radio), xm_(XMNeeds()) {
    playback_.sources[PlayFM] = [this](const SourceContext& context) {
        return std::make_unique<FMSource>(context, fm_, host_.ports.tuners.route);
    };
    playback_.sources[PlayXM] = [this](const SourceContext& context) {
        return std::make_unique<XMSource>(context, xm_, channels_);
    };
}

TunersModule::~TunersModule() {
    playback_.sources.erase(PlayFM);
    playback_.sources.erase(PlayXM);
}

frmXMCtl::Needs TunersModule::XMNeeds() {
    const auto line = [this](void (LineMute::*change)(std::int32_t)) {
        if (SharesLine()) return;
        (playback_.TheLoudness().Lines().*change)(host_.settings.values.xmpcr_audio_input);
    };
    return {.base = host_.base,
            .channels = channels_,
            .port = host_.ports.tuners.serial(),
            .ports = host_.ports.tuners.serialList,
            .line = {[line] { line(&LineMute::MuteLine); },
                     [line] { line(&LineMute::RestoreMuteState); }},
            .plays = [this] { return playback_.audio.PlayMode == PlayXM; }};
}

// The FM radio sounds through the same line, and is not to be silenced by what the receiver does
// in the background.
bool TunersModule::SharesLine() const {
    const Settings& s = host_.settings.values;
    return playback_.audio.PlayMode == PlayFM && s.dlink_audio_input == s.xmpcr_audio_input;
}

std::vector<LoadStep> TunersModule::Steps() {
    if (!Enabled()) return {};
    return {{{60, 50}, "Loading XM Control", "Loading XM Control", [this] { xm_.Form_Load(); }}};
}

std::vector<Page> TunersModule::Pages() {
    std::vector<Page> pages;
    pages.push_back(TunerPage({.base = host_.base, .fm = fm_, .xm = xm_, .captureDevices = [this] {
                                   return CaptureOptions();
                               }}));
    return pages;
}

std::vector<Option> TunersModule::CaptureOptions() const {
    std::vector<Option> options = {{"", "None"}};
    for (const CaptureDevice& device : host_.ports.tuners.route.Devices())
        options.emplace_back(device.id, device.name);
    return options;
}

// What plays is the player's own affair.
void TunersModule::Suspend() {
    if (Enabled()) xm_.PowerDown();
}

void TunersModule::Resume() {
    if (Enabled()) xm_.Form_Load();
}

void TunersModule::Close(bool /*osShutdown*/) {
    if (PlayerSource* fm = playback_.Source(PlayFM)) fm->Suspend();
    xm_.PowerDown();
}

void TunersModule::TurnOff(const std::function<void(const std::string&)>& say) {
    if (!xm_.On()) return;
    say("Shutting down XM receiver");
    xm_.PowerDown();
}

} // namespace vk
