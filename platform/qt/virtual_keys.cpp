#include "platform/qt/virtual_keys.h"

#include "platform/key_place.h"

#include <algorithm>
#include <iterator>

namespace vk {

namespace {

struct KeyCode {
    int qtKey;
    int code;
};

constexpr KeyCode Codes[] = {
    {Qt::Key_Return, 13},       {Qt::Key_Enter, 13},       {Qt::Key_Escape, 27},
    {Qt::Key_Tab, 9},           {Qt::Key_Backspace, 8},    {Qt::Key_Shift, 16},
    {Qt::Key_Control, 17},      {Qt::Key_Alt, 18},         {Qt::Key_CapsLock, 20},
    {Qt::Key_NumLock, 144},     {Qt::Key_ScrollLock, 145}, {Qt::Key_Space, 32},
    {Qt::Key_PageUp, 33},       {Qt::Key_PageDown, 34},    {Qt::Key_End, 35},
    {Qt::Key_Home, 36},         {Qt::Key_Left, 37},        {Qt::Key_Up, 38},
    {Qt::Key_Right, 39},        {Qt::Key_Down, 40},        {Qt::Key_Insert, 45},
    {Qt::Key_Delete, 46},       {Qt::Key_Semicolon, 186},  {Qt::Key_Equal, 187},
    {Qt::Key_Comma, 188},       {Qt::Key_Minus, 189},      {Qt::Key_Period, 190},
    {Qt::Key_Slash, 191},       {Qt::Key_QuoteLeft, 192},  {Qt::Key_AsciiTilde, 192},
    {Qt::Key_BracketLeft, 219}, {Qt::Key_Backslash, 220},  {Qt::Key_BracketRight, 221},
    {Qt::Key_Apostrophe, 222},  {Qt::Key_VolumeMute, 173}, {Qt::Key_VolumeDown, 174},
    {Qt::Key_VolumeUp, 175},    {Qt::Key_MediaNext, 176},  {Qt::Key_MediaPrevious, 177},
    {Qt::Key_MediaStop, 178},   {Qt::Key_MediaPlay, 179},  {Qt::Key_MediaTogglePlayPause, 179},
    {Qt::Key_Backtab, 9},       {Qt::Key_Clear, 12},       {Qt::Key_Pause, 19},
    {Qt::Key_Print, 44},        {Qt::Key_Help, 47},        {Qt::Key_Super_L, 91},
    {Qt::Key_Super_R, 92},      {Qt::Key_Menu, 93},        {Qt::Key_Sleep, 95},
    {Qt::Key_Back, 166},        {Qt::Key_Forward, 167},    {Qt::Key_Refresh, 168},
    {Qt::Key_Stop, 169},        {Qt::Key_Search, 170},     {Qt::Key_Favorites, 171},
    {Qt::Key_HomePage, 172},    {Qt::Key_LaunchMail, 180}, {Qt::Key_LaunchMedia, 181},
    {Qt::Key_Less, 226},
};

constexpr KeyCode PadCodes[] = {{Qt::Key_Asterisk, 106}, {Qt::Key_Plus, 107},
                                {Qt::Key_Minus, 109},    {Qt::Key_Period, 110},
                                {Qt::Key_Comma, 110},    {Qt::Key_Slash, 111}};

// Of keys that no system numbers; behind all codes of Windows.
constexpr int FirstOwnCode = 256;
constexpr int FirstKeyWithoutText = 0x01000000; // of Qt
constexpr int Pad0 = 96;

bool IsLetter(int qtKey) {
    return qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z;
}

template<std::size_t N> int Find(const KeyCode (&codes)[N], int qtKey) {
    const auto* found = std::find_if(std::begin(codes), std::end(codes),
                                     [&](const KeyCode& item) { return item.qtKey == qtKey; });
    return found == std::end(codes) ? 0 : found->code;
}

} // namespace

int VirtualKey(int qtKey, Qt::KeyboardModifiers modifiers) {
    const bool pad = modifiers.testFlag(Qt::KeypadModifier);
    if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) return pad ? Pad0 + qtKey - Qt::Key_0 : qtKey;
    if (IsLetter(qtKey)) return qtKey;
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F24) return 112 + qtKey - Qt::Key_F1;
    const int onPad = pad ? Find(PadCodes, qtKey) : 0;
    return onPad != 0 ? onPad : Find(Codes, qtKey);
}

namespace {

// A Latin letter is what it says; where a layout has others, and for digits and signs, the place
// counts. A key that does not type may lie anywhere: steering wheels are wired to what is free.
int KeyCodeOf(const QKeyEvent& event) {
    const int key = event.key(), named = VirtualKey(key, event.modifiers());
    const bool pad = event.modifiers().testFlag(Qt::KeypadModifier);
    if (named != 0 && (IsLetter(key) || pad || key >= FirstKeyWithoutText)) return named;
    const int place = KeyAtPlace(event.nativeScanCode(), event.nativeVirtualKey());
    if (place != 0 || named != 0) return place != 0 ? place : named;
    const auto scanCode = static_cast<int>(event.nativeScanCode());
    return scanCode != 0 ? FirstOwnCode + scanCode : 0;
}

} // namespace

std::string VirtualKeyText(const QKeyEvent& event) {
    const int code = KeyCodeOf(event);
    if (code == 0) return {};
    const bool alt = event.key() != Qt::Key_Alt && event.modifiers().testFlag(Qt::AltModifier);
    return (alt ? "%" : "") + std::to_string(code);
}

} // namespace vk
