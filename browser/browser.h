// The media browser `playlists`: what its operations, keys and buttons do, without its window.
#pragma once

#include "browser/browser_needs.h"
#include "browser/browser_view.h"
#include "browser/list_builder.h"
#include "browser/list_editor.h"
#include "browser/searches.h"
#include "browser/sql_lists.h"
#include "browser/xm_lists.h"
#include "library/descriptor.h"
#include "playback/resume.h"
#include "skin/keyboard_model.h"

#include <functional>
#include <memory>
#include <string>

namespace vk {

inline constexpr const char* BrowserName = "playlists";

/// Why the keyboard is open: what its text is for.
enum class KeyboardPurposeValue : std::int32_t {
    SearchArtist = 0,
    SearchTitle = 1,
    SearchGenre = 2,
    SearchFileName = 3,
    PresetLabel = 4,
    ListName = 5
};

/// The parts of the screen that hold state of their own.
struct BrowserModels {
    ListModel& list;      ///< `UCListBox`
    ListModel& rightList; ///< `UCListBox2`
    KeyboardModel& keyboard;
};

/// The operations, one at a time: whoever asks for one does so through `Commands`. Events run while
/// a list is being built; then `doquit` and `GoHome` end the build and follow it, `MoveBack` only
/// ends it. A failure in one is logged and the screen goes on. `models` and `view` outlive it.
/// While the keyboard is shown it has the arrows, "OK" and Escape.
class Browser {
  public:
    Browser(BrowserNeeds needs, BrowserModels models, BrowserView& view);

    /// Enters the screen with the list of `CurrentPath` in the mode that the caller has set.
    void ReShow();
    /// Leaves it: stops the timers and keeps the history when something was played from it.
    void switchingform();
    /// The screen goes; `osShutdown` when the operating system closes it.
    void Form_Unload(bool osShutdown);
    /// Acts on the selected row.
    void runok();
    void MoveUp();
    void MoveDown();
    void PgUp();
    void PgDn();
    /// A level up. Ends a list that is being built, which stays as far as it got.
    void MoveBack();
    /// Lists the selected folder with all that is below it; deletes the selected preset.
    void MoveAhead();
    void VolUp();
    void VolDown();
    /// Back to where the browser was entered from.
    void doquit();
    /// To the text searches of the catalogue, from wherever the user is.
    void JumpToSearch();
    /// Over to the player that is playing, if any.
    void Swap();
    /// One tick of the wheel, positive for up.
    void MouseWheel(int delta);

    /// Acts on a key, a decimal virtual-key code; true when it was used. Keys of the player go to
    /// it.
    bool Form_KeyDown(const std::string& code);
    /// The same for what any map gives a meaning.
    bool DoAction(const InputCode& code);
    /// True for a key that goes on while it is held.
    bool Repeats(const InputCode& key) const;

    /// Play or pause of the player (`Image6`).
    void PlayPause();
    /// Opens or closes the frame with the rarer buttons (`Image7`).
    void ToggleToolFrame();
    void CloseToolFrame();
    /// Lets the next chosen folder be listed whole, or not (`Image12`).
    void ToggleRecurse();
    /// Changes between the applications and the media (`Image14`).
    void ToggleApplications();
    /// Switches to the tuner (`Image15`).
    void ShowRadio();
    /// Opens the disc drive (`Image16`).
    void Eject();
    /// Opens the GPS screen (`Image17`).
    void ShowGPS();
    /// Goes on with the list that was last played (`Image19`).
    void Resume();
    /// To the main menu (`imgHome`). A list that was built is asked its name first, here and
    /// wherever else the screen is left.
    void GoHome();
    /// The row of `UCListBox` that was touched is chosen.
    void ChooseLeft();
    /// The row of `UCListBox2` that was touched is removed.
    void ChooseRight();
    /// While a list is built, turns the keys to the other of the two lists (`imjAdd`, `imjRemove`).
    void ToggleListFocus();
    /// Asks for the name of the list that is built, to save it (`imjSave`).
    void SaveList();
    /// Shows which tuner the radio button leads to.
    void SetPlayerButton();

    bool HasRadio() const; ///< a tuner is enabled
    bool HasDiscDrive() const { return builder_.Drives().HasDiscDrive(); }
    bool HasGPS() const { return needs_.screens.Find("frmGPS") != nullptr; }

