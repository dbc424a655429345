// Another program's map on the GPS screen.
#pragma once

#include "hosting/app_windows.h"
#include "hosting/launcher.h"
#include "navigation/external_hunts.h"
#include "navigation/map_pane.h"

#include <string>

namespace vk {

class ExternalMap : public MapPane {
  public:
    struct Needs {
        Base& base;
        Programs& programs;
        ForeignWindows& windows;
        MapWindow::Needs window;
    };
    /// What is needed outlives this object.
    explicit ExternalMap(const Needs& needs);
    ~ExternalMap() override { End(); }

    /// True when there is a program to be shown.
    bool Offered() const;
    /// Takes the program's window in; a program that has none any more is started anew. Events run
    /// until it is there.
    void Enter() override;
    /// Hands the window back.
    void Leave() override { window_.Return(); }
    /// Looks after the program and its window: false when it has ended.
    bool EverySecond() override;
    MapWindow& Window() override { return window_; }
    std::string Complaint() const override { return complaint_; }
    /// Asks the program's windows to close, and kills what does not.
    void End();

  private:
    void Start();
    bool Take();
    void EndNow();
    void Complain(const std::string& why);

    Needs n_;
    AppWindows collection_;
    Launcher launcher_;
    ExternalHunts hunts_;
    MapWindow window_;
    RunningApp app_;
    std::string complaint_;
    bool starting_ = false;
};

} // namespace vk
