// The rows of a drawn list, and the arithmetic that decides which of them are on show.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vk {

/// One row. Both texts are shown side by side; the descriptor is never shown.
struct ListRow {
    std::string first;
    std::string second;
    std::string descriptor;
    std::string picture;   ///< file name in the skin's folder or an absolute path, "" for none
    std::int32_t icon = 0; ///< handle of an icon, 0 for none
};

/// The list without its drawing. `changed` style notifications do not exist: whoever changes it
/// draws. Indices that name no row are harmless: they read as empty and select nothing visible.
class ListModel {
  public:
    /// Row geometry in pixels: rows of `textHeight` text, spaced by the divisor `listSpacing` (text
    /// as it stands in the settings; what is no number above 0 counts as 3), in a control `height`
    /// high. Must be called before rows are added.
    void SetGeometry(int textHeight, const std::string& listSpacing, int height);

    /// Appends one row, or nothing before the geometry is set. NUL characters are removed.
    void AddItem(const std::string& first, const std::string& second, const std::string& descriptor,
                 const std::string& picture = {}, std::int32_t icon = 0);
    void RemoveItem(int index);
    /// Empties the list; keeps `Loaded` and the selection.
    void ClearArraysXM();
    /// Empties the list; not loaded any more, selection 0.
    void ClearAllArrays();
    /// Computes the paging for the present selection; the rows can be read from then on.
    void LoadList();

    /// The descriptor of the selection, or of `index` when that is not 0 or `useIndex` is set; ""
    /// until the list is loaded.
    std::string GetSelectedFileName(int index = 0, bool useIndex = false) const;
    std::string GetSelectedItemArtist() const;
    std::string GetSelectedItemText() const { return GetSelectedItemArtist(); }
    std::string GetSelectedItemTitle() const;
    std::string GetArtistListusercontrol(int index) const { return Row(index).first; }
    std::string GetIndexFirstArray(int index) const { return Row(index).first; }
    std::string GetTitleListusercontrol(int index) const { return Row(index).second; }
    std::string GetFileNameListusercontrol(int index) const { return Row(index).descriptor; }
    std::string GetFirstArrayTxt() const { return Row(iSelected).first; }
    int GetSelectedSongNum() const { return iSelected; }
    int GetFirstItemNumber() const { return iFirstVisible; }
    int GetLastItemNumber() const { return iFirstVisible + iMaxVis; }

    /// The cursor by one, with wrap.
    void MoveUp();
    void MoveDown();
    void PageUp();
    void PageDown();
    /// True when the last page is on show.
    bool IsBottom() const;
    /// Selects a row. `jump`: the caller has found it by itself; `keep`: brought into view as if it
    /// were outside the page.
    void SelectItem(int index, bool jump = false, bool keep = false);
    /// A touched row: selected where it is drawn.
    void SelectVisible(int index);
    /// Index of the first row with that descriptor, -1 if none.
    int MatchItem(const std::string& descriptor) const;
    void RplTitleListItem(int index, const std::string& text);
    void RplartistListItem(int index, const std::string& text);
    void RplFilenameListItem(int index, const std::string& text);

    /// The row that is drawn at the top: `iFirstVisible`, moved where needed so that the page holds
    /// the cursor. Drawing and touch go by it.
    int TopRow() const;
    /// The row at `index`; an empty one where there is none.
    const ListRow& Row(int index) const;
    /// The first text as it is drawn: without the text that all rows share.
    std::string ShownFirst(int index) const;
    int ItemCount() const { return static_cast<int>(rows_.size()); }
    bool CanDraw() const { return RowHeight > 0; }
    bool Loaded() const { return loaded_; }
    /// How often the list was loaded or lost a row: at the same place is another row since.
    int Changes() const { return changes_; }

    int iFirstVisible = 0; ///< top row of the page
    int iMaxVis = 0;       ///< rows that fit
    int iSelected = 0;     ///< the cursor
    int iPrevSelected = 0;
    int iHighlight = -1; ///< row drawn in the highlight form, the playing track
    int RowHeight = 0;   ///< pixels
    int TextHeight = 0;
    int UsableHeight = 0; ///< control height in whole rows
    int ThirdRows = 0;
    int HalfRows = 0;
    bool HideDupes = false;    ///< apply the duplicate rule at LoadList
    bool numberedList = false; ///< first texts begin with a number and " - "
    std::string DupeText;

  private:
    bool Valid(int index) const { return index >= 0 && index < ItemCount(); }
    int FirstForSelection() const;
    void FindDuplicateText();
    std::string Compared(int index) const;
    void SlidePage(int index);
    int FirstForOutside(int index) const;
    std::string* Field(int index, std::string ListRow::*field);

    std::vector<ListRow> rows_;
    int height_ = 0;
    int changes_ = 0;
    bool loaded_ = false;
};

/// Rounds halves to the even neighbour, as all geometry here does.
int RoundEven(double value);

} // namespace vk
