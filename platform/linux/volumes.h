// Drives on Linux: the mount points of real devices, and the optical drives of the machine.
#pragma once

#include "platform/linux/optical_disc.h"
#include "platform/volumes.h"

#include <chrono>
#include <memory>
#include <string>

namespace vk {

/// Reads the kernel's tables anew at each call; of optical drives see `DiscDrives`. The sources are
/// those of the running kernel; tests name their own.
class LinuxVolumes : public Volumes {
  public:
    struct Sources {
        std::string mountinfo = "/proc/self/mountinfo";
        std::string cdromInfo = "/proc/sys/dev/cdrom/info";
        std::string sysBlock = "/sys/dev/block";
        std::string byLabel = "/dev/disk/by-label"; ///< udev's links
        OpticalCalls optical = SystemOpticalCalls();
        std::chrono::milliseconds drivePatience = DrivePatience;
    };
    LinuxVolumes() : LinuxVolumes(Sources{}) {}
    explicit LinuxVolumes(const Sources& sources);

    std::vector<Drive> Drives() const override;
    bool IsReady(const std::string& root) const override;
    std::string Label(const std::string& root) const override;
    std::int32_t Serial(const std::string& path) const override;
    std::string DriveOf(const std::string& path) const override;
    std::vector<std::string> AudioTracks(const std::string& root) const override;
    bool Eject(const std::string& root) override;

  private:
    struct Mount {
        std::string device;     ///< major:minor
        std::string mountPoint; ///< unescaped
        std::string fsType;
        std::string source; ///< /dev/sdb1
    };
    std::vector<Mount> Mounts() const;
    std::vector<std::string> OpticalDevices() const;
    bool IsRemovable(const Mount& mount) const;
    bool IsPulled(const Mount& mount) const;
    std::string DeviceOf(const std::string& root) const;

    const Sources from_;
    const std::unique_ptr<DiscDrives> drives_;
};

} // namespace vk
