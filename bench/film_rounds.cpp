// film_rounds APPDIR FOLDER [ROUNDS]: opens, plays and closes the files and discs of a folder in
// turn, and prints what the process holds on the way: memory, threads, handles; and how long a
// disc's first picture takes.
#include "platform/dvd_player.h"
#include "tests/support/film_loop.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

std::string StatusOf(const std::string& key) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with(key))
            return line.substr(line.find_last_of(" \t", line.size() - 4) + 1);
    return "?";
}

long Handles() {
    return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
}

bool IsDisc(const fs::path& path) {
    return path.extension() == ".iso" || fs::exists(path / "VIDEO_TS");
}

std::vector<fs::path> FilmsOf(const std::string& folder) {
    std::vector<fs::path> films;
    for (const auto& entry : fs::directory_iterator(folder))
        if (entry.path().extension() != ".srt" && entry.path().filename() != "made")
            films.push_back(entry.path());
    std::ranges::sort(films);
    return films;
}

/// Milliseconds to the first picture; -1 when there is none.
long Round(vk::test::FilmLoop& loop, vk::MediaPlayer& player, const fs::path& film) {
    bool done = false, seen = false;
    player.onPicture = [&] { seen = player.Picture() != nullptr; };
    player.onEnded = player.onFailed = [&] { done = true; };
    const auto begun = Clock::now();
    IsDisc(film) ? player.Dvd().Directory(film) : player.FileName(film);
    player.Play();
    loop.Until([&] { return done || seen; }, 3s);
    const auto took = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begun);
    player.FileName("");
    return seen ? took.count() : -1;
}

void Print(int round) {
    std::printf("round %3d: memory %s threads %s handles %ld\n", round, StatusOf("VmRSS").c_str(),
                StatusOf("Threads").c_str(), Handles());
    std::fflush(stdout);
}

} // namespace

int main(int count, char** arguments) {
    if (count < 3) return 2;
    vk::test::FilmLoop loop;
    std::string reason;
    const auto player = vk::LoadMediaPlayer(arguments[1], loop, reason);
    if (!player) return std::puts(reason.c_str()), 1;
    const auto films = FilmsOf(arguments[2]);
    const int rounds = count > 3 ? std::atoi(arguments[3]) : 300;
    std::vector<long> discs;
    for (int round = 0; round < rounds; ++round) {
        const fs::path& film = films[static_cast<std::size_t>(round) % films.size()];
        const long took = Round(loop, *player, film);
        if (IsDisc(film)) discs.push_back(took);
        if (static_cast<std::size_t>(round) < films.size())
            std::printf("%-16s first picture %ld ms\n", film.filename().c_str(), took);
        if ((round + 1) % 30 == 0) Print(round + 1);
    }
    std::this_thread::sleep_for(4s); // the library goes when nothing has been asked for a while
    Print(rounds);
    std::ranges::sort(discs);
    if (!discs.empty())
        std::printf("discs: median %ld ms, longest %ld ms\n", discs[discs.size() / 2],
                    discs.back());
}
