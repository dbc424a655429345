#include "platform/windows/start_process.h"

#include "platform/windows/wide_text.h"

namespace vk {

namespace {

// As the C library's start code takes a command line apart: backslashes count only before a quote.
std::string Quoted(const std::string& argument) {
    std::string text = "\"";
    std::size_t backslashes = 0;
    for (const char letter : argument) {
        if (letter == '"') text.append(backslashes + 1, '\\');
        backslashes = letter == '\\' ? backslashes + 1 : 0;
        text += letter;
    }
    return text.append(backslashes, '\\') + '"';
}

} // namespace

bool StartProcess(const ProgramStart& what, PROCESS_INFORMATION& process) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = what.hidden || what.show != 0 ? STARTF_USESHOWWINDOW : 0;
    startup.wShowWindow = what.hidden ? SW_HIDE : static_cast<WORD>(what.show);
    std::string words = Quoted(what.program);
    for (const std::string& argument : what.arguments)
        words += " " + Quoted(argument);
    std::wstring line = ToWide(words);
    const std::wstring folder = ToWide(what.folder);
    const DWORD priority = what.background ? IDLE_PRIORITY_CLASS : NORMAL_PRIORITY_CLASS;
    return ::CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE,
                            priority | (what.ours ? CREATE_SUSPENDED : 0), nullptr,
                            folder.empty() ? nullptr : folder.c_str(), &startup, &process) != 0;
}

} // namespace vk
