#include "settings/visuals_page.h"

#include "core/settings_files.h"
#include "core/text.h"
#include "platform/files.h"
#include "playback/player_restart.h"
#include "playback/visuals/vis_plugins.h"
#include "settings/cls3d_object.h"
#include "settings/pages/plates.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vk {

namespace {

constexpr int TickMs = 50;       // of the cube
constexpr int PictureSide = 320; // pixels; drawn smaller, which smooths its edges
constexpr int PictureColumns = 7, PictureLines = 4;
constexpr int RowColumns = BoardColumns - PictureColumns;
constexpr double CubeSize = 1.0, CubeDistance = 4.6;
constexpr double StepX = 0.023, StepY = 0.041, StepZ = 0.011; // radians a tick

class VisualsSettings {
  public:
    explicit VisualsSettings(const VisualsPageNeeds& needs)
        : n_(needs), base_(n_.base), choice_(base_.settings), pic3D(PictureSide, PictureSide),
          picVis(PictureSide, PictureSide), cTmr(base_.clock.MakeTimer([this] { Turn(); })) {
        cube_.LoadObject("Cube", CubeSize);
        cube_.SetTranslations(0, 0, CubeDistance);
        cube_.SetRotations(0.5, 0.6, 0);
    }

    void Enter() {
        List1.clear();
        for (const std::string& file : ReadVisList(base_.settings.AppDir()))
            List1.emplace_back(file, ReadVisPlugin(base_.settings.AppDir(), file).name);
        Show();
        Turn();
        cTmr->Start(TickMs);
    }
    void Leave() {
        cTmr->Stop();
        told_.clear();
    }
    std::vector<Row> Rows() {
        Row list = StepRow([this] { return ListText(); }, [this](int step) { Step(step); });
        list.usable = [this] { return !List1.empty(); };
        list.width = RowColumns;
        list.changes = {&setting::VisWindowName};
        return {
            PictureRow([this]() -> const PagePicture& { return picVis; }, PictureColumns,
                       PictureLines),
            list,
            {.text = [this] { return "Plug-in: " + txtVisDLL; },
             .use = [this] { ChooseFile(); },
             .width = RowColumns,
             .name = "btnVisDLL"},
            ButtonRow(
                "Player's preferences", [this] { Preferences(); }, RowColumns, "btnWinampPrefs"),
            ButtonRow(
                "Reset the player's settings", [this] { Reset(); }, RowColumns, "Command2")};
    }
    std::string Heading() const {
        return told_.empty() ? "While music plays, the button with the waves shows it on the whole "
                               "screen. A touch leads back."
                             : told_;
    }

  private:
    void Show() { txtVisDLL = ToUtf8(choice_.File()); }
    std::string ListText() const {
        if (List1.empty()) return "There is no list of visualisations";
        const auto at = std::ranges::find_if(
            List1, [this](const auto& item) { return EqualNoCase(item.first, txtVisDLL); });
        return "Visualisation: " + (at == List1.end() ? choice_.Name() : at->second);
    }
    void Turn() {
        cube_.RotateX(StepX);
        cube_.RotateY(StepY);
        cube_.RotateZ(StepZ);
        pic3D.Clear();
        cube_.RenderObject(pic3D);
        picVis = pic3D;
    }
    void Step(int step) {
        choice_.Step(step);
        Show();
    }
    // The player reads its settings as it starts, and may write them as it ends.
    void ChooseFile() {
        const auto file = AskFile();
        if (!file) return;
        const auto choose = [&] { choice_.Choose(*file); };
        if (cWinamp* winamp = n_.winamp())
            PlayerRestart{base_, *winamp, n_.transport}.Run(choose);
        else
            choose();
        Show();
    }
    std::optional<std::string> AskFile() {
        const std::string& appDir = base_.settings.AppDir();
        const std::vector<std::string> files = VisFiles(appDir);
        told_ = files.empty() ? "There is no plug-in in " + ToUtf8(VisFolder(appDir)) : "";
        if (files.empty()) return std::nullopt;
        std::vector<std::string> rows;
        int marked = 0;
        for (const std::string& file : files) {
            if (file == choice_.File()) marked = static_cast<int>(rows.size());
            rows.push_back(ReadVisPlugin(appDir, file).name + " (" + ToUtf8(file) + ")");
        }
        const auto chosen = base_.dialogs.Choose("Winamp Vis Files (*.dll)", rows, marked);
        if (!chosen) return std::nullopt;
        return files[static_cast<std::size_t>(*chosen)];
    }
    void Preferences() {
        cWinamp* winamp = n_.winamp();
        if (!winamp) return;
        winamp->WinAMP_SCM(WinampPreferences);
        const WindowHandle window = winamp->WinAMP_GetHwnd();
        if (n_.windows && n_.windows->Exists(window))
            n_.windows->Focus(window);
        else
            told_ = "This player has no preferences of its own";
    }
    void Reset() {
        if (!base_.dialogs.AskNoYes("Are you sure?", "Warning")) return;
        const std::string file = base_.settings.File("winamp.ini");
        base_.settings.Finish();
        if (FileExists(file)) DeleteFileAt(file);
        told_ = MakeWinampFile(file) ? "The player's settings are as at first"
                                     : "winamp.ini could not be written";
        Show();
    }

    VisualsPageNeeds n_;
    Base& base_;
    VisChoice choice_;
    std::vector<std::pair<std::string, std::string>> List1; ///< file, name
    std::string txtVisDLL;                                  ///< the file of the one that is chosen
    std::string told_;                                      ///< how the last press came out
    cls3dObject cube_;
    PagePicture pic3D, picVis; ///< what is drawn on, and what is shown of it
    std::unique_ptr<Timer> cTmr;
};

} // namespace

Page VisualsPage(const VisualsPageNeeds& needs) {
    const auto page = std::make_shared<VisualsSettings>(needs);
    return {.name = "settingsVisuals",
            .tab = "Visuals",
            .rows = page->Rows(),
            .heading = [page] { return page->Heading(); },
            .enter = [page] { page->Enter(); },
            .leave = [page] { page->Leave(); },
            .refreshMs = TickMs};
}

} // namespace vk
