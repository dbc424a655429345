#include "platform/linux/sound/alsa_mixer.h"

#include "platform/linux/descriptor.h"
#include "platform/linux/sound/alsa_card.h"

#include <sys/eventfd.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <utility>

namespace vk {

namespace {

constexpr std::size_t ControlCount = AlsaLineCount * 2;

// A line's level and its mute, in this order; ids count from 1.
using Wanted = std::array<std::optional<std::int32_t>, ControlCount>;

} // namespace

/// What both threads see. The lock is never held while ALSA is called.
struct AlsaMixer::Shared {
    explicit Shared(Options given)
        : options(std::move(given)), wakeUp(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

    void Wake() const { ::eventfd_write(wakeUp.get(), 1); }
    const AlsaLine& LineOf(std::size_t control) const { return lines[control / 2]; }
    /// Both with the lock held: whoever is told is there until `stop` is set.
    void Tell(bool now) const {
        if (!stop && options.onChange) options.onChange(now);
    }
    void Log(const std::string& text) const {
        if (!stop && options.log) options.log(text);
    }

    Options options;
    const FileDescriptor wakeUp; ///< there is something in `wanted`, or `stop`
    std::mutex mutex;
    std::condition_variable changed;
    AlsaLines lines;
    Wanted wanted;
    unsigned session = 0; ///< 0 until the first look is over
    bool gaveUp = false;  ///< the first look took longer than `Open` waited
    bool present = false;
    bool stop = false;
    bool ended = false; ///< the thread is past its last use of this
};

/// The card's thread.
class AlsaMixer::Worker {
  public:
    explicit Worker(std::shared_ptr<Shared> shared) : s_(std::move(shared)) {}

    void Run() {
        const std::chrono::milliseconds retry(s_->options.retryMs);
        while (!Stopped()) {
            const auto start = std::chrono::steady_clock::now();
            card_ = AlsaCard::Open(s_->options.device);
            Publish();
            if (card_) Serve();
            card_.reset();
            // One that fails as soon as it is open would be opened again and again.
            if (std::chrono::steady_clock::now() - start < retry) Pause(retry);
        }
        const std::lock_guard lock(s_->mutex);
        s_->ended = true;
        s_->changed.notify_all();
    }

  private:
    bool Stopped() const {
        const std::lock_guard lock(s_->mutex);
        return s_->stop;
    }

    void Pause(std::chrono::milliseconds time) const {
        std::unique_lock lock(s_->mutex);
        s_->changed.wait_for(lock, time, [this] { return s_->stop; });
    }

    // A card was opened, or there is none.
    void Publish() {
        const AlsaLines lines = card_ ? card_->Read() : AlsaLines();
        const std::lock_guard lock(s_->mutex);
        const bool present = card_ != nullptr;
        if (s_->session != 0 && !present && !s_->present) return;
        if (s_->session != 0 || s_->gaveUp) s_->Tell(present);
        if (present && !lines[0].hasLevel && !std::exchange(toldOfMaster_, true))
            s_->Log("The sound card has no control for the volume");
        s_->present = present;
        s_->lines = lines;
        if (!present) s_->wanted = {};
        ++s_->session;
        s_->changed.notify_all();
    }

    // Until the card is gone or the end; what was set before the end still reaches the card.
    void Serve() {
        bool fresh = true;
        while (Apply(fresh) && !Stopped() && WaitFor(card_->Descriptors(), -1) &&
               card_->HandleEvents()) {
            Refresh();
            fresh = false;
        }
    }

    // What the card's own side, or another program, has changed.
    void Refresh() {
        const AlsaLines lines = card_->Read();
        const std::lock_guard lock(s_->mutex);
        s_->lines = lines;
    }

    // A setting counts as wanted until the card has taken it, so that none is lost with a card that
    // is opened anew. What a fresh one does not take it refuses: nothing says so for sure.
    bool Apply(bool fresh) {
        for (std::size_t control = 0; control < ControlCount; ++control) {
            const auto value = Next(control);
            if (!value) continue;
            const bool done = control % 2 == 0 ? card_->SetLevel(control / 2, *value)
                                               : card_->SetMute(control / 2, *value != 0);
            if (!done && !fresh && !toldOfRefusal_[control]) return false;
            const AlsaLines lines = card_->Read();
            const std::lock_guard lock(s_->mutex);
            if (!done) LogRefusal(control);
            s_->lines = lines;
            if (s_->wanted[control] == value) s_->wanted[control].reset();
        }
        return true;
    }

