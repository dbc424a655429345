// Going on with the list that was last played.
#include "browser/browser.h"
#include "platform/files.h"

namespace vk {

void Browser::Resume() {
    Run("Image19_Click", [&] {
        if (!FileExists(AudioList())) return ShowNotice(NothingToResume);
        if (needs_.audio.PlayMode == PlayNone) return ResumeSaved();
        needs_.audio.bStartPlaying = false; // it plays already: only shown
        needs_.state.FromPlayer = true;
        EnterPlayer();
    });
}

void Browser::ResumeSaved() {
    if (PrepareResume(needs_.settings, needs_.volumes, needs_.audio) != ResumeResult::Ready)
        return ShowNotice("ROM Mismatch detected. Insert correct CD.");
    needs_.audio.bResuming = true; // the button means it, whatever the start of the system does
    EnterPlayer();
}

} // namespace vk
