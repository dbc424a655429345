// Tags and pictures of the forms that only TagLib knows (https://taglib.org).
#pragma once

#include "library/tags/file_form.h"
#include "library/tags/genre_table.h"
#include "library/tags/tag_record.h"

#include <string>

namespace vk {

/// Reads what TagLib finds in a file of that form into `tag`; several values of one field are
/// joined by "; ". Damage leaves fields empty.
void ReadForeignTag(MediaFile& file, FileForm form, const GenreTable& genres, TagRecord& tag);

/// The front cover, else the first picture; "" when there is none. It may throw on damage.
std::string ReadForeignPicture(MediaFile& file, FileForm form);

} // namespace vk
