// Keys, codes, touches, ticks, dialogs and screens in any order on the real wiring.
#include "tests/app/wired_system.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <typeinfo>
#include <vector>

namespace vk::test {
namespace {

constexpr int Steps = 1500;
constexpr int LongestStepMs =
    30'000; ///< a list that does not start, a mute, and what comes of them

/// What went wrong, and what the screens were asked.
struct Record {
    std::map<std::string, int> quits; ///< carried out, by screen
    std::map<std::string, const class Spy*> front;
    int within = 0;  ///< commands under way that were asked for by the same event
    int running = 0; ///< and by any
};

/// Stands before a screen of the real system and writes down what is asked of it.
class Spy {
  public:
    Spy(Record& record, Screens& screens, std::string name)
        : record_(record), screens_(screens), name_(std::move(name)), real_(*screens.Find(name_)) {
        auto& seen = const_cast<ScreenOperations&>(*screens.Find(name_));
        for (auto* operation :
             {&seen.VolUp, &seen.VolDown, &seen.doquit, &seen.ReShow, &seen.ReDisplay,
              &seen.DoPause, &seen.DoLayout, &seen.switchingform, &seen.Hide})
            if (*operation) *operation = [this, run = *operation] { Forward(run); };
        seen.Form_KeyDown = [this](const std::string& code) {
            return Command(code == "27", [&] { return real_.Form_KeyDown(code); });
        };
        seen.DoAction = [this](const InputCode& code) {
            return Command(code.Mapped(Action::quit), [&] { return real_.DoAction(code); });
        };
        seen.Buttons = nullptr;
        record_.front[name_] = this;
    }

  private:
    bool Alive() const {
        const bool alive = screens_.Find(name_) && record_.front[name_] == this;
        EXPECT_TRUE(alive) << name_ << " has gone";
        return alive;
    }
    void Forward(const std::function<void()>& operation) const {
        const auto run = operation; // the screen may be made anew meanwhile
        if (Alive()) run();
    }
    // A screen may hand on to another what it was asked; nothing else comes to one behind, and
    // nothing while something runs.
    bool Command(bool quit, const std::function<bool()>& run) {
        if (record_.within == 0) {
            EXPECT_EQ(screens_.CurrentForm.Text(), name_) << "a command on a screen behind";
            EXPECT_EQ(record_.running, 0) << "a command of " << name_ << " within another";
        }
        if (quit) ++record_.quits[name_];
        ++record_.within, ++record_.running;
        const bool used = Alive() && run();
        --record_.within, --record_.running;
        return used;
    }

    Record& record_;
    Screens& screens_;
    const std::string name_;
    const ScreenOperations real_;
};

/// One run of the whole system under what a seed gives.
class RandomRun : public WiredSystem {
  public:
    explicit RandomRun(unsigned seed) : random_(seed) {
        // A player that stays silent now and then: what waits for it waits to its end.
        player.answer = [this, real = player.answer](const auto& message) {
            return silent_ ? 0 : real(message);
        };
        onEvents = [this] { WithinEvents(); };
    }

    void Work();

    int lateQuits = 0; ///< pressed while something ran

