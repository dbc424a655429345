#include "browser/applications.h"

#include "core/text.h"
#include "library/lists/list_file.h"
#include "platform/files.h"

namespace vk {

void PopulateApplications(ListDesk& desk) {
    desk.Start();
    desk.SetTitle("External Applications");
    const auto lines =
        ListLines(ReadWholeFile(desk.needs.base.settings.File("apps.lst")).value_or(""));
    for (const std::string& line : lines) {
        const std::vector<std::string> fields = Split(line, '|');
        const bool named = fields.size() > 1 && !fields[1].empty();
        desk.list.AddItem(ToUtf8(named ? fields[1] : fields[0]), "", line);
    }
    if (lines.empty()) desk.rows.AddNotice("You have no applications configured");
    desk.Finish();
}

} // namespace vk
