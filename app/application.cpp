#include "app/application.h"

#include "input/remote/uuirt_calls.h"
#include "library/channels/channel_file.h"
#include "platform/qt/qt_local_stream.h"
#include "platform/qt/qt_serial_port.h"

#include <QCoreApplication>
#include <QTimer>

#include <cstdlib>

namespace vk {

namespace {

// A tenth of a second at most: a display that does not answer must not hold the start back.
constexpr int ExposeSteps = 50;
constexpr int ExposeStepMs = 2;

} // namespace

Application::Application(const std::string& appDir)
    : log_(appDir, clock_), settings_(appDir, ini_),
      skin_(
          {state_, settings_, fonts_, dialogs_, report_, [] { return QtScreenMetrics().width; }}) {
    report_.unloadAll = [this] { Quit(false); };
    background_.hide(); // until the start reaches it: messages may come before
    dialogs_.SetSkin(&skin_);
    dialogs_.SetKeys(&keys_);
    dialogs_.onClosed = [this] { newScreen_.Changed(); };
    QCoreApplication::instance()->installEventFilter(&touches_);
    host_.onKey = [this](const std::string& code, bool repeat) {
        return !ending_ && input_.Key(code, repeat);
    };
    host_.onClose = [this] { Quit(false); };
    remote_.IRCommand = [this](const std::string& code, bool repeat) {
        if (!ending_) input_.IRCommand(code, repeat);
    };
    remote_.withinCommand = [this](const std::string& code) {
        return dialogs_.Active() || InputCode(code, remoteKeys_).Mapped(Action::quit);
    };
}

InputRouter::Needs Application::RouterNeeds() {
    return {.screens = screens_,
            .newScreen = newScreen_,
            .commands = commands_,
            .keys = keys_,
            .remoteKeys = remoteKeys_,
            .dialog = [this](const InputCode& code,
                             bool repeat) { return dialogs_.DoAction(code, repeat); },
            .dialogChanges = [this] { return dialogs_.Changes(); },
            .powerAction =
                [this] {
                    if (!menuScreen_) return; // the first run
                    const bool ends = settings_.values.ShutDownMode == 0;
                    const ScreenOperations* screen = screens_.Current();
                    if (ends && screen) screen->switchingform();
                    menuScreen_->menu().Exit();
                }};
}

Application::~Application() {
    UnloadScreens();
    delete settingsScreen_;
    dialogs_.onClosed = {}; // what goes after this may still have something to say
}

bool Application::Start() {
    host_.ShowOnScreen();
    // What is drawn before the window is on the screen is lost, and the loading screen does not
    // wait.
    for (int i = 0; i < ExposeSteps && !host_.Exposed(); ++i) {
        clock_.DoEvents(0);
        clock_.Sleep(ExposeStepMs);
    }
    return start_.Form_Load() != StartOutcome::Ended && !ending_;
}

// Runs from the event loop, as the screens that asked for it are still on the stack.
void Application::Quit(bool osShutdown) {
    if (ending_) return;
    ending_ = true;
    dialogs_.CloseAll();
    QTimer::singleShot(0, &host_, [this, osShutdown] {
        start_.Form_QueryUnload(osShutdown);
        if (playerScreen_) playerScreen_->player().Form_Unload(osShutdown);
        start_.Form_Unload();
        screens_.CurrentForm.clear(); // ends what waits on a screen, as the menu for the catalogue
        // Not quit(): that would ask the window, which refuses to be closed by others.
        QCoreApplication::exit(0);
    });
}

cVolume& Application::Volume() {
    if (!volume_)
        volume_ = std::make_unique<cVolume>(cVolume::Needs{mixer_, soundInput_, dialogs_, report_});
    return *volume_;
}

// Called on the card's thread.
void Application::SoundCardChanged(bool present) {
    QMetaObject::invokeMethod(
        &host_,
        [this, present] {
            log_.WriteDebugLog(present ? "The sound card is there now"
                                       : "There is no sound card now");
            if (present && playerScreen_) playerScreen_->player().SoundCardCame();
        },
        Qt::QueuedConnection);
}

// Called on the card's thread.
void Application::LogSoundCard(const std::string& text) {
    QMetaObject::invokeMethod(
        &host_, [this, text] { log_.WriteDebugLog(text); }, Qt::QueuedConnection);
}

ScreenLoader Application::MakeLoader() {
    ScreenLoader loader;
    loader.velkorandum = [this] {
        menuScreen_ = std::make_unique<velkorandum>(controls_, MenuNeeds(), &host_);
        screens_.Add("velkorandum", *menuScreen_);
        menuScreen_->onFirstPaint = [this] {
            log_.WriteDebugLog("Main menu painted " + std::to_string(processes_.AgeMs()) +
                               " ms after the start of the process");
        };
    };
    loader.playlists = [this] {
        if (settings_.values.xmpcr_enabled)
            LoadChannels(settings_.File(ChannelFileName), clock_.Now(), report_, channels_);
        browserScreen_ =
            std::make_unique<playlists>(playlists::Needs{controls_, BrowserScreenNeeds()}, &host_);
        screens_.Add("playlists", browserScreen_->browser(), *browserScreen_);
    };
    loader.playmp3 = [this] {
        playerScreen_ = std::make_unique<playmp3>(controls_, PlayerNeeds(), &host_);
        screens_.Add("playmp3", *playerScreen_);
    };
    loader.settings = [this] { LoadSettingsScreen(); };
    loader.unloadSettings = [this] { UnloadSettingsScreen(); };
    loader.unloadScreens = [this] { UnloadScreens(); };
    return loader;
}

void Application::LoadSettingsScreen() {
    if (settingsScreen_) return;
    settingsScreen_ = new settings(controls_, ShellNeeds(), &host_);
    settingsScreen_->shell().FirstRunDue = !state_.Setup;
    screens_.Add("settings", *settingsScreen_);
    LoadSettingsPages();
}

void Application::LoadSettingsPages() {
    keyboardPage_ = std::make_unique<settingsKeyboard>(
        LearningPage::Needs{controls_, screens_, keys_, "settingsKeyboard"},
        KeyboardLearning::Needs{settings_, report_, clock_, keys_}, &host_);
    remotePage_ = std::make_unique<settingsRemote>(
        LearningPage::Needs{controls_, screens_, keys_, "settingsRemote"}, LearningNeeds(), &host_);
    screens_.Add("settingsKeyboard", *keyboardPage_);
    screens_.Add("settingsRemote", *remotePage_);
}

RemoteLearning::Needs Application::LearningNeeds() {
    return {.settings = settings_,
            .report = report_,
            .dialogs = dialogs_,
            .clock = clock_,
            .beeper = beeper_,
            .codes = remoteKeys_,
            .initRemote = [this] { return remote_.InitRemote(); },
            .ready = [this] { return remote_.Ready(); },
            .collect = [this](bool on) { remote_.learn = on ? "learn" : ""; },
            .setInterval = [this](float seconds) { remote_.learnInterval = seconds; }};
}

// False while a dialog is open: its event loop may have been entered from the screen or a page.
bool Application::UnloadSettingsScreen() {
    if (dialogs_.Active()) return false;
    if (!settingsScreen_) return true;
    screens_.Remove("settings");
    settingsScreen_->Hide();
    settingsScreen_->deleteLater(); // it may be on the stack itself, as the first run ends
    settingsScreen_ = nullptr;
    // No page is on the stack: it would be in front, or have a dialog open.
    screens_.Remove("settingsKeyboard");
    screens_.Remove("settingsRemote");
    keyboardPage_.reset();
    remotePage_.reset();
    return true;
}

void Application::UnloadScreens() {
    if (playerScreen_ && !ending_) playerScreen_->player().Form_Unload(false);
    for (const char* name : {"velkorandum", "playlists", "playmp3"})
        screens_.Remove(name);
    menuScreen_.reset();
    browserScreen_.reset();
    playerScreen_.reset();
}

Remote::Needs Application::RemoteNeeds() {
    return {.settings = settings_,
            .report = report_,
            .log = log_,
            .dialogs = dialogs_,
            .clock = clock_,
            .ui = uiThread_,
            .devices = {.serial = [] { return std::make_unique<QtSerialPort>(); },
                        .stream = [] { return std::make_unique<QtLocalStream>(); },
                        .x10 = {},
                        .uuirt = LoadUUIRTLibrary}};
}

astart::Needs Application::StartNeeds() {
    return {.state = state_,
            .settings = settings_,
            .log = log_,
            .report = report_,
            .dialogs = dialogs_,
            .clock = clock_,
            .locale = locale_,
            .volumes = volumes_,
            .processes = processes_,
            .registry = registry_,
            .window = window_,
            .player = *playerWindow_,
            .screens = screens_,
            .loading = background_,
            .skin = skin_,
            .keys = keys_,
            .remoteKeys = remoteKeys_,
            .extensions = extensions_,
            .loader = loader_,
            .metrics = QtScreenMetrics,
            .environment =
                [](const std::string& name) {
                    const char* value = std::getenv(name.c_str());
                    return std::string(value ? value : "");
                },
            .unloadAll = [this] { Quit(false); },
            .initRemote = [this] { return remote_.InitRemote(); },
            .clearRemote = [this] { remote_.ClearBuff(); },
            .closeRemote = [this] { remote_.CloseRemote(); },
            .remoteLearnText = [this] { return remote_.LearnText(); },
            .destinatorInstalled = {},
            .catalogue = MakeCatalogueHooks()};
}

MainMenu::Needs Application::MenuNeeds() {
    return {.state = state_,
            .settings = settings_,
            .log = log_,
            .report = report_,
            .clock = clock_,
            .locale = locale_,
            .volumes = volumes_,
            .window = window_,
            .screens = screens_,
            .skin = skin_,
            .daylight = daylight_,
            .keys = keys_,
            .audio = audio_,
            .browser = browser_,
            .winamp = *start_.Winamp(),
            .volume = Volume(),
            .openSettings =
                [this] {
                    LoadSettingsScreen();
                    screens_.Show("settings");
                },
            .unloadSettings = [this] { return UnloadSettingsScreen(); },
            .loadGPS = [this] { start_.LoadGPS(); },
            .exitApplication = [this] { Quit(false); },
            .powerAction = [this] { PowerAction(); },
            .setDimmer = {},
            .clearRemote = [this] { remote_.ClearBuff(); }};
}

// In mode 0 the menu ends the system; who turns the machine off then is not up to this version.
void Application::PowerAction() {
    const auto mode = settings_.values.ShutDownMode;
    if (mode == 1 || mode == 2)
        dialogs_.ShowMessage("Hibernation and standby are not part of this version.");
}

BrowserNeeds Application::BrowserScreenNeeds() {
    return {.base = base_,
            .state = browser_,
            .keys = keys_,
            .library = {tags_, extensions_, &db_, &channels_},
            .players = {.audio = audio_,
                        .video = video_,
                        .StopAudio = [this] { start_.Winamp()->WinAMP_SCM(WinampStop); },
                        .HasTuner =
                            [this](std::int32_t mode) {
                                return playerScreen_ && playerScreen_->player().HasSource(mode);
                            }}};
}

AudioPlayer::Needs Application::PlayerNeeds() {
    return {.audio = audio_,
            .browser = browser_,
            .app = state_,
            .winamp = *start_.Winamp(),
            .settings = settings_,
            .keys = keys_,
            .clock = clock_,
            .locale = locale_,
            .volumes = volumes_,
            .window = window_,
            .screens = screens_,
            .log = log_,
            .report = report_,
            .volume = Volume(),
            .tagOf = [this](const std::string& path) { return tags_.GetDBTag(path); },
            .query = [this](const std::string& sql) { return Query(sql); },
            .checkDaylight = [this] { daylight_.Check(); },
            .loadGPS = [this] { start_.LoadGPS(); }};
}

SettingsShell::Needs Application::ShellNeeds() {
    return {.state = state_,
            .settings = settings_,
            .report = report_,
            .dialogs = dialogs_,
            .clock = clock_,
            .locale = locale_,
            .screens = screens_,
            .window = window_,
            .loading = background_,
            .skin = skin_,
            .keys = keys_,
            .remoteKeys = remoteKeys_,
            .extensions = extensions_,
            .finishStart = [this] { start_.FinishExecution(); },
            .reloadScreens = [this] { start_.ReloadScreens(); },
            .askPlayer =
                [this] {
                    if (cWinamp* winamp = start_.Winamp()) winamp->WinAMP_GetStatus();
                },
            .catalogue = updates_,
            .exitApplication = [this] { Quit(false); }};
}

CatalogueUpdates::Needs Application::UpdateNeeds() {
    return {.app = state_,
            .settings = settings_,
            .screens = screens_,
            .report = report_,
            .db = db_,
            .scan =
                [this](const ScanRequest& request) {
                    if (server_) server_->Scan(request);
                },
            .stop =
                [this] {
                    if (server_) server_->Stop();
                },
            .progressShown =
                [this] {
                    if (settingsScreen_) settingsScreen_->ShowTexts();
                }};
}

CatalogueHooks Application::MakeCatalogueHooks() {
    return {.reference = [this](const std::string& program) { ReferenceServer(program); },
            .open = [this] { updates_.Open(); },
            .supervise = [this] { updates_.Supervise(); },
            .release = [this] { server_.reset(); }};
}

void Application::ReferenceServer(const std::string& program) {
    if (server_) return;
    server_ = std::make_unique<DB_OBJ>(program, log_, updates_.Events());
    state_.DBState = DBStateValue::Offline;
}

std::vector<CatalogueRow> Application::Query(const std::string& sql) {
    std::vector<CatalogueRow> rows;
    for (const CatalogueFile& file : db_.Files(sql))
        rows.push_back({JoinPath(settings_.values.MediaDir, file.path), file.artist, file.title});
    return rows;
}

} // namespace vk
