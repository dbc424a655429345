// An application directory of the real programs with songs in it.
#pragma once

#include "core/version.h"
#include "tests/support/temp_folder.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace vk::test {

/// A minute of silence: a WAVE file of 8000 samples a second, one channel of eight bits.
inline std::string SilentWave() {
    const std::uint32_t samples = 60 * 8000;
    const auto little = [](std::uint32_t number, int bytes) {
        std::string text;
        for (int i = 0; i < bytes; ++i)
            text += static_cast<char>(number >> (8 * i));
        return text;
    };
    return "RIFF" + little(36 + samples, 4) + "WAVEfmt " + little(16, 4) + little(1, 2) +
           little(1, 2) + little(8000, 4) + little(8000, 4) + little(1, 2) + little(8, 2) + "data" +
           little(samples, 4) + std::string(samples, '\x80');
}

struct SongFolder {
    explicit SongFolder(int songs) {
        // Copies: a program finds its application directory by where it lies.
        for (const char* name : {"winamp", "DB_UPDATE"})
            std::filesystem::copy_file(std::filesystem::path(VK_APP_DIR) / name, dir.File(name));
        std::filesystem::create_directory_symlink(std::filesystem::path(VK_APP_DIR) / "skins",
                                                  dir.File("skins"));
        // The catalogue's server tells the system of itself in the user's folder.
        setenv("XDG_CONFIG_HOME", dir.MakeFolder("config").c_str(), 1);
        ready = std::system(dir.File("DB_UPDATE").c_str()) == 0;
        const std::string media = dir.MakeFolder("media");
        dir.Write("silence", SilentWave());
        for (int i = 0; i < songs; ++i)
            std::filesystem::create_hard_link(dir.File("silence"), media + "/Artist - Song " +
                                                                       std::to_string(i) + ".wav");
        dir.Write("kb.ini", "[keyboard]\nkbSWMP=80\n");
        dir.Write("settings.ini", "[main]\nVersion=" + std::string(Version) +
                                      "\nSetup=true\nmanualdb=true\nMediaDir=" + media +
                                      "\nPlaylistDir=" + dir.MakeFolder("media/lists") +
                                      "\nTime1=8:00:00 AM\nTime2=9:00:00 PM\n"
                                      "[audio_player]\nAudioExtensions=WAV\n");
    }
    TempFolder dir;
    bool ready = false; ///< the catalogue's server has registered itself
};

} // namespace vk::test