  private:
    using Handler = void (Browser::*)(const RowDescriptor&);
    using TextHandler = void (Browser::*)(const std::string& text);

    // browser.cpp
    void Run(const char* name, const std::function<void()>& operation);
    bool OnlyEnds() const;
    void EnterMode();
    void Populate();
    void PopulateAnew();
    void FallBack();
    void MoveList(void (ListModel::*move)());
    void Leave();
    void EndPlayer();
    void ShowNotice(const std::string& text);
    void ShowChangeOfVolume(const std::function<void()>& change);
    void ShowState();
    void FollowCatalogue();
    void TickNotice();
    void CloseLoading();
    // keyboard.cpp
    void SlideKeyboard(bool open);
    void ShowOSK(const std::string& caption, const std::string& value,
                 KeyboardPurposeValue purpose);
    void HideOSK();
    void CloseKeyboard();
    void TakeText(const std::string& text);
    // run_ok.cpp
    void Choose();
    void ChooseRow();
    void ChooseApplication(const std::string& line);
    std::string TrackHistory(const std::string& descriptor, const std::string& kind);
    void OpenFile(const RowDescriptor& row);
    void OpenPath(const RowDescriptor& row);
    void OpenPlaylist(const RowDescriptor& row);
    void SelectMatch(const std::string& descriptor);
    // run_sql.cpp
    void OpenSql(const RowDescriptor& row);
    void OpenSearch(SearchKind kind, const std::string& argument);
    void SearchFor(const std::string& text);
    // presets.cpp
    void ReadPresets(const RowDescriptor& row);
    void AskLabel(const RowDescriptor& row);
    void SavePreset(const std::string& label);
    void DeleteFreq(const RowDescriptor& row);
    void ChangePresets(const std::string& name, const std::function<void()>& change);
    // run_xm.cpp
    void OpenXM(const RowDescriptor& row);
    void TuneChannel(const RowDescriptor& row);
    bool WriteChannels(std::int32_t& position);
    // build_list.cpp
    void OpenEditor(const RowDescriptor& row);
    void AddToList(const std::string& kind);
    void RemoveFromList();
    void FocusRight(bool right);
    void AskListName();
    void SaveUnder(const std::string& text);
    void ShowTitleFor(const std::string& title, int milliseconds);
    void EndBuilding();
    bool KeepsBuilding();
    void LeaveEditor();
    void DropEditor();
    // hand_over.cpp
    void PlayDisc();
    void PlayAudioFiles(const RowDescriptor& row);
    void PlayVideoFiles(const RowDescriptor& row);
    std::int32_t WritePlayList(int mediaType, const std::string& file);
    bool DiscIsGone();
    void FallBackWithoutDisc();
    void EnterPlayer();
    void EnterMoviePlayer();
    void Enter(const std::function<void()>& show);
    // resume.cpp
    void ResumeSaved();
    // restore.cpp
    void RestoreBrowseHistory();
    bool RestoreElement(const std::string& element, const std::string& kind, bool last);

    std::string AudioList() const { return needs_.settings.File(AudioListName); }

    BrowserNeeds needs_;
    ListModel& list_;
    ListModel& rightList_;
    KeyboardModel& keyboard_;
    BrowserView& view_;
    ListDesk desk_;
    ListBuilder builder_;
    SqlLists sqlLists_;
    Searches searches_;
    XMLists xmLists_;
    ListEditor editor_;
    std::unique_ptr<Timer> Timer2; ///< clock label, state of the player
    std::unique_ptr<Timer> Timer4; ///< takes notices away
    bool toolFrameOpen_ = false;
    bool catalogueShown_ = false; ///< the catalogue was on line when the list was built
    int noticeSeconds_ = 0;       ///< left for the notice over the list; 0: none
    bool KeyboardShown = false;
    KeyboardPurposeValue KeyboardPurpose = KeyboardPurposeValue::SearchArtist;
    std::string PresetPath;      ///< the preset list on show
    std::string SavedTitle;      ///< the heading from before the keyboard
    bool RightListFocus = false; ///< while a list is built: the keys work the right one
    bool RecurseArmed = false;
    bool HistoryDirty = false;
    std::string BrowseHistory;
};

} // namespace vk
