#include "settings/pages/plates.h"

#include "skin/mark_lines.h"

#include <limits>

namespace vk {

namespace {

// Columns.
int WidthOf(const Row::End& end) {
    constexpr std::size_t Short = 4; // characters
    return end.text.size() > Short ? 4 : 3;
}

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
    int ends = 0;
    for (const Row::End& end : row.ends)
        ends += WidthOf(end);
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
                      .pictureFile = row.pictureFile,
                      .scroll = row.scroll});
    int left = at.column + row.width - ends;
    for (const Row::End& end : row.ends) {
        plates.push_back({.line = first + at.line,
                          .left = left * ColumnParts,
                          .width = WidthOf(end) * ColumnParts,
                          .sheet = at.sheet,
                          .text = [text = end.text] { return text; },
                          .use = end.use,
                          .usable = usable});
        left += WidthOf(end);
    }
}

// The nearest plate beside `from`; -1 for none.
int Beside(const std::vector<Plate>& plates, int from, int dx) {
    const Plate& start = plates[static_cast<std::size_t>(from)];
    int best = -1, least = std::numeric_limits<int>::max();
    for (std::size_t i = 0; i < plates.size(); ++i) {
        const int way = (plates[i].left - start.left) * dx;
        if (!plates[i].usable || plates[i].line != start.line || way <= 0 || way >= least) continue;
        least = way;
        best = static_cast<int>(i);
    }
    return best;
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

int NextPlate(const std::vector<Plate>& plates, int from, int dx, int dy, int& centre) {
    if (dx != 0) {
        const int beside = Beside(plates, from, dx);
        if (beside < 0) return from;
        centre = CentreOf(plates[static_cast<std::size_t>(beside)]);
        return beside;
    }
    std::vector<LineSpot> spots;
    spots.reserve(plates.size());
    for (const Plate& plate : plates)
        spots.push_back({plate.line, CentreOf(plate), plate.usable});
    return NextInLines(spots, from, dy, centre);
}

} // namespace vk
