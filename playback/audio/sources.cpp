#include "playback/audio/sources.h"

#include "core/text.h"
#include "playback/audio/source_table.h"
#include "playback/audio/tuner_source.h"

namespace vk {

namespace {

constexpr int AddedMs = 800;

} // namespace

Sources::Sources(const SourceContext& context, cWinamp& winamp, const SourceMakers& makers)
    : c_(context), winamp_(winamp) {
    for (const auto& [mode, make] : makers)
        sources_[mode] = make(c_);
}

PlayerSource* Sources::Find(std::int32_t mode) const {
    const auto found = sources_.find(mode);
    return found == sources_.end() ? nullptr : found->second.get();
}

PlayModeValue Sources::Next() const {
    const Settings& settings = c_.base.settings.values;
    return NextSource(c_.audio.PlayMode, {settings.dlink_enabled, settings.xmpcr_enabled,
                                          c_.base.state.FirstRadioType == 1});
}

bool Sources::SwitchToNext() {
    const PlayModeValue next = Next();
    if (next == PlayNone || !CanSwitchTo(next)) return true;
    if (PlayerSource* source = Current()) source->GiveWay();
    const bool there = Find(next)->SwitchTo();
    SetMediaTypeIcon();
    SetPlayerButton();
    return there;
}

bool Sources::CanSwitchTo(PlayModeValue mode) {
    if (PlayerSource* source = Find(mode)) return source->CanPlay();
    c_.clockLine.ShowProblem(NoRadio);
    return false;
}

void Sources::SilenceOthers() {
    if (winamp_.WinAMP_FindWindow()) winamp_.WinAMP_SCM(WinampStop);
    for (const auto& [mode, source] : sources_)
        if (mode != c_.audio.PlayMode) source->GiveWay();
}

void Sources::SetPlayerButton() {
    c_.view.SetButton(PlayerButton::Source, SourcePicture(Next()));
}

void Sources::SetMediaTypeIcon() {
    if (const PlayerSource* source = Current()) c_.view.ShowMediaType(source->MediaTypeIcon());
}

void Sources::AddToFavorites() {
    PlayerSource* source = Current();
    if (!source) return;
    const Favorite favorite = source->SelectedFavorite();
    if (favorite.list.empty()) return;
    try {
        if (!AddFavorite(c_.base.settings.StateDir(), favorite)) return;
        c_.clockLine.ShowNotice("ADDING: " + ToUtf8(favorite.entry), AddedMs);
        source->FavoriteAdded();
    } catch (const std::exception& error) {
        c_.clockLine.ShowProblem(error.what());
        throw;
    }
}

} // namespace vk