    void LogRefusal(std::size_t control) {
        if (std::exchange(toldOfRefusal_[control], true)) return;
        s_->Log(std::string("The sound card does not let the ") +
                (control % 2 == 0 ? "level" : "mute") + " of its line " +
                AlsaLineName(control / 2) + " be set");
    }

    std::optional<std::int32_t> Next(std::size_t control) const {
        const std::lock_guard lock(s_->mutex);
        return s_->wanted[control];
    }

    // True unless one of the descriptors tells that the card is gone.
    bool WaitFor(std::vector<pollfd> descriptors, int milliseconds) const {
        const std::size_t count = descriptors.size();
        descriptors.push_back({s_->wakeUp.get(), POLLIN, 0});
        ::poll(descriptors.data(), descriptors.size(), milliseconds);
        eventfd_t ignored = 0;
        ::eventfd_read(s_->wakeUp.get(), &ignored);
        for (std::size_t i = 0; i < count; ++i)
            if (descriptors[i].revents & (POLLERR | POLLHUP | POLLNVAL)) return false;
        return true;
    }

    std::shared_ptr<Shared> s_;
    std::unique_ptr<AlsaCard> card_;
    bool toldOfMaster_ = false;
    std::array<bool, ControlCount> toldOfRefusal_{};
};

AlsaMixer::AlsaMixer(Options options)
    : shared_(std::make_shared<Shared>(std::move(options))),
      thread_([shared = shared_] { Worker(shared).Run(); }) {}

AlsaMixer::~AlsaMixer() {
    std::unique_lock lock(shared_->mutex);
    shared_->stop = true;
    shared_->Wake();
    shared_->changed.notify_all();
    const auto patience = std::chrono::milliseconds(shared_->options.patienceMs);
    const bool ended = shared_->changed.wait_for(lock, patience, [this] { return shared_->ended; });
    lock.unlock();
    ended ? thread_.join() : thread_.detach();
}

// While the first look is still under way after all patience, there is a card, if a slow one. One
// wait is enough: the start asks twice.
bool AlsaMixer::Open() {
    std::unique_lock lock(shared_->mutex);
    const auto patience = std::chrono::milliseconds(shared_->options.patienceMs);
    if (!shared_->gaveUp)
        shared_->gaveUp =
            !shared_->changed.wait_for(lock, patience, [this] { return shared_->session != 0; });
    return shared_->present || shared_->session == 0;
}

unsigned AlsaMixer::Session() const {
    const std::lock_guard lock(shared_->mutex);
    return shared_->session;
}

bool AlsaMixer::GetLineControl(MixerLine line, MixerControlType type, MixerControl& control) {
    const std::size_t index = AlsaLineIndex(line);
    if (type == MixerControlType::PeakMeter || index == AlsaLineCount) return false;
    const bool mute = type == MixerControlType::Mute;
    const std::lock_guard lock(shared_->mutex);
    const AlsaLine& found = shared_->lines[index];
    if (mute ? !found.hasMute : !found.hasLevel) return false;
    control = {static_cast<std::uint32_t>(index * 2 + (mute ? 1 : 0) + 1), 0,
               mute ? 1 : found.maximum};
    return true;
}

std::int32_t AlsaMixer::GetControlDetails(const MixerControl& control) const {
    if (control.id == 0 || control.id > ControlCount) return 0;
    const std::size_t index = control.id - 1;
    const std::lock_guard lock(shared_->mutex);
    const AlsaLine& line = shared_->LineOf(index);
    const std::int32_t known = index % 2 == 0 ? line.level : line.muted;
    return shared_->wanted[index].value_or(known);
}

void AlsaMixer::SetControlDetails(const MixerControl& control, std::int32_t value) {
    if (control.id == 0 || control.id > ControlCount) return;
    const std::lock_guard lock(shared_->mutex);
    if (!shared_->present) return;
    shared_->wanted[control.id - 1] = value;
    shared_->Wake();
}

} // namespace vk
