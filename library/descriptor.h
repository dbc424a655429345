// The descriptor of a list row: what choosing the row means.
#pragma once

#include <string>
#include <string_view>

namespace vk {

/// The kinds of rows.
enum class RowKind {
    None, ///< an inert row, and what is no descriptor
    File, ///< a media file, a playlist or a preset list by its path; the film disc in the drive
    Path, ///< a folder
    Sql,  ///< a list of the catalogue
    Edit, ///< a list to be edited by its path, "" for a new one
    Freq, ///< a radio preset by its frequency
    XM    ///< lists of satellite channels, and channels
};

/// Written `<kind>:<body>` or `<kind>:<body>|<argument>`. Only lists and channels have arguments: a
/// path may hold any character.
struct Descriptor {
    RowKind kind = RowKind::None;
    std::string body;
    std::string argument{}; ///< what follows the first "|", further ones included
    bool hasArgument = false;

    static Descriptor File(const std::string& path) { return {RowKind::File, path}; }
    static Descriptor Path(const std::string& folder) { return {RowKind::Path, folder}; }
    static Descriptor Sql(const std::string& list) { return {RowKind::Sql, list}; }
    static Descriptor Sql(const std::string& list, const std::string& condition) {
        return {RowKind::Sql, list, condition, true};
    }
    static Descriptor Edit(const std::string& list) { return {RowKind::Edit, list}; }
    static Descriptor Freq(const std::string& frequency) { return {RowKind::Freq, frequency}; }
    static Descriptor XM(const std::string& list = {}) { return {RowKind::XM, list}; }
    static Descriptor XM(const std::string& list, const std::string& which) {
        return {RowKind::XM, list, which, true};
    }
    static Descriptor Channel(int number) { return XM("Channel", std::to_string(number)); }
    /// The film disc in the drive.
    static Descriptor FilmDisc() { return File("DVDVIDEO"); }

    /// What a row's text says; a text of no known kind means nothing.
    static Descriptor Parse(const std::string& text);
    /// As rows and the history store it; "" for an inert one.
    std::string Text() const;

    bool IsChannel() const { return kind == RowKind::XM && body == "Channel"; }
    bool operator==(const Descriptor&) const = default;
};

/// True when a descriptor's text begins here.
bool BeginsDescriptor(std::string_view text);

} // namespace vk
