// What a settings page makes of every action, seen on its picture.
#pragma once

#include "core/screens.h"
#include "tests/support/action_table.h"

#include <QImage>
#include <QWidget>

namespace vk::test {

/// As `ExpectTable` for a page with a mark that the arrows move, OK and a way back: what a key does
/// must look like the operation itself. The mark has neighbours on all sides, and what OK does
/// there is undone by `undo`. The text at the page's top does not count.
template<class Page>
void ExpectPageTable(Page& page, Screens& screens, KeyMap& keys,
                     const std::function<void()>& undo) {
    const auto look = [&page] {
        const QImage all = page.grab().toImage();
        return all.copy(0, all.height() / 5, all.width(), all.height());
    };
    struct Move {
        Action action;
        void (Page::*there)();
        void (Page::*back)();
        QImage seen = {};
    };
    Move moves[] = {{Action::up, &Page::MoveUp, &Page::MoveDown},
                    {Action::down, &Page::MoveDown, &Page::MoveUp},
                    {Action::back, &Page::MoveBack, &Page::MoveAhead},
                    {Action::forward, &Page::MoveAhead, &Page::MoveBack}};
    const std::string form = screens.CurrentForm.Text();
    const QImage before = look();
    std::map<Action, std::string> table = {{Action::ok, "used"}, {Action::quit, "left"}};
    const auto moveSeen = [&] {
        return std::ranges::find(moves, look(), [](const Move& move) { return move.seen; });
    };
    for (Move& move : moves) {
        (page.*move.there)();
        ASSERT_NE(look(), before);
        move.seen = look();
        table[move.action] = NamesOf(moveSeen()->action).key;
        (page.*move.back)();
        ASSERT_EQ(look(), before);
    }
    ExpectTable(page, keys, table, [&]() -> std::string {
        if (screens.CurrentForm != form) {
            page.ReShow();
            return "left";
        }
        const Move* move = moveSeen();
        if (move != std::end(moves)) {
            (page.*move->back)();
            return NamesOf(move->action).key;
        }
        if (look() == before) return "";
        undo();
        return look() == before ? "used" : "lost";
    });
}

} // namespace vk::test
