// The catalogue's buttons on the settings screen.
#include "settings/settings_shell.h"

namespace vk {

namespace {

constexpr char ManualWarning[] =
    "IMPORTANT!!!!  This option will prevent your database from refreshing automatically at "
    "startup.\n"
    "If you add or remove files within your media folder YOU are responsible for rebuilding the "
    "database.\n"
    "Failure to do so will prevent files from showing up in Media Browser\n"
    "This option should be used in conjunction with the AutoSync function.\n"
    "--- YOU WERE WARNED ---";

} // namespace

bool SettingsShell::RefusedWhileBusy() {
    refused_ = n_.catalogue.Busy();
    return refused_;
}

void SettingsShell::AskForUpdate() {
    if (n_.base.dialogs.AskYesNo("Update the media database now?\nThis may take a few minutes",
                                 "Velkorandum Database"))
        n_.catalogue.RequestScan();
}

void SettingsShell::bDBForceUpdate_Click() {
    Trap(n_.base.report, "An error occured in settings.bDBForceUpdate_Click ", [&] {
        if (n_.catalogue.Busy())
            n_.catalogue.RequestStop();
        else if (n_.base.dialogs.AskYesNo("Update the Velkorandum database now?",
                                          "Database Update"))
            n_.catalogue.RequestScan();
        view_.ShowTexts();
    });
}

void SettingsShell::bDeleteDB_Click() {
    Trap(n_.base.report, "An error occured in settings.bDeleteDB_Click ", [&] {
        if (RefusedWhileBusy()) return;
        if (!n_.base.dialogs.AskNoYes("Are you sure?", "Delete Velkorandum Database")) return;
        if (RefusedWhileBusy()) return; // a scan may have begun meanwhile
        n_.catalogue.Delete();
        if (n_.base.dialogs.AskYesNo("Update the media database now?\nThis may take a few minutes",
                                     "Velkorandum Database"))
            n_.catalogue.OpenAnew();
        view_.ShowTexts();
    });
}

void SettingsShell::chkDBManualUpdate_Click() {
    Trap(n_.base.report, "An error occured in settings.chkDBManualUpdate_Click ", [&] {
        const bool manual = !Values().manualdb;
        if (manual) n_.base.dialogs.ShowMessage(ManualWarning, "Critical Database Option Change");
        n_.base.settings.Set(setting::manualdb, manual);
        n_.base.settings.LoadSettings();
        view_.ShowTexts();
    });
}

std::string SettingsShell::DBStatusText() const {
    switch (n_.base.state.DBState) {
    case DBStateValue::Disabled:
        return "Disabled";
    case DBStateValue::Offline:
        return "Offline";
    case DBStateValue::CheckPoint:
        return "CheckPoint";
    case DBStateValue::Initialized:
        return "Initialized";
    case DBStateValue::Rebuilding:
        return "Rebuilding";
    case DBStateValue::OnLine:
        return "Ready";
    }
    return {};
}

} // namespace vk
