// Sound from a recording device to the speakers, both made of files.
#include "platform/linux/sound/alsa_route.h"
#include "tests/sound/sound_fixture.h"

#include <algorithm>

namespace vk::test {

TEST(AlsaRoute, PlaysWhatADeviceRecordsUntilItIsStopped) {
    TempFolder folder;
    const std::string heard = folder.File("heard.raw");
    const std::string radio = folder.Write("radio.raw", std::string(8 << 20, '\x11'));
    const std::string file = "type file\n slave.pcm \"null\"\n format raw\n";
    ::setenv("ALSA_CONFIG_PATH",
             folder
                 .Write("asound.conf", "pcm.null { type null }\npcm.radio {\n " + file +
                                           " file /dev/null\n infile \"" + radio +
                                           "\"\n}\npcm.speakers {\n " + file + " file \"" + heard +
                                           "\"\n}\n")
                 .c_str(),
             1);
    AlsaRoute route("speakers");
    route.Start("radio");
    EXPECT_TRUE(Soon([&] { return FileLength(heard) > 100000; }));
    route.Stop();
    EXPECT_FALSE(route.Running());
    const auto played = ReadWholeFile(heard, 10000);
    ASSERT_TRUE(played);
    EXPECT_EQ(std::ranges::count(*played, '\x11'), 10000);
    route.Start("nothing of that name");
    EXPECT_TRUE(Soon([&] { return !route.Running(); }));
    ::unsetenv("ALSA_CONFIG_PATH");
}

} // namespace vk::test
