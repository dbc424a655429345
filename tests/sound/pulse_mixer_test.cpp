// The mixer through a sound server of its own, with an output that nobody hears.
#include "platform/linux/sound/alsa_input.h"
#include "tests/sound/sound_fixture.h"

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace vk::test {

/// A sound server in a folder of its own, the "default" device while it lives.
class PulseServer {
  public:
    PulseServer() {
        const std::string type = ".!default { type pulse server \"unix:" + socket_ + "\" }\n";
        folder_.Write("asound.conf", "</usr/share/alsa/alsa.conf>\nctl" + type + "pcm" + type);
        ::setenv("ALSA_CONFIG_PATH", folder_.File("asound.conf").c_str(), 1);
        for (const char* home : {"HOME", "XDG_RUNTIME_DIR"})
            ::setenv(home, folder_.Path().c_str(), 1);
        Start();
    }
    ~PulseServer() {
        Kill();
        ::unsetenv("ALSA_CONFIG_PATH");
    }
    void Start() {
        const std::string protocol =
            "--load=module-native-protocol-unix auth-anonymous=1 socket=" + socket_;
        server_ = ::fork();
        if (server_ == 0) {
            ::prctl(PR_SET_PDEATHSIG, SIGKILL);
            ::execlp("pulseaudio", "pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no",
                     "--exit-idle-time=60", "--log-target=null", "--load=module-null-sink",
                     protocol.c_str(), nullptr);
            ::_exit(127);
        }
        EXPECT_TRUE(Soon([this] { return ::access(socket_.c_str(), F_OK) == 0; }));
    }
    void Kill() {
        if (server_ <= 0) return; // the destructor after a test that has ended it
        ::kill(server_, SIGKILL);
        ::waitpid(server_, nullptr, 0);
        DeleteFileAt(socket_);
        server_ = 0;
    }

  private:
    TempFolder folder_;
    const std::string socket_ = folder_.File("native");
    pid_t server_ = 0;
};

TEST(PulseMixer, DrivesTheServersOutputAndSurvivesItsEnd) {
    PulseServer server;
    Sound sound, observer;
    cVolume &v = sound.volume, &seen = observer.volume;
    EXPECT_TRUE(Soon([&] { return v.VolumeMax() == 65536 && seen.VolumeMax() == 65536; }));
    EXPECT_EQ(v.CDMax(), 0);
    v.VolumeLevel(16384), v.VolumeMute(true);
    EXPECT_TRUE(Soon([&] { return seen.VolumeLevel() == 16384 && seen.VolumeMute(); }));
    server.Kill();
    EXPECT_TRUE(Soon([&] {
        v.VolumeLevel(1); // a server's end shows at the latest when it is spoken to
        return sound.losses == 1;
    }));
    EXPECT_EQ(v.VolumeMax(), 0);
    server.Start();
    EXPECT_TRUE(Soon([&] { return sound.returns == 1 && v.VolumeMax() == 65536; }));
    v.VolumeLevel(32768);
    Sound later;
    EXPECT_TRUE(Soon([&] { return later.volume.VolumeLevel() == 32768; }));
}

TEST(PulseMixer, TheInputsMeterHearsTheServersMonitor) {
    PulseServer server;
    AlsaInput input;
    std::atomic<std::size_t> samples = 0;
    ASSERT_TRUE(Soon([&] { return input.Start([&](auto buffer) { samples += buffer.size(); }); }));
    EXPECT_TRUE(input.Running());
    EXPECT_TRUE(Soon([&] { return samples >= WaveInput::BufferSamples; }));
    input.Stop();
    EXPECT_FALSE(input.Running());
    server.Kill();
    EXPECT_FALSE(input.Start([](auto) {}));
}

} // namespace vk::test