  private:
    /// Every screen that has been made since is watched from now on.
    void Watch() {
        for (const char* name : {HomeScreen, "playlists", "playmp3", "settings", "settingsKeyboard",
                                 "settingsRemote"}) {
            const ScreenOperations* screen = host().screens.Find(name);
            if (!screen || (spied_ && screen->doquit.target_type() == *spied_)) continue;
            spies_.push_back(std::make_unique<Spy>(record_, host().screens, name));
            spied_ = &host().screens.Find(name)->doquit.target_type();
        }
    }
    int Any(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }
    /// A quit that the system is free to take, or has had time to.
    void Quit(bool byRemote) {
        const std::string form = Front();
        const bool late = host().commands.RunningMs() >= Commands::InterruptMs;
        if (late && !host().dialogs.Active()) owed_[form] = record_.quits[form] + 1;
        lateQuits += late;
        byRemote ? Remote("BACK") : Key(Qt::Key_Escape);
    }
    /// Where OK would choose another media folder or remote, or end the system.
    bool OnSettings() { return Front().starts_with("settings"); }
    void Press() {
        static constexpr int Keys[] = {
            Qt::Key_Up,   Qt::Key_Down,   Qt::Key_Left,   Qt::Key_Right,  Qt::Key_Up,
            Qt::Key_Down, Qt::Key_P,      Qt::Key_L,      Qt::Key_M,      Qt::Key_U,
            Qt::Key_D,    Qt::Key_PageUp, Qt::Key_Return, Qt::Key_Return, Qt::Key_Return};
        const int key = Keys[Any(std::size(Keys))];
        if (key == Qt::Key_Return && OnSettings()) return;
        Key(key);
    }
    void Touch() {
        const QPoint at(Any(800), Any(430)); // above the menu's quit
        QWidget* target = host().window.childAt(at);
        if (target && !OnSettings()) Click(*target, target->mapFrom(&host().window, at));
    }
    void One() {
        switch (Any(10)) {
        case 0:
        case 1:
            return Quit(Any(2) == 0);
        case 2:
            return Touch();
        case 3:
            return Remote(Any(2) == 0 && !OnSettings() ? "OK" : "DOWN", Any(3));
        case 4:
            silent_ = Any(3) == 0;
            if (Any(10) == 0) player.running = false;
            return;
        default:
            return Press();
        }
    }
    /// What comes while the system lets events run.
    void WithinEvents() {
        if (!app || Any(3) != 0) return;
        if (host().dialogs.Active()) return Key(Any(3) == 0 ? Qt::Key_Return : Qt::Key_Escape);
        if (depth_ >= 3 || quiet_) return;
        ++depth_;
        Watch();
        const int within = std::exchange(record_.within, 0);
        One();
        record_.within = within;
        --depth_;
    }
    void ExpectAtRest(const std::string& when) {
        EXPECT_FALSE(host().commands.ListBusy()) << when;
        EXPECT_FALSE(host().pump.Waiting()) << when << ": " << host().pump.What();
        EXPECT_FALSE(host().dialogs.Active()) << when;
        for (const auto& [form, count] : owed_)
            EXPECT_TRUE(record_.quits[form] >= count || Front() != form)
                << when << ": a quit of " << form << " is lost";
        owed_.clear();
    }
    /// A quit pressed when nothing runs is carried out at once.
    void QuitAtRest(const std::string& when) {
        quiet_ = true;
        int changes = 0;
        do // what a dialog covered is deaf for a moment after it
            changes = host().dialogs.Changes(), Pass(1000);
        while (changes != host().dialogs.Changes());
        Watch();
        const std::string form = Front();
        const int before = record_.quits[form];
        Any(2) == 0 ? Key(Qt::Key_Escape) : Remote("BACK");
        EXPECT_EQ(record_.quits[form], before + 1) << when << " on " << form;
        quiet_ = false;
    }

    Record record_;
    std::vector<std::unique_ptr<Spy>> spies_; ///< kept: one may be on the stack as its screen goes
    const std::type_info* spied_ = nullptr;
    std::mt19937 random_;
    std::map<std::string, int> owed_; ///< quits that must have been carried out, by screen
    int depth_ = 0;
    bool silent_ = false;
    bool quiet_ = true; ///< nothing comes from outside
};

void RandomRun::Work() {
    ASSERT_TRUE(Make().Start());
    for (int step = 0; step < Steps && !testing::Test::HasFailure(); ++step) {
        const std::string when = "step " + std::to_string(step);
        const std::int64_t begun = clock.TickMs();
        quiet_ = false;
        Watch();
        if (Any(4) == 0)
            Pass(1 + Any(700));
        else
            One();
        quiet_ = true;
        ASSERT_EQ(exits, 0) << when << ": nobody asked for the end";
        EXPECT_LT(clock.TickMs() - begun, LongestStepMs) << when;
        ExpectAtRest(when);
        if (Any(20) == 0) QuitAtRest(when);
    }
    quiet_ = true;
    app->Quit(Any(2) == 0);
    Pass(10);
    EXPECT_EQ(exits, 1);
    EXPECT_EQ(host().screens.Count(), 0u);
    app.reset();
    EXPECT_EQ(clock.Timers(), 0);
}

TEST(Random, NothingIsLostAndNothingIsLeft) {
    int lateQuits = 0;
    for (const unsigned seed : {1u, 2u, 3u, 4u, 5u}) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        RandomRun run(seed);
        run.Work();
        lateQuits += run.lateQuits;
    }
    EXPECT_GT(lateQuits, 5) << "else nothing was tried";
}

} // namespace
} // namespace vk::test
