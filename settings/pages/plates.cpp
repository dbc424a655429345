#include "settings/pages/plates.h"

#include <cstdlib>
#include <limits>

namespace vk {

namespace {

constexpr int EndWidth = 3; // columns

int CentreOf(const Plate& plate) {
    return 2 * plate.left + plate.width;
}

/// The cell that the next row begins in.
struct Cursor {
    int sheet = 0, line = 0, column = 0;
    int pictureEnd = 0, pictureWidth = 0; ///< up to that line a picture takes the right end

    int Columns() const { return BoardColumns - (line < pictureEnd ? pictureWidth : 0); }
    void Advance(const Row& row, int lines) {
        if (column + row.width > Columns() || row.sheet) {
            if (column > 0) ++line;
            column = 0;
        }
        const bool begins = row.sheet && (sheet > 0 || line > 0);
        if (line + row.lines > lines || begins) {
            ++sheet;
            line = pictureEnd = 0;
        }
    }
    void Pass(const Row& row) {
        if (row.picture) {
            pictureEnd = line + row.lines;
            pictureWidth = row.width;
            return;
        }
        column += row.width;
        line += row.lines - 1;
    }
};

void AddRow(std::vector<Plate>& plates, const Row& row, const Cursor& at, int first) {
    const int ends = EndWidth * static_cast<int>(row.ends.size());
    const bool usable = !row.usable || row.usable();
    plates.push_back({.line = first + at.line,
                      .left = (row.picture ? at.Columns() - row.width : at.column) * ColumnParts,
                      .width = (row.width - ends) * ColumnParts,
                      .lines = row.lines,
                      .sheet = at.sheet,
                      .text = row.text,
                      .use = row.use,
                      .usable = usable && row.use,
                      .lit = row.lit && row.lit(),
                      .percent = row.percent ? row.percent() : -1,
                      .name = row.name,
                      .picture = row.picture,
                      .pictureFile = row.pictureFile});
    int left = at.column + row.width - ends;
    for (const Row::End& end : row.ends) {
        plates.push_back({.line = first + at.line,
                          .left = left * ColumnParts,
                          .width = EndWidth * ColumnParts,
                          .sheet = at.sheet,
                          .text = [text = end.text] { return text; },
                          .use = end.use,
                          .usable = usable});
        left += EndWidth;
    }
}

// How far a plate lies in a direction; 0 for one that lies elsewhere.
int Distance(const Plate& from, const Plate& to, int dx, int dy) {
    if (dx != 0) return to.line == from.line ? (to.left - from.left) * dx : 0;
    const int lines = (to.line - from.line) * dy;
    return lines < 0 ? lines + BoardLines : lines;
}

} // namespace

std::vector<Plate> LayOut(const std::vector<Row>& rows, int first, int lines) {
    std::vector<Plate> plates;
    Cursor cursor;
    for (const Row& row : rows) {
        cursor.Advance(row, lines);
        AddRow(plates, row, cursor, first);
        cursor.Pass(row);
    }
    return plates;
}

int NextPlate(const std::vector<Plate>& plates, int from, int dx, int dy, int centre) {
    int best = from;
    std::pair nearest(std::numeric_limits<int>::max(), 0);
    for (std::size_t i = 0; i < plates.size(); ++i) {
        const int distance = Distance(plates[static_cast<std::size_t>(from)], plates[i], dx, dy);
        if (!plates[i].usable || distance <= 0) continue;
        const std::pair measure(distance, std::abs(CentreOf(plates[i]) - centre));
        if (measure >= nearest) continue;
        nearest = measure;
        best = static_cast<int>(i);
    }
    return best;
}

} // namespace vk
