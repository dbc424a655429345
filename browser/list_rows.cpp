#include "browser/list_rows.h"

#include "core/text.h"
#include "platform/paths.h"

#include <map>

namespace vk {

std::string FilesMissing(std::size_t count, bool edited) {
    if (count == 1)
        return edited ? "1 file is not there; it stays in the list." : "1 file is not there.";
    return std::to_string(count) + " files are not there" +
           (edited ? "; they stay in the list." : ".");
}

std::string ShownName(const std::string& name) {
    return ReplaceAll(ToUtf8(name), "_", " ");
}

std::string FilePicture(const std::string& path) {
    static const std::map<std::string, std::string> pictures = {
        {"wma", wmapic},      {"mp3", mp3pic},    {"m3u", playlistpic}, {"m3u8", playlistpic},
        {"pls", playlistpic}, {"cda", cdapic},    {"mpeg", moviepic},   {"mpg", moviepic},
        {"avi", moviepic},    {"divx", moviepic}, {"mkv", moviepic},    {"mp4", moviepic},
        {"m4v", moviepic},    {"mov", moviepic},  {"wmv", moviepic},    {"webm", moviepic},
        {"ts", moviepic},     {"vob", moviepic},  {"iso", dvdpic}};
    const auto found = pictures.find(ToLower(ExtensionOf(path)));
    return found == pictures.end() ? mp3pic : found->second;
}

void ListRows::Add(const std::string& text, const Descriptor& descriptor,
                   const std::string& picture) {
    list_.AddItem(text, "", descriptor.Text(), picture);
}

void ListRows::AddBackTo(const Descriptor& descriptor) {
    Add(BackRowText, descriptor, backpic);
}

void ListRows::AddEdit(const std::string& path) {
    Add("<Edit This List>", Descriptor::Edit(path), playlistpic);
}

void ListRows::AddNotice(const std::string& text, const std::string& picture) {
    Add(text, {}, picture);
}

void ListRows::AddFolderRow(const std::string& folder) {
    Add(ShownName(FileNameOf(folder)), Descriptor::Path(folder), folderpic);
}

void ListRows::AddFileRow(std::int32_t number, std::string artist, std::string title,
                          const std::string& path, bool absolute) {
    const bool numbered = settings_.values.numberedList && number != 0;
    const std::string prefix = numbered ? std::to_string(number) + " - " : std::string();
    if (artist.empty()) artist.swap(title);
    if (!title.empty()) artist += " - ";
    const std::string full = absolute ? path : JoinPath(settings_.values.MediaDir, path);
    list_.AddItem(prefix + artist, title, Descriptor::File(full).Text(), FilePicture(path));
}

bool ListRows::HasBack() const {
    return list_.GetIndexFirstArray(0) == BackRowText;
}

} // namespace vk
