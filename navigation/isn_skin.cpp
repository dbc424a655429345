#include "navigation/isn_skin.h"

#include "core/text.h"

#include <tuple>
#include <utility>

namespace vk {

namespace {

constexpr int LargestNumber = 20000; // pixels; more is a mistake
constexpr int MostComplaints = 5;

using Fields = std::vector<std::string>;

/// A field of a record, trimmed; "" for one that is missing.
std::string At(const Fields& fields, std::size_t at) {
    return at < fields.size() ? Trim(fields[at]) : "";
}

bool IsTrue(const Fields& fields, std::size_t at) {
    return EqualNoCase(At(fields, at), "true");
}

/// Numbers from `from` on into each of `into`; false when one is none.
template<class... Number> bool Read(const Fields& fields, std::size_t from, Number&... into) {
    bool good = true;
    const auto read = [&](int& number) {
        const auto value = ParseInteger(At(fields, from++));
        good = good && value && *value >= -LargestNumber && *value <= LargestNumber;
        if (good) number = static_cast<int>(*value);
    };
    (read(into), ...);
    return good;
}

bool ReadBox(const Fields& fields, IsnBox& box) {
    return Read(fields, 1, box.left, box.top, box.width, box.height) && box.width > 0 &&
           box.height > 0;
}

bool ReadSize(const Fields& fields, IsnSkin& skin) {
    int width = 0, height = 0;
    if (!Read(fields, 1, width, height) || width <= 0 || height <= 0) return false;
    std::tie(skin.width, skin.height) = std::pair(width, height);
    return true;
}

bool ReadPicture(const Fields& fields, IsnSkin& skin) {
    if (At(fields, 2).empty()) return false;
    skin.pictures[ToUpper(At(fields, 1))] = At(fields, 2);
    return true;
}

bool ReadArea(const Fields& fields, IsnSkin& skin) {
    IsnBox box;
    if (!ReadBox(fields, box)) return false;
    skin.areas[ToUpper(At(fields, 5))] = box;
    return true;
}

bool ReadButton(const Fields& fields, IsnSkin& skin) {
    IsnSkin::Button button{{}, ToUpper(At(fields, 5))};
    if (!ReadBox(fields, button.place) || skin.buttons.size() >= MostIsnParts) return false;
    skin.buttons.push_back(std::move(button));
    return true;
}

bool ReadLabel(const Fields& fields, IsnSkin& skin) {
    IsnSkin::Label label;
    if (!Read(fields, 1, label.left, label.top, label.width) || !Read(fields, 5, label.font.size) ||
        label.font.size <= 0 || skin.labels.size() >= MostIsnParts)
        return false;
    label.font.name = At(fields, 4);
    label.font.bold = IsTrue(fields, 6);
    label.font.italic = IsTrue(fields, 7);
    label.name = ToUpper(At(fields, 8));
    skin.labels.push_back(std::move(label));
    return true;
}

bool ReadBar(const Fields& fields, IsnSkin& skin) {
    IsnSkin::Bar bar;
    if (!ReadBox(fields, bar.place)) return false;
    bar.font = {At(fields, 5), 0, IsTrue(fields, 6), IsTrue(fields, 7)};
    bar.colour = At(fields, 8);
    skin.bar = std::move(bar);
    return true;
}

struct Record {
    char type;
    bool (*read)(const Fields&, IsnSkin&);
};
constexpr Record Records[] = {{'N', ReadSize},   {'G', ReadPicture}, {'A', ReadArea},
                              {'B', ReadButton}, {'L', ReadLabel},   {'S', ReadBar}};

/// False for a line that is not what its record asks for.
bool ReadLine(const std::string& line, IsnSkin& skin) {
    for (const Record& record : Records)
        if (line.front() == record.type) return record.read(Split(line, ','), skin);
    return true;
}

} // namespace

IsnSkin ParseIsn(std::string_view text, const std::function<void(const std::string&)>& complain) {
    IsnSkin skin;
    int number = 0, mistakes = 0;
    for (const std::string& raw : Split(text, '\n')) {
        ++number;
        const std::string line = Trim(raw);
        if (line.empty() || line.front() == '/' || ReadLine(line, skin)) continue;
        if (++mistakes <= MostComplaints)
            complain("line " + std::to_string(number) +
                     " cannot be used: " + ToUtf8(Left(line, 80)));
    }
    if (mistakes > MostComplaints)
        complain(std::to_string(mistakes - MostComplaints) + " more lines cannot be used");
    if (skin.width == 0) complain("it has no line N with its size: nothing of it can be placed");
    return skin;
}

} // namespace vk
