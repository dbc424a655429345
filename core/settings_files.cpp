#include "core/settings_files.h"

#include "core/settings_values.h"
#include "platform/files.h"

#include <array>
#include <string_view>

namespace vk {

namespace {

// A known-good configuration of the player, kept value by value; only the keys that the system
// forces at each start and those of the sound itself have a meaning here.
constexpr std::array WinampLines = std::to_array<std::string_view>({
    "[winamp]",
    "mw_open = 1",
    "outname = out_ds.dll",
    "proxyonly80 = 0",
    "Proxy=",
    "inet_mode = 2",
    "defext = MP3",
    "titlefmt=[%artist% - ]$if2(%title%,$filepart(%filename%))",
    "visplugin_name=vis_nsfs.dll",
    "dspplugin_name=",
    "check_ft_startup = 1",
    "visplugin_num = 0",
    "pe_fontsize = 11",
    "visplugin_priority = 2",
    "visplugin_autoexec = 0",
    "dspplugin_num = 0",
    "sticon = 0",
    "splash = 0",
    "taskbar = 1",
    "ascb_new = 0",
    "ttips = 0",
    "riol = 2",
    "minst = 0",
    "whichicon = 1",
    "whichicon2 = 1",
    "addtolist = 0",
    "snap = 0",
    "snaplen = 10",
    "Parent = 1",
    "hilite = 0",
    "disvis = 1",
    "rofiob = 0",
    "shownumsinpl = 0",
    "keeponscreen = 1",
    "eqdsize = 0",
    "usecursors = 0",
    "fixtitles = 0",
    "priority = 1",
    "shuffle_morph_rate = 50",
    "useexttitles = 0",
    "bifont = 0",
    "ospb = 0",
    "embedwnd_freesize = 0",
    "no_visseh = 0",
    "newverchk = 0",
    "newverchk2 = 0",
    "last_shortdesc=",
    "last_shorturl=",
    "prefs_last_page = 31",
    "autoload_eq = 0",
    "use_eq = 0",
    "eq_ws = 0",
    "wx = 317",
    "wy = 170",
    "minimized = 0",
    "aot = 0",
    "Shuffle = 0",
    "Repeat = 0",
    "Volume = 200",
    "pan = 0",
    "easymove = 1",
    "dsize = 0",
    "timeleftmode = 0",
    "autoscrollname = 1",
    "sa = 1",
    "safire = 4",
    "saref = 2",
    "safalloff = 2",
    "sa_peaks = 1",
    "sa_peak_falloff = 1",
    "eq_wx = 317",
    "eq_wy = 286",
    "eq_open = 0",
    "pe_wx = 317",
    "pe_wy = 402",
    "pe_open = 0",
    "pe_width = 275",
    "pe_height = 116",
    "pe_height_ws = 0",
    "mb_wx = 301",
    "mb_wy = 29",
    "mb_open = 0",
    "mb_width = 350",
    "mb_height = 348",
    "video_wx = 317",
    "video_wy = 286",
    "video_open = 0",
    "video_width = 275",
    "video_height = 232",
    "video_ratio1 = 4",
    "video_ratio2 = 3",
    "video_useratio = 0",
    "windowshade = 0",
    "preamp = 31",
    "pilp = 0",
    "randskin = 0",
    "cwd=",
    "skin=",
    "pladv = 1",
    "eq_data=4,31,31,31,31,31,31,31,31,31",
    "video_vsync = 0",
    "video_aspectadj = 1",
    "video_overlays = 1",
    "video_ddraw = 1",
    "video_updsize = 1",
    "video_autoopen = 1",
    "video_autoclose = 1",
    "video_noss = 1",
    "video_osd = 1",
    "video_yv12 = 1",
    "video_stopclose = 1",
    "video_remove_fs_on_stop = 0",
    "wav_do_header = 1",
    "wav_convert = 0",
    "wav_ext = WAV",
    "playlist_custom_font = Arial",
    "custom_plfont = 1",
    "config_extlist = CDA: MP3: MP2: MP1: AAC: WAV: VOC: AU: SND: AIF: AIFF: m3u: pls",
    "[IN_WAVE]",
    "cfg_vocsil = 0",
    "cfg_priority = 4",
    "cfg_raw_sr = 6000",
    "cfg_ext_mask = 63",
    "cfg_8216 = 0",
    "cfg_downcvt = 0",
    "cfg_mono = 0",
    "cfg_fdest = 0",
    "cfg_extra_exts=",
    "[out_ds]",
    "cfg_total_time=19060000000000001F",
});

constexpr std::array KeyboardLines = std::to_array<std::string_view>({
    "[keyboard]",
    "up=38",
    "down=40",
    "back=37",
    "forward=39",
    "ok=13",
    "quit=27",
    "vup=85",
    "vdown=68",
    "mute=77",
    "kbSWMP=80",
    "shuffle=76",
    "startvis=",
    "kbPageUp = 33",
    "kbPageDown = 34",
    "kbSearch =",
});

template<class Lines> std::string Text(const Lines& lines) {
    std::string text;
    for (const std::string_view line : lines)
        text += std::string(line) + "\r\n";
    return text;
}

} // namespace

// A blank line ends each section.
std::string SettingsFileText(const std::string& version) {
    std::string text, section;
    ForEachSetting([&](const SettingRow& row) {
        if (!row.initial) return;
        if (section != row.section)
            text += (section.empty() ? "[" : "\r\n[") + std::string(row.section) + "]\r\n";
        section = row.section;
        const std::string value = &row == &setting::Version ? version : row.initial;
        text += std::string(row.spelling ? row.spelling : row.Key()) + "=" + value + "\r\n";
    });
    return text + "\r\n";
}

std::string KeyboardFileText() {
    return Text(KeyboardLines);
}

std::string WinampFileText() {
    return Text(WinampLines);
}

bool MakeSettingsFile(const std::string& file, const std::string& version) {
    return ReplaceFile(file, SettingsFileText(version));
}

bool MakeKeyboardFile(const std::string& file) {
    return ReplaceFile(file, KeyboardFileText());
}

bool MakeWinampFile(const std::string& file) {
    return ReplaceFile(file, WinampFileText());
}

} // namespace vk
