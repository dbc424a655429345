// Drives: what the machine has, what is in them. A drive is named by its root: "D:" on Windows, a
// mount point ("/media/stick") elsewhere.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vk {

/// The kinds that the drive-type call of the platform tells apart, under its numbers.
enum class DriveType { Unknown = 0, NoRoot = 1, Removable = 2, Fixed = 3, Remote = 4, CdRom = 5 };

struct Drive {
    std::string root; ///< as it is shown and stored, without a trailing separator unless it is "/"
    DriveType type = DriveType::Unknown;
};

class Volumes {
  public:
    virtual ~Volumes() = default;
    /// Every drive present now. Optical drives are listed even when they are empty.
    virtual std::vector<Drive> Drives() const = 0;
    /// True when the drive exists and holds a readable medium; never waits for a spin-up longer
    /// than the operating system's own test.
    virtual bool IsReady(const std::string& root) const = 0;
    /// The volume label; "" when there is none or no medium.
    virtual std::string Label(const std::string& root) const = 0;
    /// The serial number of the volume that holds `path`; 0 when it cannot be told.
    virtual std::int32_t Serial(const std::string& path) const = 0;
    /// The root of the drive that holds `path` (which need not exist any more).
    virtual std::string DriveOf(const std::string& path) const = 0;
    /// The tracks of an audio disc in an optical drive, as the player takes them: paths below the
    /// drive that name no file ("/dev/sr0/Track01.CDA"). Empty for any other disc, and without one.
    virtual std::vector<std::string> AudioTracks(const std::string& root) const = 0;
    /// Opens the tray of an optical drive; false when there is none or it is locked.
    virtual bool Eject(const std::string& root) = 0;
};

} // namespace vk
