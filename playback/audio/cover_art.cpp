#include "playback/audio/cover_art.h"

#include "platform/paths.h"

namespace vk {

namespace {

constexpr const char* TemporaryName = "coverart.tmp";

bool IsTurn(int second) {
    return second == 15 || second == 30 || second == 45 || second == 59;
}

} // namespace

void CoverArt::Forget() {
    pictures_.clear();
    CoverIndex = 0;
}

void CoverArt::Hide() {
    Forget();
    logged_.clear();
    view_.HideCover();
}

void CoverArt::ShowCoverArt(const std::string& track) {
    Forget();
    Show({{}, track, base_.settings.File(TemporaryName), base_.settings.values.ExtendedTags}, true);
}

void CoverArt::ShowPicture(const std::string& file) {
    Forget();
    if (file.empty()) return view_.HideCover();
    Show({file, {}, {}}, false);
}

void CoverArt::Show(const CoverRequest& request, bool takePictures) {
    view_.LoadCover(request, [this, takePictures](const CoverOutcome& outcome) {
        if (!outcome.error.empty()) LogOnce(outcome.error);
        if (!takePictures) return;
        pictures_ = outcome.pictures;
        CoverIndex = pictures_.size() > 1 ? 1 : 0;
    });
}

// A bad picture comes round again every minute, and with every track of its folder.
void CoverArt::LogOnce(const std::string& error) {
    if (!logged_.insert(error).second) return;
    base_.log.WriteDebugLog("error in playmp3.ShowCoverArt(), " + error);
}

void CoverArt::EverySecond() {
    ++SecondCount;
    if (IsTurn(SecondCount)) NextPicture();
    if (SecondCount >= 59) SecondCount = 0;
}

void CoverArt::NextPicture() {
    if (CoverIndex < 1) return;
    if (static_cast<std::size_t>(++CoverIndex) > pictures_.size()) CoverIndex = 1;
    Show({pictures_[static_cast<std::size_t>(CoverIndex) - 1], {}, {}}, false);
}

} // namespace vk
