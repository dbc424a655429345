#include "browser/sql_rows.h"

#include "library/queries/sql_text.h"

namespace vk {

void SqlRows::SetTitle(const std::string& browsing, const std::string& building) {
    desk.SetTitle(desk.Building() ? building : browsing);
}

void SqlRows::AddMenu(const std::string& text, const Descriptor& list) {
    desk.rows.Add(text, list, searchpic);
}

void SqlRows::AddRecords(const std::string& sql, const std::string& list, const std::string& start,
                         const std::string& end) {
    for (const CatalogueRecord& record : desk.needs.library.catalogue->Records(sql)) {
        if (!desk.Pulse()) return;
        desk.rows.Add(Unescape(record.at(0)), Descriptor::Sql(list, start + record.at(0) + end));
    }
    if (desk.list.ItemCount() == 1) desk.AddEmptyNotice(NothingFound, alertPic);
}

void SqlRows::AddFiles(const std::string& sql) {
    desk.list.HideDupes = desk.needs.Options().hideDupeArtist;
    int number = 0;
    desk.needs.library.catalogue->EachFile(
        sql, [&](const CatalogueFile& file) { return desk.AddCatalogueFile(file, number); });
    if (number == 0) desk.AddEmptyNotice(NothingFound, alertPic);
}

} // namespace vk
