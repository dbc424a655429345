// The mixer on ALSA.
#pragma once

#include "platform/mixer.h"

#include <functional>
#include <memory>
#include <string>
#include <thread>

namespace vk {

/// A thread of its own speaks to the card: a control that hangs (a sound server that stands still,
/// a driver of a pulled USB card) keeps that thread and not the screens. What is set here takes
/// effect at once as far as the caller can see, and reaches the card as soon as it listens; of many
/// settings of one control only the last is sent. A card that goes is looked for again until it is
/// back.
class AlsaMixer : public Mixer {
  public:
    struct Options {
        /// ALSA's name of the control device; its own configuration and environment say what
        /// "default" is.
        std::string device = "default";
        int retryMs = 3000;    ///< between two looks for a missing card
        int patienceMs = 1000; ///< for the first look, in `Open`, and for the thread's end
        /// Called on the card's thread, and never after this object's end; both are to return at
        /// once and must not call it. A card has gone or been opened anew; of the first look it is
        /// told only when that took longer than `Open` waited.
        std::function<void(bool present)> onChange = {};
        /// A peculiarity of the card, once for each.
        std::function<void(const std::string& text)> log = {};
    };
    /// Starts looking for the card.
    explicit AlsaMixer(Options options);
    ~AlsaMixer() override;
    AlsaMixer(const AlsaMixer&) = delete;
    AlsaMixer& operator=(const AlsaMixer&) = delete;

    bool Open() override;
    unsigned Session() const override;
    bool GetLineControl(MixerLine line, MixerControlType type, MixerControl& control) override;
    std::int32_t GetControlDetails(const MixerControl& control) const override;
    void SetControlDetails(const MixerControl& control, std::int32_t value) override;

  private:
    struct Shared;
    class Worker;

    std::shared_ptr<Shared>
        shared_; ///< with the thread, which may outlive this object when it hangs
    std::thread thread_;
};

} // namespace vk
