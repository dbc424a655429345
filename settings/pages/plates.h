// Where the rows of a page lie: plates on a board of lines and columns, sheet by sheet.
#pragma once

#include "settings/pages/row.h"

#include <functional>
#include <string>
#include <vector>

namespace vk {

/// What can be touched or marked, or is only a text.
struct Plate {
    int line = 0, left = 0, width = 0; ///< in lines and parts of columns of the board
    int lines = 1;
    int sheet = 0;
    std::function<std::string()> text;
    std::function<void()> use = {};
    bool usable = false, lit = false;
    int percent = -1; ///< a bar; -1: none
    const char* name = nullptr;
    std::function<const PagePicture&()> picture = {};
    std::string pictureFile = {};
    std::function<void(int lines)> scroll = {};
};

/// The board: tabs on its first line, the footer on its last.
inline constexpr int BoardLines = 6, BoardColumns = 24;
/// Plates lie on parts of a column, so that five tabs are of one width.
inline constexpr int ColumnParts = 5, BoardParts = BoardColumns * ColumnParts;

/// Lays rows out from line to line, `lines` on a sheet beginning with line `first`.
std::vector<Plate> LayOut(const std::vector<Row>& rows, int first, int lines);

/// The number of the plate that is next to `from` in a direction (-1, 0, 1 each) among those that
/// can be used. Left and right stay in the line and make its middle, doubled, the column `centre`;
/// up and down follow that as `NextInLines` tells. `from` when there is none.
int NextPlate(const std::vector<Plate>& plates, int from, int dx, int dy, int& centre);

} // namespace vk
