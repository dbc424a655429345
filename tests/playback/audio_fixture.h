// The audio player's logic over a simulated player process.
#pragma once

#include "input/key_map.h"
#include "playback/audio/audio_player.h"
#include "playback/audio/file_source.h"
#include "tests/sim/recording_player.h"
#include "tests/support/core_test.h"
#include "tests/support/recording_screen.h"
#include "tests/support/sound_card.h"

namespace vk::test {

using testing::ElementsAre;

/// Keeps what was last shown of each kind.
class RecordingView : public PlayerView {
  public:
    using Done = std::function<void(const CoverOutcome&)>;
    void ShowTitle(const std::string& text) override { title = text; }
    void ShowArtist(const std::string& text) override { artist = text; }
    void ShowBitRate(const std::string& text) override { bitRate = text; }
    void ShowTrackTime(const std::string& text) override { time = text; }
    void ShowListTitle(const std::string& text) override { listTitle = text; }
    void ShowVolume(const std::string& text) override { volumes.push_back(text); }
    void ShowClock(const std::string& text) override { clocks.push_back(text); }
    void ShowLoading(const std::string& text) override { loading = text; }
    void ShowMediaType(const std::string& picture) override { mediaType = picture; }
    void ShowShuffle(bool on) override { shuffle = on; }
    void SetButton(PlayerButton button, const std::string& is) override { buttons[button] = is; }
    void LoadCover(const CoverRequest& request, Done done) override {
        covers.push_back(request);
        coverDone = std::move(done);
    }
    void HideCover() override { cover.clear(), coverDone = nullptr; }
    void ReDrawCover() override { ++coverRedraws; }
    void ReDrawList() override { ++redraws; }
    void ShowFrame(bool shown) override { frame = shown; }
    void ShowAtFront() override { ++shows; }
    /// What the background does: looks for the picture that was asked for last and reads it.
    void FinishCover() {
        if (!coverDone) return;
        std::string read;
        const CoverOutcome outcome = vk::LoadCover(covers.back(), [&](const std::string& path) {
            read = ReadWholeFile(path).value_or("");
            return read.starts_with("picture");
        });
        if (outcome.error.empty()) cover = read;
        std::exchange(coverDone, nullptr)(outcome);
    }

    std::string title, artist, bitRate, time, listTitle, loading, mediaType;
    std::vector<std::string> volumes, clocks;
    std::map<PlayerButton, std::string> buttons;
    bool shuffle = false, frame = false;
    int redraws = 0, coverRedraws = 0, shows = 0;
    std::vector<CoverRequest> covers;
    Done coverDone;
    std::string cover; ///< the bytes on show, "" when hidden
};

/// A player process of a hundred tracks of three minutes that obeys the commands.
struct SimulatedProcess {
    RecordingPlayer wire;
    std::int32_t status = 0, track = 0, positionMs = 0, length = 180, bitRate = 128;
    bool obeys = true; ///< a play command starts it

