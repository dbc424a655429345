#include "playback/c_winamp.h"

#include "platform/files.h"
#include "platform/paths.h"

#include <cstdio>
#include <limits>

namespace vk {

namespace {

// What lParam of a WM_USER message selects.
enum Function : std::int32_t {
    AskVersion = 0,
    ClearList = 101,
    AskStatus = 104,
    AskTime = 105, ///< wParam 0: position in milliseconds, 1: length in seconds
    SeekTo = 106,
    SetIndex = 121,
    SetVolume = 122,
    SetBalance = 123,
    AskIndex = 125,
    AskInfo = 126,
    SelectBand = 127, ///< answers its value and selects it for `SetBand`
    SetBand = 128
};

constexpr std::int32_t PreAmpBand = 10;
constexpr int LengthTries = 101;
constexpr int OverflowNumber = 6;
#ifdef _WIN32
constexpr const char* ProgramName = "winamp.exe";
#else
constexpr const char* ProgramName = "winamp";
#endif

bool InRange(std::int32_t value, std::int32_t low, std::int32_t high) {
    return value >= low && value <= high;
}

std::string Where(const char* operation) {
    return std::string("An error occured in modWinamp_Control.") + operation + " ";
}

std::string VersionText(std::int32_t number) {
    char digits[16];
    const int length =
        std::snprintf(digits, sizeof digits, "%X", static_cast<std::uint32_t>(number));
    if (length <= 3) return "UNKNOWN";
    // The third digit is the one that goes: 2081 is 2.01, 5666 is 5.66.
    return std::string(1, digits[0]) + "." + digits[1] + std::string(digits + 3);
}

// Of "3. What plays - Winamp": the number of the entry goes, and what stands behind.
std::string PlayingTitle(const std::string& window) {
    const auto end = window.rfind(" - Winamp");
    const auto number = window.find(". ");
    if (end == std::string::npos || number == std::string::npos || number + 2 > end) return {};
    return window.substr(number + 2, end - number - 2);
}

} // namespace

cWinamp::~cWinamp() {
    try {
        WinAMP_ClearPlaylist();
        WinAMP_SCM(WinampStop);
        WinAMP_SCM(WinampClose);
    } catch (...) {
        // The process may be gone with its window; there is nobody left to tell.
    }
}

std::int32_t cWinamp::Query(std::int32_t function, std::int32_t argument) {
    return needs_.window.SendMessage(hWnd, WM_USER, argument, function);
}

std::string cWinamp::Program() const {
    return JoinPath(needs_.folder, ProgramName);
}

void cWinamp::WinAMP_FF() {
    Trap(needs_.report, Where("WinAMP_FF"), [&] { WinAMP_SCM(WinampForward); });
}

void cWinamp::WinAMP_RW() {
    Trap(needs_.report, Where("WinAMP_RW"), [&] { WinAMP_SCM(WinampRewind); });
}

std::string cWinamp::WinAmp_GetBitRate() {
    return std::to_string(Query(AskInfo, 1));
}

void cWinamp::WinAMP_SetEQValue(std::int32_t band, std::int32_t value) {
    Trap(needs_.report, Where("WinAMP_SetEQValue"), [&] {
        if (!InRange(band, 0, 9) || !InRange(value, 0, 63)) return;
        Query(SelectBand, band);
        Query(SetBand, value);
    });
}

void cWinamp::WinAMP_SetPreAmpValue(std::int32_t value) {
    Trap(needs_.report, Where("WinAMP_SetPreAmpValue"), [&] {
        if (!InRange(value, 0, 63)) return;
        Query(SelectBand, PreAmpBand);
        Query(SetBand, value);
    });
}

void cWinamp::WinAMP_ClearPlaylist() {
    Trap(needs_.report, Where("WinAMP_ClearPlaylist"), [&] { Query(ClearList); });
}

bool cWinamp::WinAMP_FindWindow() {
    return WinAMP_GetHwnd() != 0 && !WinAMP_GetVersion().empty();
}

WindowHandle cWinamp::WinAMP_GetHwnd() {
    hWnd = 0;
    hWnd = needs_.window.FindWindow(WinampWindowClass);
    return hWnd;
}

std::string cWinamp::WinAMP_GetStatus() {
    return Trap(needs_.report, Where("WinAMP_GetStatus"), std::string(), [&]() -> std::string {
        switch (Query(AskStatus)) {
        case 1:
            return "1";
        case 3:
            return "2";
        default:
            return "0";
        }
    });
}

std::int32_t cWinamp::WinAMP_GetTrackPosition() {
    return Trap(needs_.report, Where("WinAMP_GetTrackPosition"), 0, [&] {
        const std::int32_t position = Query(AskTime, 0);
        return position == -1 ? -1 : position / 1000;
    });
}

std::int32_t cWinamp::WinAMP_GetEQValue(std::int32_t band) {
    return Trap(needs_.report, Where("WinAMP_GetEQValue"), 0,
                [&] { return InRange(band, 0, 9) ? Query(SelectBand, band) : -1; });
}

std::int32_t cWinamp::WinAMP_GetPreAmpValue() {
    return Trap(needs_.report, Where("WinAMP_GetPreAmpValue"), 0,
                [&] { return Query(SelectBand, PreAmpBand); });
}

void cWinamp::WinAMP_SeekToPosition(std::int32_t seconds) {
    Trap(needs_.report, Where("WinAMP_SeekToPosition"), [&] {
        if (!InRange(seconds, 0, WinAMP_GetTrackLength())) return;
        if (seconds > std::numeric_limits<std::int32_t>::max() / 1000)
            throw Error("Overflow", OverflowNumber);
        Query(SeekTo, seconds * 1000);
    });
}

void cWinamp::WinAMP_SetVolume(std::int32_t volume) {
    Trap(needs_.report, Where("WinAMP_SetVolume"), [&] {
        if (InRange(volume, 0, 255)) Query(SetVolume, volume);
    });
}

void cWinamp::WinAMP_SetBalance(std::int32_t balance) {
    Trap(needs_.report, Where("WinAMP_SetBalance"), [&] {
        if (InRange(balance, -127, 127)) Query(SetBalance, balance < 0 ? balance + 255 : balance);
    });
}

std::int32_t cWinamp::WinAMP_GetTrackLength() {
    return Trap(needs_.report, Where("WinAMP_GetTrackLength"), 0, [&] {
        std::int32_t length = 0;
        for (int tries = 0; tries < LengthTries && length <= 0; ++tries) {
            needs_.pump.Turn();
            length = Query(AskTime, 1);
        }
        return length;
    });
}

std::string cWinamp::WinAMP_GetTitle() {
    return Trap(needs_.report, Where("WinAMP_GetTitle"), std::string(),
                [&] { return PlayingTitle(needs_.window.Title(hWnd)); });
}

std::string cWinamp::WinAMP_GetVersion() {
    return Trap(needs_.report, Where("WinAMP_GetVersion"), std::string(),
                [&] { return VersionText(Query(AskVersion)); });
}

void cWinamp::WinAMP_SCM(std::int32_t id) {
    needs_.window.SendMessage(hWnd, WM_COMMAND, id, 0);
}

void cWinamp::WinAMP_loadtracknum(std::int32_t index) {
    Trap(needs_.report, Where("WinAMP_loadtracknum"), [&] { Query(SetIndex, index); });
}

std::int32_t cWinamp::WinAMP_gettracknum() {
    return Trap(needs_.report, Where("WinAMP_gettracknum"), 0, [&] { return Query(AskIndex); });
}

bool cWinamp::WinAMP_Start() {
    try {
        return WinAMP_FindWindow() || needs_.window.Start(Program(), needs_.folder);
    } catch (const std::exception&) {
        return false;
    }
}

bool cWinamp::WinAMP_OpenFile(const std::string& path) {
    return Trap(needs_.report, Where("WinAMP_OpenFile"), false, [&] {
        return FileExists(path) &&
               needs_.window.RunHidden(Program(), "/ADD \"" + path + "\"", needs_.folder);
    });
}

void cWinamp::WinAMP_setvol(std::int32_t volume) {
    Trap(needs_.report, Where("WinAMP_setvol"), [&] { Query(SetVolume, volume); });
}

} // namespace vk
