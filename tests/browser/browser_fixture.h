// The browser's logic on a real media folder, with everything around it faked.
#pragma once

#include "browser/browser.h"
#include "library/tags/tag_reader.h"
#include "tests/support/core_test.h"
#include "tests/support/recording_screen.h"
#include "tests/support/sound_card.h"

namespace vk::test {

using testing::Contains, testing::ElementsAre;

/// Keeps what the logic shows; `onTitle` runs with the next heading.
class FakeBrowserView : public BrowserView, public TextEntryView {
  public:
    void SetTitle(const std::string& text) override {
        titles.push_back(title = text);
        if (onTitle) std::exchange(onTitle, {})();
    }
    void ShowLoading(const std::string& text) override { said.push_back(loading = text); }
    void HideLoading() override { loading.clear(); }
    void SetClock(const std::string& text) override { clock = text; }
    void SetButton(BrowserButton which, const std::string& name) override {
        pictures[which] = name;
    }
    void ShowToolFrame(bool open) override { toolFrame = open; }
    void SlideKeyboard(bool open) override { keyboard = open; }
    void ReDrawList() override {}
    void ReDrawRightList() override {}
    void LayOut(std::int16_t listMode) override { laidOut = listMode; }
    void ShowFocus(bool right) override { rightFocus = right; }
    void ShowAtFront() override { ++shown; }

    std::string title, loading, clock;
    std::vector<std::string> said, titles;
    std::map<BrowserButton, std::string> pictures;
    bool toolFrame = false, keyboard = false, rightFocus = false;
    std::int16_t laidOut = ListFromMenu;
    int shown = 0;
    std::function<void()> onTitle;
};

/// Folder rows as a test lists them.
class FakeCatalogue : public Catalogue {
  public:
    DBStateValue State() const override { return state; }
    std::vector<CatalogueFile> FolderFiles(const std::string& folder, bool playableOnly,
                                           bool sortByFilename) override {
        asked = folder + (playableOnly ? " playable" : "") + (sortByFilename ? " by name" : "");
        return files;
    }
    std::vector<CatalogueFile> FilesBelow(const std::string&) override { return files; }
    std::vector<CatalogueFile> Files(const std::string&) override { return files; }
    void EachFile(const std::string&, const std::function<bool(const CatalogueFile&)>&) override {}
    std::vector<CatalogueRecord> Records(const std::string&) override { return {}; }
    std::optional<TagRecord> StoredTag(const std::string&) override { return std::nullopt; }
    void UpdateFileRow(const std::string& path) override { updated.push_back(path); }
    void UpdateFileRows(const std::vector<std::string>&) override {}
    bool WritesRows() override { return false; }

