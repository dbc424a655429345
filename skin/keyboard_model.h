// The on-screen keyboard without its drawing: the text, the shift state, the mark and where the
// keys stand.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace vk {

/// A place within the keyboard, pixels.
struct KeyBox {
    int Left = 0, Top = 0, Width = 0, Height = 0;
    bool Contains(int x, int y) const {
        return x >= Left && x < Left + Width && y >= Top && y < Top + Height;
    }
};

/// Five rows, each ten units wide: 44 keys, numbered row by row. The first letter of each word is
/// typed as a capital unless SHIFT is pressed.
class KeyboardModel {
  public:
    static constexpr int KeyCount = 44;
    static constexpr int OKKey = 29;
    static constexpr int ShiftKey = 40;
    static constexpr int SpaceKey = 41;
    static constexpr int DeleteKey = 42;
    static constexpr int EscKey = 43;

    KeyboardModel();

    /// Acts as if the key was pressed; an index that names no key does nothing.
    void KeyClick(int index);
    /// The mark by one key; at an edge it stays.
    void MoveLeft();
    void MoveRight();
    void MoveUp();
    void MoveDown();
    /// The same up and down for who has nothing else: at an edge the mark goes on at the other one,
    /// a column further, and comes to every key.
    void StepUp();
    void StepDown();
    /// Marks a key; an index that names none does nothing.
    void MarkKey(int index);
    /// Presses the marked key.
    void ClickIt() { KeyClick(mark_); }
    /// Presses ESC.
    void Leave() { KeyClick(EscKey); }
    /// A key of a physical keyboard, by the decimal text of its Windows virtual-key code: letters,
    /// digits (the pad's too), space, backspace, "." and "-" press the drawn key, Shift makes the
    /// next letter a capital. False for every other key: arrows, Enter and Escape are the host's to
    /// route.
    bool KeyDown(const std::string& code);
    /// True for a key that `KeyDown` uses.
    static bool Types(const std::string& code);

    void ClearInput() { SetValue({}); }
    /// The prompt; an empty one reads "Search For...".
    void SetCaption(const std::string& caption);
    /// Sets the text (bytes that are no UTF-8 are taken as Windows-1252) and the shift state:
    /// a capital is next only after an empty text.
    void SetValue(const std::string& text);
    const std::string& UserText() const { return text_; } ///< UTF-8

    /// The widest `ScaleWidth` at which the whole keyboard fits a control of this size.
    static int FittingWidth(int width, int height);
    /// Lays out prompt, text line and keys in a space of this size. Keys are squares of a tenth of
    /// the width or multiples of that; height that is to spare goes to the two lines.
    void UCResize(int scaleWidth, int scaleHeight);

    const KeyBox& Label1(int index) const { return keys_.at(static_cast<std::size_t>(index)); }
    const KeyBox& lblCaption() const { return captionBox_; }
    const KeyBox& Label2() const { return textBox_; } ///< of the typed text
    /// What stands on a key. That of SHIFT is the shift state: "SHIFT" while the next letter is a
    /// capital, else "Shift".
    std::string KeyCaption(int index) const;
    const std::string& Caption() const { return caption_; }
    int Mark() const { return mark_; } ///< index of the marked key
    /// The key at a point, -1 for none.
    int KeyAt(int x, int y) const;

    std::function<void(const std::string& text)> onOK; ///< raised for an empty text as well
    std::function<void()> onEscape;                    ///< the text is left
    std::function<void(int index)> onKeyShown;         ///< a key is pressed, before it acts
    std::function<void()> onChange;                    ///< something looks different now

  private:
    using Relation = bool (*)(const KeyBox& key, const KeyBox& other);
    std::vector<int> Walk(bool upward, Relation beyond, Relation opens) const;
    void MarkFirst(const std::vector<int>& candidates, Relation accepts);
    int Column() const;
    void Append(const std::string& caption);
    void DeleteLast();
    void SetText(const std::string& text, bool capital);
    void Changed() const;

    std::array<KeyBox, KeyCount> keys_;
    KeyBox captionBox_, textBox_;
    std::string text_, caption_;
    int mark_ = 0;
    int column_ = 0; ///< from which a step led to the lowest row
    bool capital_ = true;
};

} // namespace vk
