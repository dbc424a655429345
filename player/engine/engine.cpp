#include "player/engine/engine.h"

#include "platform/player_window.h"

#include <algorithm>

namespace vk {

namespace {

constexpr std::int32_t CloseCommand = 40001;
constexpr std::int32_t PreAmpBand = 10;
// Reports of the place before a seek still come for a moment.
constexpr std::int64_t SeekSettleMs = 400;

bool InRange(std::int32_t value, std::int32_t low, std::int32_t high) {
    return value >= low && value <= high;
}

} // namespace

struct Engine::Command {
    std::int32_t id;
    void (Engine::*run)();
};

// Preferences (40012) have no window here: answered, and nothing done. The visualisation (40192) is
// no matter of what plays.
const Engine::Command Engine::Commands[] = {
    {40023, &Engine::ToggleShuffle}, {40044, &Engine::Previous}, {40045, &Engine::Play},
    {40046, &Engine::Pause},         {40047, &Engine::Stop},     {40048, &Engine::Next},
    {40144, &Engine::Rewind},        {40148, &Engine::Forward},
};

struct Engine::Query {
    std::int32_t function;
    std::int32_t (Engine::*run)(std::int32_t);
};

const Engine::Query Engine::Queries[] = {
    {0, &Engine::Version},     {101, &Engine::Clear},      {104, &Engine::Status},
    {105, &Engine::Time},      {106, &Engine::Seek},       {121, &Engine::SetIndex},
    {122, &Engine::SetVolume}, {123, &Engine::SetBalance}, {125, &Engine::Index},
    {126, &Engine::Info},      {127, &Engine::SelectBand}, {128, &Engine::SetBand},
};

Engine::Engine(Output& output, const PlayerSettings& settings, std::function<std::int64_t()> nowNs,
               std::uint32_t seed)
    : output_(output), nowNs_(std::move(nowNs)), list_(seed), equaliser_(settings.equaliser),
      advance_(settings.advance) {
    list_.SetShuffle(settings.shuffle);
    list_.SetRepeat(settings.repeat);
    output_.SetVolume(settings.volume);
    ApplyEqualiser();
}

std::optional<std::int32_t> Engine::Message(const PlayerRequest& request) {
    if (request.message == WM_COMMAND) {
        if (request.wParam == CloseCommand) return std::nullopt;
        for (const Command& command : Commands)
            if (command.id == request.wParam) (this->*command.run)();
    } else if (request.message == WM_USER) {
        for (const Query& query : Queries)
            if (query.function == request.lParam) return (this->*query.run)(request.wParam);
    }
    return 0;
}

void Engine::AddList(std::string_view paths, std::int64_t startedNs) {
    if (startedNs < clearedNs_) return;
    list_.Append(paths);
    if (!std::exchange(remembered_, false)) return PrepareNext();
    // The chosen entry fell out of the list: it is skipped like any other that is missing.
    if (!list_.InRange() && list_.Repeat()) list_.SetIndex(0);
    if (list_.InRange()) StartCurrent();
}

void Engine::Play() {
    if (paused_ && !moved_)
        Pause();
    else
        StartCurrent();
}

void Engine::Pause() {
    if (!active_) return;
    if (paused_ && moved_) return StartCurrent();
    paused_ = !paused_;
    clock_.Run(opened_ && !paused_, NowMs());
    output_.SetPaused(paused_);
}

void Engine::Stop() {
    remembered_ = false;
    Halt();
}

void Engine::ToggleShuffle() {
    list_.SetShuffle(!list_.Shuffle());
    if (active_) list_.Begin();
    PrepareNext();
}

// What is paused stays paused: the chosen entry begins when the pause ends.
void Engine::Move(bool forward) {
    if (!(forward ? list_.Next() : list_.Previous()) || !active_) return;
    if (paused_) return Forget();
    StartCurrent();
    backward_ = !forward;
}

void Engine::StartCurrent() {
    paused_ = false;
    failures_ = 0;
    backward_ = false;
    Open();
}

void Engine::Open() {
    if (!list_.InRange()) {
        Halt();
        remembered_ = true;
        return;
    }
    const std::int32_t index = list_.Index();
    list_.Begin();
    continuing_ = active_ && (opened_ || continuing_);
    active_ = true;
    opened_ = moved_ = remembered_ = false;
    facts_ = index == preparedIndex_ ? preparedFacts_ : TrackFacts();
    preparedIndex_ = -1;
    clock_ = {};
    ignorePositionsUntilMs_ = 0;
    track_ = ++counter_;
    output_.Play(track_, list_.Path(static_cast<std::size_t>(index)));
    if (paused_) output_.SetPaused(true);
}

void Engine::Halt() {
    active_ = opened_ = continuing_ = paused_ = moved_ = false;
    facts_ = {};
    preparedIndex_ = -1;
    clock_ = {};
    track_ = ++counter_; // late events are of no track
    output_.Stop();
}

// The index has left the track that is open.
void Engine::Forget() {
    moved_ = true;
    facts_ = {};
    clock_ = {};
    PrepareNext();
}

void Engine::PrepareNext() {
    preparedIndex_ = -1;
    if (!opened_ || !advance_) return;
    const auto next = moved_ && list_.InRange()
                          ? std::optional(static_cast<std::size_t>(list_.Index()))
                          : list_.PeekNext();
    if (!next || *next >= list_.Size()) return;
    preparedIndex_ = static_cast<std::int32_t>(*next);
    preparedTrack_ = ++counter_;
    preparedFacts_ = {};
    output_.Prepare(preparedTrack_, list_.Path(*next));
}

void Engine::OnEvent(const OutputEvent& event) {
    if (event.kind == OutputEvent::Prepared) {
        if (event.track == preparedTrack_) preparedFacts_ = event.facts;
        return;
    }
    if (!active_ || event.track != track_) return;
    switch (event.kind) {
    case OutputEvent::Started:
        OnStarted(event);
        break;
    case OutputEvent::Facts:
        TakeFacts(event.facts);
        break;
    case OutputEvent::Title:
        title_ = event.text;
        break;
    case OutputEvent::Position:
        if (opened_ && !paused_ && NowMs() >= ignorePositionsUntilMs_)
            clock_.Set(event.positionMs, NowMs());
        break;
    case OutputEvent::Ended:
        OnEnded();
        break;
    case OutputEvent::Failed:
        OnFailed();
        break;
    case OutputEvent::Prepared:
        break;
    }
}

std::string Engine::Title() const {
    const bool known = active_ && !title_.empty();
    return known ? std::to_string(list_.Index() + 1) + ". " + title_ + " - Winamp" : "Winamp";
}

std::string Engine::File() const {
    if (!active_ || !list_.InRange()) return {};
    return list_.Path(static_cast<std::size_t>(list_.Index()));
}

void Engine::OnStarted(const OutputEvent& event) {
    opened_ = true;
    failures_ = 0;
    TakeFacts(event.facts);
    if (!paused_) clock_.Run(true, NowMs());
    PrepareNext();
}

void Engine::OnEnded() {
    const bool goesOn = advance_ ? moved_ || list_.Next() : list_.Repeat();
    if (!goesOn || !list_.InRange()) return Halt();
    StartCurrent();
}

void Engine::OnFailed() {
    // One round and no more: a list of nothing playable must not be tried for ever.
    if (++failures_ >= list_.Size()) return Halt();
    if (!(backward_ ? list_.Previous() : list_.Next())) return Halt();
    Open();
}

void Engine::TakeFacts(const TrackFacts& facts) {
    if (moved_ && paused_) return;
    if (facts.lengthMs > 0) facts_.lengthMs = facts.lengthMs;
    if (facts.bitRate > 0) facts_.bitRate = facts.bitRate;
}

std::int64_t Engine::Position() const {
    const std::int64_t position = std::max<std::int64_t>(0, clock_.At(NowMs()));
    return facts_.lengthMs > 0 ? std::min(position, facts_.lengthMs) : position;
}

void Engine::SeekTo(std::int64_t positionMs) {
    if (!active_ || (paused_ && moved_)) return;
    const std::int64_t position = std::max<std::int64_t>(0, positionMs);
    const bool toEnd = facts_.lengthMs > 0 && position >= facts_.lengthMs;
    if (toEnd && opened_ && !paused_) return OnEnded();
    const std::int64_t reached = toEnd ? facts_.lengthMs : position;
    clock_.Set(reached, NowMs());
    ignorePositionsUntilMs_ = NowMs() + SeekSettleMs;
    output_.Seek(reached);
}

std::int32_t Engine::Clear(std::int32_t) {
    list_.Clear();
    remembered_ = false;
    preparedIndex_ = -1;
    moved_ = active_;
    clearedNs_ = nowNs_();
    return 0;
}

std::int32_t Engine::Status(std::int32_t) {
    if (!active_) return 0;
    if (paused_) return 3;
    return opened_ || continuing_ ? 1 : 0;
}

std::int32_t Engine::Time(std::int32_t which) {
    if (which == 0) return active_ ? static_cast<std::int32_t>(Position()) : -1;
    if (which != 1 || facts_.lengthMs <= 0) return -1;
    return static_cast<std::int32_t>(std::max<std::int64_t>(1, facts_.lengthMs / 1000));
}

std::int32_t Engine::Seek(std::int32_t positionMs) {
    SeekTo(positionMs);
    return active_ ? 0 : -1;
}

std::int32_t Engine::SetIndex(std::int32_t index) {
    list_.SetIndex(index);
    if (!active_) return 0;
    moved_ = true;
    if (paused_)
        Forget();
    else
        PrepareNext();
    return 0;
}

std::int32_t Engine::SetVolume(std::int32_t volume) {
    if (InRange(volume, 0, 255)) output_.SetVolume(volume);
    return 0;
}

// Kept, and nothing more: libVLC 3 has no balance.
std::int32_t Engine::SetBalance(std::int32_t balance) {
    if (InRange(balance, 0, 255)) balance_ = balance;
    return 0;
}

int* Engine::Band(std::int32_t band) {
    if (band == PreAmpBand) return &equaliser_.preamp;
    return InRange(band, 0, 9) ? &equaliser_.bands[static_cast<std::size_t>(band)] : nullptr;
}

std::int32_t Engine::SelectBand(std::int32_t band) {
    const int* value = Band(band);
    if (!value) return 0;
    selectedBand_ = band;
    return *value;
}

// No message switches the equaliser on: whoever sets a band wants to hear it.
std::int32_t Engine::SetBand(std::int32_t value) {
    if (!InRange(value, 0, 63)) return 0;
    *Band(selectedBand_) = value;
    equaliser_.on = true;
    ApplyEqualiser();
    return 0;
}

void Engine::ApplyEqualiser() {
    Equaliser gains;
    gains.on = equaliser_.on;
    gains.preamp = EqualiserGain(equaliser_.preamp);
    for (std::size_t band = 0; band < gains.bands.size(); ++band)
        gains.bands[band] = EqualiserGain(equaliser_.bands[band]);
    output_.SetEqualiser(gains);
}

} // namespace vk
