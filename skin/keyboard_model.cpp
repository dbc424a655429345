#include "skin/keyboard_model.h"

#include "core/text.h"

#include <algorithm>
#include <iterator>

namespace vk {

namespace {

constexpr char Prompt[] = "Search For...";
constexpr int UnitsWide = 10;
constexpr int DefaultWidth = 640; // until a control lays the keys out
constexpr int DefaultHeight = 480;

// Heights in hundredths of a unit: prompt, text line, and all with the five rows.
constexpr int CaptionPart = 45;
constexpr int TextPart = 60;
constexpr int GapPart = 15; // hundredths of the text line, below it
constexpr int WholePart = CaptionPart + TextPart + TextPart * GapPart / 100 + 500;

constexpr const char* Captions[] = {
    "1", "2", "3", "4", "5", "6", "7", "8", "9", "0", "Q",     "W",     "E",  "R",  "T",
    "Y", "U", "I", "O", "P", "A", "S", "D", "F", "G", "H",     "J",     "K",  "L",  "OK",
    "Z", "X", "C", "V", "B", "N", "M", ".", "-", "!", "SHIFT", "SPACE", "<X", "ESC"};
static_assert(std::size(Captions) == KeyboardModel::KeyCount);

int UnitsOf(int index) {
    switch (index) {
    case KeyboardModel::ShiftKey:
        return 3;
    case KeyboardModel::SpaceKey:
        return 4;
    case KeyboardModel::EscKey:
        return 2;
    default:
        return 1;
    }
}

// The key of the lowest row over that unit.
int LowestKey(int unit) {
    int key = KeyboardModel::ShiftKey;
    for (int end = UnitsOf(key); end <= unit; end += UnitsOf(key))
        ++key;
    return key;
}

// Virtual-key codes, https://learn.microsoft.com/windows/win32/inputdev/virtual-key-codes
constexpr int VkBack = 8, VkShift = 16, VkSpace = 32, VkPad0 = 96, VkPad9 = 105, VkSubtract = 109,
              VkDecimal = 110, VkMinus = 189, VkPeriod = 190;

// The character of a key that types one, else 0.
char CharacterOf(std::int64_t code) {
    if ((code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9'))
        return static_cast<char>(code);
    if (code >= VkPad0 && code <= VkPad9) return static_cast<char>('0' + code - VkPad0);
    if (code == VkSubtract || code == VkMinus) return '-';
    return code == VkPeriod || code == VkDecimal ? '.' : '\0';
}

// The drawn key for a physical one, -1 for none.
int KeyOf(std::int64_t code) {
    if (code == VkBack) return KeyboardModel::DeleteKey;
    if (code == VkSpace) return KeyboardModel::SpaceKey;
    const std::string wanted(1, CharacterOf(code));
    const auto found = std::find(std::begin(Captions), std::end(Captions), wanted);
    return found == std::end(Captions) ? -1 : static_cast<int>(found - std::begin(Captions));
}

bool SameTop(const KeyBox& key, const KeyBox& marked) {
    return key.Top == marked.Top;
}

// Straight above or below, or wide enough to stand over the whole of the marked key.
bool SameLeftOrCovers(const KeyBox& key, const KeyBox& marked) {
    const bool covers = key.Width > marked.Width && key.Left <= marked.Left &&
                        key.Left + key.Width >= marked.Left + marked.Width;
    return key.Left == marked.Left || covers;
}

} // namespace

KeyboardModel::KeyboardModel() : caption_(Prompt) {
    UCResize(DefaultWidth, DefaultHeight);
}

void KeyboardModel::KeyClick(int index) {
    if (index < 0 || index >= KeyCount) return;
    if (onKeyShown) onKeyShown(index);
    switch (index) {
    case ShiftKey:
        return SetText(text_, !capital_);
    case SpaceKey:
        return SetText(text_ + " ", true);
    case DeleteKey:
        return DeleteLast();
    case OKKey:
        // A copy: the host may set the next value meanwhile.
        if (onOK) onOK(std::string(text_));
        return;
    case EscKey:
        if (onEscape) onEscape();
        return;
    default:
        Append(Captions[index]);
    }
}

void KeyboardModel::Append(const std::string& caption) {
    SetText(text_ + (capital_ ? caption : ToLower(caption)), false);
}

void KeyboardModel::DeleteLast() {
    std::string left = text_;
    const auto continues = [&] { return (left.back() & 0xC0) == 0x80; };
    while (!left.empty() && continues())
        left.pop_back();
    if (!left.empty()) left.pop_back();
    SetText(left, left.empty() || left.back() == ' ' || capital_);
}

bool KeyboardModel::Types(const std::string& code) {
    const auto number = ParseInteger(code);
    return number && (*number == VkShift || KeyOf(*number) >= 0);
}

bool KeyboardModel::KeyDown(const std::string& code) {
    if (!Types(code)) return false;
    const std::int64_t number = *ParseInteger(code);
    if (number == VkShift)
        SetText(text_, true);
    else
        KeyClick(KeyOf(number));
    return true;
}

void KeyboardModel::SetText(const std::string& text, bool capital) {
    text_ = text;
    capital_ = capital;
    Changed();
}

void KeyboardModel::SetCaption(const std::string& caption) {
    caption_ = caption.empty() ? Prompt : ToUtf8(caption);
    Changed();
}

void KeyboardModel::SetValue(const std::string& text) {
    SetText(ToUtf8(text), text.empty());
}

void KeyboardModel::Changed() const {
    if (onChange) onChange();
}

std::string KeyboardModel::KeyCaption(int index) const {
    if (index < 0 || index >= KeyCount) return {};
    return index == ShiftKey && !capital_ ? "Shift" : Captions[index];
}

int KeyboardModel::FittingWidth(int width, int height) {
    return UnitsWide * std::min(width / UnitsWide, height * 100 / WholePart);
}

void KeyboardModel::UCResize(int scaleWidth, int scaleHeight) {
    const int unit = std::max(1, scaleWidth / UnitsWide);
    const int spare = std::clamp(scaleHeight - unit * WholePart / 100, 0, unit / 2);
    const int wide = UnitsWide * unit;
    captionBox_ = {0, 0, wide, unit * CaptionPart / 100 + spare * 2 / 5};
    textBox_ = {0, captionBox_.Height, wide, unit * TextPart / 100 + spare / 2};
    int left = 0;
    int top = textBox_.Top + textBox_.Height + textBox_.Height * GapPart / 100;
    for (int index = 0; index < KeyCount; ++index) {
        keys_[static_cast<std::size_t>(index)] = {left, top, UnitsOf(index) * unit, unit};
        left += UnitsOf(index) * unit;
        if (left < wide) continue;
        left = 0;
        top += unit;
    }
    Changed();
}

int KeyboardModel::KeyAt(int x, int y) const {
    const auto found = std::find_if(keys_.begin(), keys_.end(),
                                    [&](const KeyBox& key) { return key.Contains(x, y); });
    return found == keys_.end() ? -1 : static_cast<int>(found - keys_.begin());
}

void KeyboardModel::StepUp() {
    const int before = mark_;
    MoveUp();
    if (mark_ != before) return;
    column_ = (before + UnitsWide - 1) % UnitsWide;
    MarkKey(LowestKey(column_));
}

void KeyboardModel::StepDown() {
    const int before = mark_;
    if (mark_ < ShiftKey) column_ = mark_ % UnitsWide;
    MoveDown();
    if (mark_ == before) MarkKey((Column() + 1) % UnitsWide);
}

// In units; of a wide key that the mark came to in another way, its last.
int KeyboardModel::Column() const {
    if (LowestKey(column_) == mark_) return column_;
    int last = -1;
    for (int key = ShiftKey; key <= mark_; ++key)
        last += UnitsOf(key);
    return last;
}

void KeyboardModel::MarkKey(int index) {
    if (index < 0 || index >= KeyCount) return;
    mark_ = index;
    Changed();
}

// The keys beyond the marked one: each opens a new entry or takes the place of the last.
std::vector<int> KeyboardModel::Walk(bool upward, Relation beyond, Relation opens) const {
    std::vector<int> kept;
    for (int step = 0; step < KeyCount; ++step) {
        const int index = upward ? step : KeyCount - 1 - step;
        if (!beyond(Label1(index), Label1(mark_))) continue;
        if (!kept.empty() && !opens(Label1(index), Label1(kept.back()))) kept.pop_back();
        kept.push_back(index);
    }
    return kept;
}

void KeyboardModel::MarkFirst(const std::vector<int>& candidates, Relation accepts) {
    const auto found = std::find_if(candidates.begin(), candidates.end(), [&](int index) {
        return accepts(Label1(index), Label1(mark_));
    });
    if (found == candidates.end()) return;
    mark_ = *found;
    Changed();
}

// In all four: `last` is the key that was kept before; doubled, so that halves stay whole.
void KeyboardModel::MoveLeft() {
    MarkFirst(Walk(
                  true,
                  [](const KeyBox& key, const KeyBox& marked) { return key.Left < marked.Left; },
                  [](const KeyBox& key, const KeyBox& last) {
                      return 2 * key.Left < 2 * last.Left + last.Width;
                  }),
              SameTop);
}

void KeyboardModel::MoveRight() {
    MarkFirst(Walk(
                  true,
                  [](const KeyBox& key, const KeyBox& marked) { return key.Left > marked.Left; },
                  [](const KeyBox& key, const KeyBox& last) {
                      return 2 * key.Left >= 2 * last.Left - last.Width;
                  }),
              SameTop);
}

void KeyboardModel::MoveUp() {
    MarkFirst(Walk(
                  false,
                  [](const KeyBox& key, const KeyBox& marked) { return key.Top < marked.Top; },
                  [](const KeyBox& key, const KeyBox& last) {
                      return 2 * key.Top < 2 * last.Top + last.Height;
                  }),
              SameLeftOrCovers);
}

void KeyboardModel::MoveDown() {
    MarkFirst(Walk(
                  true,
                  [](const KeyBox& key, const KeyBox& marked) { return key.Top > marked.Top; },
                  [](const KeyBox& key, const KeyBox& last) {
                      return 2 * key.Top > 2 * last.Top - last.Height;
                  }),
              SameLeftOrCovers);
}

} // namespace vk
