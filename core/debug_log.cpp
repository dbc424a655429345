#include "core/debug_log.h"

#include "core/text.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <cstdio>

namespace vk {

namespace {

template<class... Args> std::string Format(const char* pattern, Args... args) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, pattern, args...);
    return buffer;
}

} // namespace

std::string GeneralDate(const DateTime& when) {
    const int hour = when.hour % 12 == 0 ? 12 : when.hour % 12;
    return Format("%d/%d/%d %d:%02d:%02d %s", when.month, when.day, when.year, hour, when.minute,
                  when.second, when.hour < 12 ? "AM" : "PM");
}

std::string DebugLog::FileName() const {
    return JoinPath(folder_, "debug.log");
}

void DebugLog::WriteDebugLog(const std::string& text) const {
    Append(FileName(), text);
}

void DebugLog::WriteSyncLog(const std::string& text) const {
    const DateTime now = clock_.Now();
    const std::string day = Format("%02d%02d%d", now.month, now.day, now.year);
    Append(JoinPath(folder_, "vk_sync_" + day + ".log"), text);
}

void DebugLog::MakeLogFile() const {
    const DateTime now = clock_.Now();
    // The version stands empty between the two blanks: nothing fills that global.
    const std::string date = Format("%d/%d/%d", now.month, now.day, now.year);
    ReplaceFile(FileName(), "Velkorandum Version  - Logfile created on " + date + "\r\n");
}

void DebugLog::Append(const std::string& file, const std::string& text) const {
    const std::string line = ReplaceAll(ReplaceAll(text, "\r", " "), "\n", " ");
    AppendToFile(file, GeneralDate(clock_.Now()) + " - " + line + "\r\n");
}

} // namespace vk
