// xm_receiver LINK: a simulated satellite receiver for the workbench, on a pseudo-terminal that the
// symbolic link LINK names. It has 200 channels whose songs change. Commands on its standard input,
// one a line, make it worse; "help" lists them.
#include "platform/qt/qt_clock.h"
#include "tests/sim/pty_receiver.h"
#include "tests/sim/xm/sim_receiver.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <iostream>
#include <map>
#include <sstream>
#include <string>

namespace vk::test {
namespace {

constexpr int HearMs = 5, SongMs = 20000;
constexpr int PieceMs = 8; // a byte a millisecond, as at 9600 baud

class Workbench {
  public:
    explicit Workbench(const std::string& link) : device_(link) {
        receiver_.AddChannels(199);
        receiver_.script.delayMs = 10;
        ears_->Start(HearMs);
        songs_->Start(SongMs);
        line_->Start(PieceMs);
    }
    void Command(const std::string& line) {
        std::istringstream words(line);
        std::string name;
        int value = 1;
        words >> name >> value;
        const auto command = commands_.find(name);
        if (command != commands_.end()) return command->second(value);
        for (const auto& [known, unused] : commands_)
            std::cout << known << '\n';
        std::cout.flush();
    }

  private:
    // A song a channel: its number goes up with each change.
    void NextSong() {
        ++song_;
        for (auto& [number, channel] : receiver_.channels)
            channel.title = "Song " + std::to_string(number) + "/" + std::to_string(song_);
        if (receiver_.on) receiver_.Notify();
    }
    void SendPiece() {
        const std::string piece = waiting_.substr(0, PieceMs);
        if (device_.Send(piece)) waiting_.erase(0, piece.size());
    }
    void Hear() {
        const std::string& all = device_.Heard();
        if (all.size() < heard_) heard_ = 0;
        receiver_.Hear(std::string_view(all).substr(heard_));
        heard_ = all.size();
    }

    QtClock clock_;
    PtyReceiver device_;
    std::string waiting_; ///< to be sent
    SimReceiver receiver_{clock_, [this](std::string_view bytes) { waiting_ += bytes; }};
    std::unique_ptr<Timer> line_ = clock_.MakeTimer([this] { SendPiece(); });
    std::unique_ptr<Timer> ears_ = clock_.MakeTimer([this] { Hear(); });
    std::unique_ptr<Timer> songs_ = clock_.MakeTimer([this] { NextSong(); });
    std::size_t heard_ = 0;
    int song_ = 0;
    std::map<std::string, std::function<void(int)>> commands_ = {
        {"silent", [this](int on) { receiver_.script.silent = on != 0; }},
        {"delay", [this](int ms) { receiver_.script.delayMs = ms; }},
        {"noise", [this](int bytes) { receiver_.script.noise.assign(std::size_t(bytes), '\x55'); }},
        {"split", [this](int bytes) { receiver_.script.pieceSize = std::size_t(bytes); }},
        {"merge", [this](int on) { receiver_.script.merge = on != 0; }},
        {"tells39", [this](int on) { receiver_.script.tells39 = on != 0; }},
        {"refuse", [this](int channel) { receiver_.script.refused.insert(channel); }},
        {"remove", [this](int channel) { receiver_.script.gone.insert(channel); }},
        {"die", [this](int bytes) { receiver_.script.bytesToLive = bytes; }},
        {"signal", [this](int status) { receiver_.script.signal = status; }},
        {"antenna", [this](int status) { receiver_.script.antenna = status; }},
        {"unplug", [this](int) { device_.Unplug(); }},
        {"plug", [this](int) { device_.Plug(); }},
        {"quit", [](int) { QCoreApplication::quit(); }}};
};

} // namespace
} // namespace vk::test

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false); // so that what waits is known
    const QCoreApplication application(argc, argv);
    if (argc != 2) {
        std::cerr << "usage: xm_receiver LINK\n";
        return 2;
    }
    vk::test::Workbench bench(argv[1]);
    QSocketNotifier input(0, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &input, [&] {
        std::string line;
        do { // several may have come at once
            if (!std::getline(std::cin, line)) return input.setEnabled(false);
            bench.Command(line);
        } while (std::cin.rdbuf()->in_avail() > 0);
    });
    return QCoreApplication::exec();
}
