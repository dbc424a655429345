// What known navigation programs put in front of their map, and how it is dealt with.
#pragma once

#include "core/base.h"
#include "platform/foreign_windows.h"
#include "platform/programs.h"

#include <string>

namespace vk {

/// The program's file name without path and extension, in upper case.
std::string ProgramName(const std::string& path);

class ExternalHunts {
  public:
    /// A hunt for a dialog ends so long after the last thing that happened; and between the press
    /// of a button and its end passes so much; milliseconds.
    static constexpr int QuietMs = 10'000, PressMs = 100;

    /// All of it outlives this object.
    ExternalHunts(Base& base, const Programs& programs, ForeignWindows& windows)
        : base_(base), programs_(programs), windows_(windows) {}

    /// Lets events run until the program of that name has its map; false when the user, or the
    /// system's end, would not wait. Programs that are not known have it at once.
    bool Follow(const std::string& name, ProgramId program);

  private:
    struct Hunt;
    static const Hunt Hunts[];
    bool Iguidance(ProgramId program);
    bool Destinator3(ProgramId program);
    bool PressOk(WindowHandle dialog);
    WindowHandle OfClass(const std::string& windowClass) const;
    bool Wait(const std::function<bool()>& done, int milliseconds);

    Base& base_;
    const Programs& programs_;
    ForeignWindows& windows_;
};

} // namespace vk
