#include "playback/audio/cover_art.h"

#include "platform/paths.h"
#include "playback/audio/busy_guard.h"

namespace vk {

namespace {

constexpr const char* TemporaryName = "coverart.tmp";

bool IsTurn(int second) {
    return second == 15 || second == 30 || second == 45 || second == 59;
}

} // namespace

void CoverArt::Hide() {
    pictures_.clear();
    logged_.clear();
    CoverIndex = 0;
    n_.view.HideCover();
}

void CoverArt::ShowCoverArt(const std::string& item) {
    pictures_.clear();
    CoverIndex = 0;
    if (n_.audio.PlayMode == PlayFM)
        ShowFile(StationPicture(n_.appDir, item));
    else if (n_.audio.PlayMode == PlayXM)
        ShowFile(n_.xmLogo ? n_.xmLogo(item) : "");
    else if (n_.audio.PlayMode == PlayAudio && !n_.audio.OnDisc() && !item.empty())
        ShowTrack(item);
    else
        n_.view.HideCover();
}

void CoverArt::ShowFile(const std::string& picture) {
    if (picture.empty()) return n_.view.HideCover();
    Show({picture, {}, {}}, false);
}

void CoverArt::ShowTrack(const std::string& path) {
    Show({{}, path, JoinPath(n_.appDir, TemporaryName)}, true);
}

void CoverArt::Show(const CoverRequest& request, bool takePictures) {
    n_.view.LoadCover(request, [this, takePictures](const CoverOutcome& outcome) {
        if (!outcome.error.empty()) LogOnce(outcome.error);
        if (!takePictures) return;
        pictures_ = outcome.pictures;
        CoverIndex = pictures_.size() > 1 ? 1 : 0;
    });
}

// A bad picture comes round again every minute, and with every track of its folder.
void CoverArt::LogOnce(const std::string& error) {
    if (!logged_.insert(error).second) return;
    n_.log.WriteDebugLog("error in playmp3.ShowCoverArt(), " + error);
}

void CoverArt::EverySecond() {
    ++SecondCount;
    if (IsTurn(SecondCount)) NextPicture();
    if (SecondCount >= 59) SecondCount = 0;
}

void CoverArt::NextPicture() {
    if (n_.audio.PlayMode != PlayAudio || CoverIndex < 1) return;
    const BusyGuard busy(n_.app.ListBusy);
    if (static_cast<std::size_t>(++CoverIndex) > pictures_.size()) CoverIndex = 1;
    Show({pictures_[static_cast<std::size_t>(CoverIndex) - 1], {}, {}}, false);
}

} // namespace vk
