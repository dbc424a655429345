#include "core/reset.h"

#include "platform/files.h"

namespace vk {

namespace {

constexpr const char* GeneratedFiles[] = {"settings.ini", "kb.ini", "keys.ini", "debug.log",
                                          "tags.mdb"};
constexpr char Wish[] = "reset";

} // namespace

void DeleteGeneratedFiles(SettingsStore& settings) {
    settings.Finish();
    for (const char* name : GeneratedFiles)
        if (FileExists(settings.File(name))) DeleteFileAt(settings.File(name));
}

bool AskForReset(const SettingsStore& settings) {
    return ReplaceFile(settings.File(Wish), "");
}

// The wish goes first: one that stayed would take the new settings, too.
void ResetIfAsked(SettingsStore& settings) {
    if (FileExists(settings.File(Wish)) && DeleteFileAt(settings.File(Wish)))
        DeleteGeneratedFiles(settings);
}

} // namespace vk
