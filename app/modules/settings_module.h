// The settings screen and its pages: made when they are first wanted, gone some time after.
#pragma once

#include "app/modules/input_module.h"
#include "app/modules/library_module.h"
#include "app/modules/playback_module.h"
#include "settings/screen/settings_screen.h"

#include <QPointer>

#include <functional>

namespace vk {

class SettingsModule : public Module {
  public:
    SettingsModule(Host& host, LibraryModule& library, InputModule& input,
                   PlaybackModule& playback);
    ~SettingsModule() override { delete screen_; }

    void Close(bool /*osShutdown*/) override { Remove(); }

    /// Makes the screens unless they are there.
    void Load();
    /// Removes them; false while a dialog is open: its event loop may have been entered from one of
    /// them.
    bool Remove();

    std::function<void()> finishStart;   ///< the rest of the start, after a first run
    std::function<void()> reloadScreens; ///< after any other visit
    std::function<void()> resize;        ///< has all screens laid out for the size set

  private:
    SettingsShell::Needs ShellNeeds();
    FirstReceiver::Needs ReceiverNeeds();
    RemoteLearning::Needs LearningNeeds();

    Host& host_;
    LibraryModule& library_;
    Remote& remote_;
    PlaybackModule& playback_;
    QPointer<settings> screen_;
};

} // namespace vk
