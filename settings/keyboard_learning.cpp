#include "settings/keyboard_learning.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <utility>

namespace vk {

namespace {

constexpr const char* KeyboardFile = "kb.ini";
constexpr const char* EscapeCode = "27";

constexpr std::pair<int, const char*> Names[] = {
    {13, "Enter"},        {9, "Tab"},           {27, "Esc"},          {8, "Back"},
    {16, "Shift"},        {17, "Ctrl"},         {18, "Alt"},          {20, "Caps Lock"},
    {144, "Num Lock"},    {145, "Scr Lock"},    {32, "Space"},        {45, "Ins"},
    {46, "Del"},          {36, "Home"},         {35, "End"},          {33, "Pg Up"},
    {34, "Pg Dn"},        {37, "Left Arrow"},   {38, "Up Arrow"},     {39, "Right Arrow"},
    {40, "Down Arrow"},   {106, "* [Num Pad]"}, {107, "+ [Num Pad]"}, {109, "- [Num Pad]"},
    {111, "/ [Num Pad]"}, {192, "~"},           {187, "="},           {189, "-"},
    {219, "["},           {220, "\\"},          {221, "]"},           {186, ";"},
    {222, "'"},           {188, ","},           {190, "."},           {191, "/"},
    {226, "<"},           {12, "Clear"},        {19, "Pause"},        {44, "Print Scr"},
    {47, "Help"},         {91, "Left Win"},     {92, "Right Win"},    {93, "Menu"},
    {95, "Sleep"},        {110, ". [Num Pad]"}, {166, "Web Back"},    {167, "Web Forward"},
    {168, "Refresh"},     {169, "Web Stop"},    {170, "Search"},      {171, "Favourites"},
    {172, "Home Page"},   {173, "Mute"},        {174, "Vol Down"},    {175, "Vol Up"},
    {176, "Next Track"},  {177, "Prev Track"},  {178, "Stop"},        {179, "Play/Pause"},
    {180, "Mail"},        {181, "Media"},
};
constexpr int F1 = 112, F24 = 135, Pad0 = 96, Pad9 = 105;

} // namespace

std::string KeyName(const std::string& code) {
    int key = 0;
    const auto read = std::from_chars(code.data(), code.data() + code.size(), key);
    if (read.ec != std::errc() || read.ptr != code.data() + code.size()) return "No Key";
    if ((key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9'))
        return std::string(1, static_cast<char>(key));
    if (key >= F1 && key <= F24) return "F" + std::to_string(key - F1 + 1);
    if (key >= Pad0 && key <= Pad9) return std::to_string(key - Pad0) + " [Num Pad]";
    const auto* named = std::ranges::find(Names, key, [](const auto& row) { return row.first; });
    return named == std::end(Names) ? "Key " + code : named->second;
}

KeyboardLearning::KeyboardLearning(Needs needs)
    : n_(needs), limit_(n_.clock.MakeTimer([this] {
          Cancel();
          if (onTimeOut) onTimeOut();
      })) {}

void KeyboardLearning::Enter() {
    keys_ = ReadKeyMap(n_.settings.ini(), n_.settings.File(KeyboardFile));
    armed_.reset();
    message_.clear();
    status_.clear();
}

void KeyboardLearning::Arm(Action action) {
    if (armed_ == action) return Cancel();
    armed_ = action;
    message_ = "Press any key to assign this funtion to it";
    limit_->Start(WaitMs);
}

void KeyboardLearning::Cancel() {
    limit_->Stop();
    armed_.reset();
    message_ = "Key Programming Canceled";
}

void KeyboardLearning::KeyDown(const std::string& code) {
    if (!armed_) return;
    if (code.empty()) {
        message_ = "This key cannot be used, press another one";
        return;
    }
    limit_->Stop();
    const Action action = *std::exchange(armed_, std::nullopt);
    const std::string where =
        std::string("An error occured in settingskeyboard.btn") + NamesOf(action).key + "_Click ";
    Trap(n_.report, where.c_str(), [&] { Program(action, code); });
}

void KeyboardLearning::Program(Action action, const std::string& code) {
    status_ = "Pressed key " + KeyName(code);
    if (code == EscapeCode) {
        Cancel();
    } else if (Taken(action, code)) {
        message_ = "This key is already programmed to another function";
    } else if (!WriteKey(n_.settings.ini(), n_.settings.File(KeyboardFile), action, code)) {
        message_ = std::string(KeyboardFile) + " could not be written";
    } else {
        keys_[action] = code;
        message_ =
            std::string(NamesOf(action).key) + " has been programmed to keypress " + KeyName(code);
    }
}

// A fixed key does its own action first, whatever it is mapped to.
bool KeyboardLearning::Taken(Action action, const std::string& code) const {
    return std::ranges::any_of(Actions, [&](const ActionNames& names) {
        return names.action != action && (keys_[names.action] == code || names.fixed == code);
    });
}

void KeyboardLearning::Leave() {
    limit_->Stop();
    armed_.reset();
    n_.keys = ReadKeyMap(n_.settings.ini(), n_.settings.File(KeyboardFile));
}

} // namespace vk
