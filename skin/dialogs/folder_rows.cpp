#include "skin/dialogs/folder_rows.h"

#include "core/text.h"
#include "platform/files.h"
#include "platform/folder_reader.h"
#include "platform/paths.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace vk {

namespace {

constexpr const char* Offers = "offers:"; // the place of what is offered beside the files

// What leads on comes before what ends.
void Sort(std::vector<FolderRow>& rows) {
    for (FolderRow& row : rows)
        row.order = (row.ends ? "1" : "0") + ToLower(row.caption);
    std::ranges::sort(rows, {}, &FolderRow::order);
}

} // namespace

void FolderRows::Enter(const std::string& path) {
    if (files_ && path == Offers) return ListOffers();
    path_ = WithoutTrailingSeparator(path);
    if (!path_.empty() && !FolderExists(path_)) path_ = FolderExists(home_) ? home_ : "";
    List();
}

void FolderRows::List() {
    rows_.clear();
    if (path_.empty())
        ListPlaces();
    else
        ListFolder();
    for (const std::string& root : offered_)
        if (root != path_) rows_.insert(rows_.begin(), {"New: " + CaptionOf(root), root});
}

std::string FolderRows::CaptionOf(const std::string& root) const {
    const std::string label = volumes_.Label(root), shown = ToUtf8(root);
    return label.empty() ? shown : ToUtf8(label) + " (" + shown + ")";
}

bool FolderRows::LookForMedia() {
    std::vector<std::string> ready;
    for (const Drive& drive : volumes_.Drives())
        if (drive.type == DriveType::Removable && volumes_.IsReady(drive.root))
            ready.push_back(drive.root);
    const auto before = std::exchange(seen_, ready);
    if (!before || *before == ready) return false;
    for (const std::string& root : ready)
        if (std::ranges::find(*before, root) == before->end()) offered_.push_back(root);
    std::erase_if(offered_, [&](const std::string& root) {
        return std::ranges::find(ready, root) == ready.end();
    });
    Enter(path_);
    return true;
}

std::string FolderRows::Heading() const {
    if (path_.empty()) return "Where to begin:";
    return path_ == Offers ? files_->offersCaption : ToUtf8(path_);
}

void FolderRows::ListPlaces() {
    if (files_ && !files_->offers.empty()) rows_.push_back({files_->offersCaption, Offers});
    rows_.push_back({"Home (" + ToUtf8(home_) + ")", home_});
    bool rootListed = false;
    for (const Drive& drive : volumes_.Drives()) {
        if (!volumes_.IsReady(drive.root)) continue;
        rows_.push_back({CaptionOf(drive.root), drive.root});
        rootListed = rootListed || drive.root == "/";
    }
    if (!rootListed && FolderExists("/")) rows_.push_back({"/", "/"});
}

// Above a medium there is nothing that belongs to it.
std::string FolderRows::Parent() const {
    if (IsRoot(path_)) return {};
    const auto drives = volumes_.Drives();
    const bool drive =
        std::any_of(drives.begin(), drives.end(), [&](const Drive& d) { return d.root == path_; });
    return drive ? std::string() : FolderOf(path_);
}

// Of a folder of thousands no more is asked than is shown: a slow stick would hold the interface.
void FolderRows::ListFolder() {
    FolderReader reader(path_);
    const bool open = !reader.Error();
    while (const auto entry = open ? reader.Next() : std::nullopt) {
        if (entry->name.starts_with('.') || (!files_ && entry->kind == FolderReader::Kind::File))
            continue;
        const std::string name(entry->name), path = JoinPath(path_, name);
        const auto folder = reader.IsFolder(*entry);
        if (!folder || (!*folder && !Accepts(path))) continue;
        rows_.push_back({ToUtf8(name), path, !*folder});
    }
    Sort(rows_);
    rows_.insert(rows_.begin(), {"<...>", Parent()});
}

bool FolderRows::Accepts(const std::string& file) const {
    return files_ && (!files_->accepts || files_->accepts(file));
}

void FolderRows::ListOffers() {
    path_ = Offers;
    rows_.clear();
    for (const FileChoice::Offer& offer : files_->offers)
        rows_.push_back({offer.caption, offer.value, true});
    Sort(rows_);
    rows_.insert(rows_.begin(), {"<...>", ""});
}

bool FolderRows::Make(const std::string& name) {
    const std::string trimmed = Trim(name);
    const bool plain = !trimmed.empty() && trimmed != "." && trimmed != ".." &&
                       trimmed.find_first_of("/\\") == std::string::npos;
    if (!plain || path_.empty()) return false;
    const std::string made = JoinPath(path_, trimmed);
    std::error_code failed;
    std::filesystem::create_directory(made, failed);
    if (failed || !FolderExists(made)) return false;
    Enter(made);
    return true;
}

} // namespace vk