    SimulatedProcess() {
        wire.answer = [this](const RecordingPlayer::Message& m) {
            return m.message == WM_COMMAND ? Obey(m.wParam) : Answer(m.lParam, m.wParam);
        };
    }
    std::int32_t Obey(std::int32_t command) {
        if (command == WinampPlay && obeys) status = 1;
        if (command == WinampPause) status = 3;
        if (command == WinampStop) status = 0;
        track += command == WinampNext ? 1 : command == WinampPrevious ? -1 : 0;
        return 0;
    }
    std::int32_t Answer(std::int32_t function, std::int32_t argument) {
        if (function == 106 || function == 121) positionMs = function == 106 ? argument : 0;
        if (function == 121) track = argument;
        if (function == 105 && argument != 0) return length;
        return std::map<int, std::int32_t>{
            {104, status}, {105, positionMs}, {125, track}, {126, bitRate}}[function];
    }
    /// "playing 3 at 42" (seconds).
    std::string State() const {
        const char* states[] = {"stopped ", "playing ", "", "paused "};
        return states[status] + std::to_string(track) + " at " + std::to_string(positionMs / 1000);
    }
    /// The ids of all commands and the functions of all queries, in the order they were sent.
    std::vector<std::int32_t> Sent() const {
        std::vector<std::int32_t> ids;
        for (const auto& m : wire.sent)
            ids.push_back(m.message == WM_COMMAND ? m.wParam : m.lParam);
        return ids;
    }
    std::int64_t Count(std::int32_t id) const { return std::ranges::count(Sent(), id); }
};

struct AudioFixture : CoreFixture {
    SimulatedProcess process;
    cWinamp winamp{{process.wire, pump, report, app.Path()}};
    AudioState audio;
    BrowserState browser;
    KeyMap keys;
    ListModel list;
    RecordingView view;
    RecordingScreen menu, playlists;
    std::map<std::string, TagRecord> tags; ///< by file name
    int tagsRead = 0;
    CatalogueQuery query;
    SourceMakers sources;
    SoundCard sound{*this};
    FakeMixer& mixer = sound.mixer;
    std::int32_t& level = mixer.Level(MixerLine::Master);
    std::unique_ptr<AudioPlayer> made;

    AudioFixture() {
        list.SetGeometry(20, "4", 250); // ten rows
        settings.values.TSRepeatVal = 4;
        settings.values.DoResume = true;
        settings.values.CDDriveLetter = "/media/disc";
        settings.values.MediaDir = app.File("media");
        screens.Add("velkorandum", menu);
        screens.Add("playlists", playlists);
    }
    AudioPlayer::Needs Needs() {
        const auto tagOf = [this](const std::string& path) {
            return ++tagsRead, tags[FileNameOf(path)];
        };
        sources[PlayAudio] = AudioFiles(winamp, query);
        return {base, audio, browser, winamp, sound.loudness, keys, sources, tagOf};
    }
    AudioPlayer& player() {
        if (!made) made = std::make_unique<AudioPlayer>(Needs(), list, view);
        return *made;
    }
    /// An operation as a key asks for it: events run inside, and with them come ticks and keys.
    void Command(void (AudioPlayer::*operation)()) {
        commands.Run([this, operation] { (player().*operation)(); });
    }
    void Enter() { Command(&AudioPlayer::ReShow); }
    /// What a quit does to an operation that is under way.
    void QuitMeanwhile() {
        commands.Run(Commands::When::Interrupt, [this] { player().doquit(); });
    }
    void InsertDisc() {
        audio.VolumeSerial = 77;
        volumes.ready.insert("/media/disc");
    }
    /// A list of existing files named "Artist<n> - Song<n>.mp3"; returns the list's path.
    std::string MakeList(int count) {
        std::string lines;
        for (int i = 1; i <= count; ++i)
            lines += app.Write("media/" + FileNameOf(Song(i)), "x") + "\r\n";
        return app.Write("vk_audio.m3u", lines);
    }
    std::string Song(int number) const {
        const std::string n = std::to_string(number);
        return app.File("media/Artist" + n + " - Song" + n + ".mp3");
    }
    /// Asks for the list from entry `track` (from 1) as the browser does.
    void ChooseList(const std::string& file, std::int32_t track = 1) {
        audio.PlayMode = PlayAudio;
        audio.ListFile = file;
        audio.TrackToSelect = track;
        audio.bStartPlaying = true;
    }
    void Choose(int count, std::int32_t track = 1) { ChooseList(MakeList(count), track); }
    /// Chooses a list and enters the player.
    void PlayList(const std::string& file, std::int32_t track = 1) {
        ChooseList(file, track);
        Enter();
    }
    void Play(int count, std::int32_t track = 1) { PlayList(MakeList(count), track); }
    std::string Saved(const char* key) { return settings.Read("audio_player", key); }
};

} // namespace vk::test
