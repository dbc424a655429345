#include "library/descriptor.h"

#include <algorithm>
#include <array>

namespace vk {

namespace {

struct Kind {
    RowKind kind;
    std::string_view start; ///< of the text
    bool arguments;
};

constexpr std::array<Kind, 6> Kinds = {{{RowKind::File, "FILE:", false},
                                        {RowKind::Path, "PATH:", false},
                                        {RowKind::Sql, "SQL:", true},
                                        {RowKind::Edit, "EDIT:", false},
                                        {RowKind::Freq, "FREQ:", false},
                                        {RowKind::XM, "XM:", true}}};

const Kind* KindOf(std::string_view text) {
    const auto found =
        std::ranges::find_if(Kinds, [&](const Kind& kind) { return text.starts_with(kind.start); });
    return found == Kinds.end() ? nullptr : found;
}

} // namespace

bool BeginsDescriptor(std::string_view text) {
    return KindOf(text);
}

Descriptor Descriptor::Parse(const std::string& text) {
    const Kind* kind = KindOf(text);
    if (!kind) return {};
    const std::string rest = text.substr(kind->start.size());
    const auto bar = kind->arguments ? rest.find('|') : std::string::npos;
    if (bar == std::string::npos) return {kind->kind, rest};
    return {kind->kind, rest.substr(0, bar), rest.substr(bar + 1), true};
}

std::string Descriptor::Text() const {
    const auto found = std::ranges::find(Kinds, kind, &Kind::kind);
    if (found == Kinds.end()) return {};
    return std::string(found->start) + body + (hasArgument ? "|" + argument : "");
}

} // namespace vk
