// The numbers of a video disc: notifications, domains, and what a disc may forbid (DirectShow's
// dvdevcod.h and strmif.h).
#pragma once

#include <cstdint>
#include <functional>

namespace vk {

/// Where on the disc the player is.
enum class DvdDomain {
    None = 0,
    FirstPlay = 1,
    ManagerMenu = 2,
    TitleMenu = 3,
    Title = 4,
    Stop = 5
};

/// The notifications that something is done with; they reach from 257 to 282.
enum class DvdEvent {
    DomainChange = 257, ///< parameter: the new `DvdDomain`
    TitleChange = 258,  ///< parameter: the title, from 1
    ChapterStart = 259, ///< parameter: the chapter, from 1
    AnglesAvailable = 275,
    DiscEjected = 280,
    DiscInserted = 281,
    CurrentTime = 282
};

/// Hears a notification's code and its two parameters.
using DvdNotify = std::function<void(int code, std::int64_t first, std::int64_t second)>;

/// Flags of what can be asked of a disc, which may forbid it at any moment.
namespace uop {
inline constexpr int PreviousChapter = 0x40;
inline constexpr int NextChapter = 0x80;
inline constexpr int Forwards = 0x100;
inline constexpr int Backwards = 0x200;
inline constexpr int RootMenu = 0x800;
inline constexpr int Buttons = 0x20000; ///< choosing and pressing those of a menu
inline constexpr int PauseOn = 0x80000;
inline constexpr int Angle = 0x400000; ///< changing it
} // namespace uop

} // namespace vk
