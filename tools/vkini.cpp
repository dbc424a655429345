// Makes and edits settings files from scripts, with the system's own routines.
#include "core/ini_file.h"
#include "core/settings_files.h"
#include "core/version.h"

#include <cstdio>
#include <string>
#include <vector>

namespace {

int Usage() {
    std::fputs("usage: vkini make FILE                     a new settings.ini\n"
               "       vkini get FILE SECTION KEY\n"
               "       vkini set FILE SECTION KEY VALUE\n",
               stderr);
    return 2;
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    if (words.size() == 2 && words[0] == "make")
        return vk::MakeSettingsFile(words[1], vk::Version) ? 0 : 1;
    if (words.size() == 4 && words[0] == "get") {
        std::puts(vk::GetPrivateProfileString(words[2], words[3], "", words[1]).c_str());
        return 0;
    }
    if (words.size() == 5 && words[0] == "set")
        return vk::WritePrivateProfileString(words[2], words[3], words[4], words[1]) ? 0 : 1;
    return Usage();
}
