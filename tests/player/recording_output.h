// An output that makes no sound: it records what it was asked for.
#pragma once

#include "player/engine/output.h"

#include <string>
#include <vector>

namespace vk::test {

struct RecordingOutput : Output {
    void Play(std::uint32_t number, const std::string& path) override {
        track = number;
        played.push_back(path);
        calls.push_back("play " + path);
    }
    void Prepare(std::uint32_t number, const std::string& path) override {
        preparedTrack = number;
        prepared = path;
    }
    void SetPaused(bool paused) override { calls.push_back(paused ? "pause" : "resume"); }
    void Seek(std::int64_t ms) override { calls.push_back("seek " + std::to_string(ms)); }
    void Stop() override { calls.push_back("stop"); }
    void SetVolume(int value) override { volume = value; }
    void SetEqualiser(const Equaliser& values) override { equaliser = values; }

    std::uint32_t track = 0;
    std::uint32_t preparedTrack = 0;
    std::string prepared;
    std::vector<std::string> played, calls;
    int volume = -1;
    Equaliser equaliser;
};

} // namespace vk::test