    DBStateValue state = DBStateValue::OnLine;
    std::vector<CatalogueFile> files;
    std::vector<std::string> updated;
    std::string asked; ///< the last folder and how
};

/// The drives are /'s own media folder, "cd" (an optical drive) and "stick" below one temporary
/// folder. The browser has not been entered yet.
class BrowserTest : public testing::Test {
  protected:
    BrowserTest() {
        extensions.AudioExtensionList = {"MP3", "WMA", "CDA"};
        extensions.VideoExtensionList = {"AVI", "MPG"};
        core.settings.values.MediaDir = media;
        core.settings.values.CDDriveLetter = cd;
        core.settings.values.UseBrowseHistory = true;
        core.volumes.drives = {{cd, DriveType::CdRom}, {stick, DriveType::Removable}};
        core.volumes.labels[cd] = "DISC_1";
        core.volumes.serials[cd] = 4711;
        core.screens.Add("playmp3", player);
        core.screens.Add("velkorandum", menu);
        core.screens.Add("playlists", self);
        list.SetGeometry(20, "3", 400);
        rightList.SetGeometry(20, "3", 400);
        state.CurrentPath = media;
    }
    std::string Media(const std::string& name, const std::string& contents = "x") {
        return disk.Write("media/" + name, contents);
    }
    void MediaFiles(std::initializer_list<const char*> names) {
        for (const char* name : names)
            Media(name);
    }
    void InsertDisc() { core.volumes.ready.insert(cd); }
    /// Makes a file that is there and cannot be read.
    std::string Unreadable(const std::string& name) {
        std::filesystem::create_symlink("/dev/null", disk.File(name));
        return disk.File(name);
    }
    void UseCatalogue(std::vector<CatalogueFile> files = {},
                      DBStateValue now = DBStateValue::OnLine) {
        known.files = std::move(files);
        known.state = now;
        catalogue = &known;
    }
    void Enter(const std::string& folder) {
        state.CurrentPath = folder;
        browser().ReShow();
    }
    BrowserNeeds Needs() {
        return {core.base,
                state,
                keys,
                {tags, extensions, catalogue, &channels},
                {audio, video, sound.loudness, player, [this](std::int32_t) { return tuner; }}};
    }
    /// Makes the browser now, so that a test can change the settings before.
    Browser& browser() {
        if (!made_)
            made_ = std::make_unique<Browser>(Needs(), BrowserModels{list, rightList, entry}, view);
        return *made_;
    }
    void AddChannel(int number, const std::string& name, const std::string& category = {}) {
        XMChannel& channel = channels.channelTable.at(static_cast<std::size_t>(number));
        channel.name = name;
        channel.category = category;
        channel.valid = true;
    }
    template<class Part> std::vector<std::string> Rows(const ListModel& of, Part part) const {
        std::vector<std::string> parts;
        for (int row = 0; row < of.ItemCount(); ++row) {
            std::string text = std::invoke(part, of.Row(row));
            if (const auto at = text.find(disk.Path()); at != std::string::npos)
                text.erase(at, disk.Path().size() + 1);
            parts.push_back(text);
        }
        return parts;
    }
    // All without the temporary folder in front.
    std::vector<std::string> TextsOf(const ListModel& of) const {
        return Rows(of, [](const ListRow& row) { return row.first + row.second; });
    }
    std::vector<std::string> Texts() const { return TextsOf(list); }
    std::vector<std::string> Descriptors() const { return Rows(list, &ListRow::descriptor); }
    std::vector<std::string> Pictures() const { return Rows(list, &ListRow::picture); }
    /// The heading and the texts of the rows, the selected one in brackets.
    std::string Shown() const {
        std::string shown = view.title;
        for (int row = 0; const std::string& text : Texts())
            shown += " | " + (row++ == list.iSelected ? "[" + text + "]" : text);
        return shown;
    }
    struct Step {
        std::string how; ///< as Choose takes it
        std::string shown;
        std::vector<std::string> descriptors = {}; ///< none: not looked at
    };
    void Steps(const std::vector<Step>& steps) {
        for (const Step& step : steps) {
            Choose(step.how);
            EXPECT_EQ(Shown(), step.shown) << step.how;
            const auto& of = step.descriptors;
            EXPECT_EQ(Descriptors(), of.empty() ? Descriptors() : of) << step.how;
        }
    }
    /// What the player is given: mode, heading, list, track, volume, and whether it is to start.
    std::string Handed() const {
        const std::string name = FileNameOf(audio.ListFile);
        return std::to_string(audio.PlayMode) + " " + audio.ListTitle + " " +
               (audio.ListFile == core.app.File(name) ? name : audio.ListFile) + " " +
               std::to_string(audio.TrackToSelect) + " " + std::to_string(audio.VolumeSerial) +
               (audio.bStartPlaying ? " start" : "");
    }
    /// An operation as touch and keys ask for it.
    void Press(void (Browser::*operation)(), Commands::When whileBusy = Commands::When::Interrupt) {
        core.commands.Run(whileBusy, [this, operation] { (browser().*operation)(); });
    }
    /// Chooses rows by their texts, one after the other; "<" is back, ">" right.
    template<class... Text> void Choose(const Text&... texts) { (ChooseRow(texts), ...); }
    /// Chooses the last of the rows, a file of the media folder or the row added for it.
    void ChooseLast() {
        list.SelectItem(list.ItemCount() - 1);
        browser().runok();
    }
    void ChooseAdded(const std::string& descriptor) {
        list.AddItem("", "", descriptor);
        ChooseLast();
    }
    void Type(const std::string& text) {
        keyboard.SetValue(text);
        keyboard.KeyClick(KeyboardModel::OKKey);
    }
    /// Enters the browser at the top and chooses rows.
    template<class... Text> void Walk(const Text&... texts) {
        Enter(media);
        Choose(texts...);
    }
    std::string Selected() const { return Texts().at(static_cast<std::size_t>(list.iSelected)); }

    CoreFixture core;
    TempFolder disk;
    const std::string media = disk.MakeFolder("media");
    const std::string cd = disk.MakeFolder("cd");
    const std::string stick = disk.MakeFolder("stick");
    BrowserState state;
    AudioState audio;
    VideoState video;
    RecordingPlayerScreen player;
    SoundCard sound{core};
    RecordingScreen menu, self;
    ID3 reader{{core.log, core.dialogs}, core.state.DecimalSymbol};
    MediaExtensions extensions;
    MediaTags tags{extensions, reader};
    KeyMap keys;
    FakeBrowserView view;
    ListModel list, rightList;
    KeyboardModel keyboard;
    TextEntry entry{keyboard, view};
    ChannelTable channels;
    FakeCatalogue known;
    Catalogue* catalogue = nullptr;
    bool tuner = true; ///< those that are enabled are there

  private:
    void ChooseRow(const std::string& text) {
        if (text == "<") return browser().MoveBack();
        if (text == ">") return browser().MoveAhead();
        const auto texts = Texts();
        const auto found = std::ranges::find(texts, text);
        ASSERT_NE(found, texts.end()) << text << " in " << testing::PrintToString(texts);
        list.SelectItem(static_cast<int>(found - texts.begin()));
        Press(&Browser::runok);
    }

    std::unique_ptr<Browser> made_;
};

} // namespace vk::test
