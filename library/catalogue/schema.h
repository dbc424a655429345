// The tables of tags.mdb.
#pragma once

#include "library/catalogue/sqlite.h"

#include <exception>
#include <string>

namespace vk {

inline constexpr char CatalogueFileName[] = "tags.mdb";
/// The template: a catalogue without files.
inline constexpr char EmptyCatalogueName[] = "tags_empty.mdb";
/// What the server writes; never read by anybody until the server says that it is complete.
inline constexpr char WorkingCatalogueName[] = "tags_work.mdb";

/// How the genre of files without one is described.
inline constexpr char EmptyGenre[] = "(Empty)";

/// Makes a catalogue without files in place of `file`, complete on the disk; throws on failure.
void MakeEmptyCatalogue(const std::string& file);

/// The tables without the indexes that only queries need: faster to fill.
void CreateTables(Database& database);
void CreateIndexes(Database& database);
/// Makes all indexes anew from their tables: what a flipped bit in one hides from queries shows
/// nowhere else.
void RebuildIndexes(Database& database);
/// Counts what the indexes hold. By it a list of artists skips from name to name, and a search by
/// genre starts from the genres.
void MeasureIndexes(Database& database);

/// What the rows were made from. Rows of another folder must not be shown or compared.
struct Origin {
    std::string folder; ///< the media folder, without a trailing separator; "" before any row
    bool extendedTags = false; ///< tags were read in the extended way
    bool operator==(const Origin&) const = default;
};
Origin OriginOf(Database& database);
void SetOrigin(Database& database, const Origin& origin);

/// Throws when the file is no catalogue, one of another layout or shorter than it says. Damage deep
/// inside shows only when that place is read.
void CheckCatalogue(Database& database);

/// True for what tells that the file itself is no good, or cannot be read from its disk: its
/// contents are to be made anew.
bool IsDamage(const std::exception& error);

/// The number of files that are catalogued.
std::int64_t CountFiles(Database& database);

} // namespace vk
