// What the two learning pages have in common: a board of plates under a text, and the way back.
#pragma once

#include "core/screens.h"
#include "input/actions.h"
#include "settings/screen/plate_board.h"
#include "skin/controls/control_context.h"

#include <QWidget>

#include <string>
#include <vector>

namespace vk {

/// A screen of its own. The arrows move over the board, OK uses a plate, Escape leads back to the
/// settings.
class LearningPage : public QWidget {
  public:
    static constexpr int Columns = 4;
    static constexpr int Rows = 7;
    /// The last row is for the page's own plates.
    static constexpr int LastRow = Rows - 1;

    struct Needs {
        const ControlContext& context;
        Screens& screens;
        const KeyMap& keys;
        const char* name; ///< of the screen
    };

    LearningPage(const Needs& needs, QWidget* parent);

    void runok() { board_.Use(); }
    void MoveUp() { board_.Move(0, -1); }
    void MoveDown() { board_.Move(0, 1); }
    void MoveBack() { board_.Move(-1, 0); }
    void MoveAhead() { board_.Move(1, 0); }
    void VolUp() {}
    void VolDown() {}
    /// Back to the settings.
    void doquit();
    void ReShow();
    void DoLayout();
    void switchingform() { Leave(); }
    void Hide() { hide(); }

  protected:
    virtual void Enter() = 0;
    virtual void Leave() = 0;
    /// The text above the board.
    virtual std::string Heading() const = 0;

    /// The same operations on every page.
    bool WorkPage(const InputCode& code);
    const KeyMap& keys() const { return keys_; }
    PlateBoard& board() { return board_; }
    /// Draws everything anew.
    void Refresh();

    void paintEvent(QPaintEvent* event) override;

  private:
    ControlContext context_;
    Screens& screens_;
    const KeyMap& keys_;
    const char* name_;
    ShadedLabel heading_;
    PlateBoard board_;
};

/// The cell of the plate of the action with this number: four in a row.
QRect ActionCell(int number);

} // namespace vk
