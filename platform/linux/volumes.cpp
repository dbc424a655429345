#include "platform/linux/volumes.h"

#include "platform/files.h"
#include "platform/paths.h"

#include <fcntl.h>
#include <limits.h>
#include <linux/cdrom.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <sstream>

namespace vk {

namespace {

// proc files report no length, so they are read to their end.
std::string ReadProc(const std::string& path) {
    std::string text;
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    char buffer[4096];
    for (ssize_t got; fd >= 0 && (got = ::read(fd, buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<std::size_t>(got));
    if (fd >= 0) ::close(fd);
    return text;
}

// Blanks, tabs, line ends and backslashes stand as octal in mountinfo (proc(5)).
std::string Unescaped(const std::string& text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool octal =
            text[i] == '\\' && i + 3 < text.size() && text[i + 1] >= '0' && text[i + 1] <= '3';
        result += octal ? static_cast<char>(std::strtol(text.substr(i + 1, 3).c_str(), nullptr, 8))
                        : text[i];
        if (octal) i += 3;
    }
    return result;
}

bool IsSystemFolder(const std::string& mountPoint) {
    for (const char* folder : {"/boot", "/efi", "/usr", "/var", "/tmp", "/home", "/etc", "/snap"})
        if (mountPoint == folder || mountPoint.starts_with(std::string(folder) + "/")) return true;
    return mountPoint == "/";
}

std::string ResolvedLink(const std::string& path) {
    char real[PATH_MAX];
    return ::realpath(path.c_str(), real) ? std::string(real) : path;
}

// The medium's state without waiting for it: the drive answers from its own memory.
int DriveStatus(const std::string& device) {
    const int fd = ::open(device.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) return CDS_NO_INFO;
    const int status = ::ioctl(fd, CDROM_DRIVE_STATUS, CDSL_CURRENT);
    ::close(fd);
    return status;
}

} // namespace

std::vector<LinuxVolumes::Mount> LinuxVolumes::Mounts() const {
    std::vector<Mount> mounts;
    std::istringstream lines(ReadProc(mountinfo_));
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields(line);
        std::string id, parent, root, options, word;
        Mount mount;
        fields >> id >> parent >> mount.device >> root >> mount.mountPoint >> options;
        while (fields >> word && word != "-") {
        }
        fields >> mount.fsType >> mount.source;
        if (mount.source.empty()) continue;
        mount.mountPoint = Unescaped(mount.mountPoint);
        mount.source = Unescaped(mount.source);
        mounts.push_back(std::move(mount));
    }
    return mounts;
}

std::vector<std::string> LinuxVolumes::OpticalDevices() const {
    std::vector<std::string> devices;
    std::istringstream lines(ReadProc(cdromInfo_));
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with("drive name:")) continue;
        std::istringstream names(line.substr(11));
        for (std::string name; names >> name;)
            devices.push_back("/dev/" + name);
    }
    return devices;
}

bool LinuxVolumes::IsRemovable(const Mount& mount) const {
    // A partition has no such file of its own: its disk, the folder above, has it.
    const std::string device = ResolvedLink(JoinPath(sysBlock_, mount.device));
    for (const std::string& folder : {device, FolderOf(device)}) {
        const std::string flag = ReadProc(JoinPath(folder, "removable"));
        if (!flag.empty()) return flag[0] == '1';
    }
    return false;
}

std::vector<Drive> LinuxVolumes::Drives() const {
    std::vector<Drive> drives;
    const auto optical = OpticalDevices();
    const auto mounts = Mounts();
    for (const std::string& device : optical) {
        const auto mounted = std::find_if(mounts.begin(), mounts.end(), [&](const Mount& mount) {
            return mount.source == device;
        });
        drives.push_back(
            {mounted == mounts.end() ? device : mounted->mountPoint, DriveType::CdRom});
    }
    for (const Mount& mount : mounts) {
        if (!mount.source.starts_with("/dev/") || IsSystemFolder(mount.mountPoint)) continue;
        if (std::find(optical.begin(), optical.end(), mount.source) != optical.end()) continue;
        struct stat info {};
        // A file may be a mount point, too (containers do that); it is no drive.
        if (::stat(mount.mountPoint.c_str(), &info) == 0 && !S_ISDIR(info.st_mode)) continue;
        drives.push_back(
            {mount.mountPoint, IsRemovable(mount) ? DriveType::Removable : DriveType::Fixed});
    }
    return drives;
}

bool LinuxVolumes::IsReady(const std::string& root) const {
    if (root.starts_with("/dev/")) return DriveStatus(root) == CDS_DISC_OK;
    const auto mounts = Mounts();
    return FolderExists(root) && std::any_of(mounts.begin(), mounts.end(), [&](const Mount& mount) {
               return mount.mountPoint == root;
           });
}

std::string LinuxVolumes::Label(const std::string& root) const {
    for (const Mount& mount : Mounts()) {
        if (mount.mountPoint != root && mount.source != root) continue;
        // udev keeps a link named after the label for every volume.
        for (const FolderEntry& entry : ListFolder("/dev/disk/by-label"))
            if (ResolvedLink("/dev/disk/by-label/" + entry.name) == ResolvedLink(mount.source))
                return entry.name;
        return FileNameOf(mount.mountPoint);
    }
    return {};
}

std::int32_t LinuxVolumes::Serial(const std::string& path) const {
    const std::string root = DriveOf(path);
    for (const Mount& mount : Mounts()) {
        if (mount.mountPoint != root) continue;
        for (const FolderEntry& entry : ListFolder("/dev/disk/by-uuid")) {
            if (ResolvedLink("/dev/disk/by-uuid/" + entry.name) != ResolvedLink(mount.source))
                continue;
            // Folded to the 32 bits that a volume serial has.
            std::uint32_t serial = 2166136261u;
            for (const char c : entry.name)
                serial = (serial ^ static_cast<unsigned char>(c)) * 16777619u;
            return static_cast<std::int32_t>(serial);
        }
    }
    return 0;
}

std::string LinuxVolumes::DriveOf(const std::string& path) const {
    std::string best = "/";
    for (const Mount& mount : Mounts()) {
        const std::string& root = mount.mountPoint;
        const bool inside = path == root || path.starts_with(root + "/");
        if (inside && root.size() > best.size() && mount.source.starts_with("/dev/")) best = root;
    }
    return best;
}

bool LinuxVolumes::Eject(const std::string& root) {
    std::string device = root;
    for (const Mount& mount : Mounts())
        if (mount.mountPoint == root) device = mount.source;
    const int fd = ::open(device.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) return false;
    const bool opened = ::ioctl(fd, CDROMEJECT) == 0;
    ::close(fd);
    return opened;
}

} // namespace vk
