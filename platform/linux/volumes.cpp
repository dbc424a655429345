#include "platform/linux/volumes.h"

#include "platform/files.h"
#include "platform/paths.h"

#include <fcntl.h>
#include <linux/cdrom.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <sstream>

namespace vk {

namespace {

// proc files report no length, so they are read to their end.
std::string ReadProc(const std::string& path) {
    std::string text;
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    char buffer[4096];
    for (ssize_t got = 0; fd >= 0 && (got = ::read(fd, buffer, sizeof buffer)) > 0;)
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

// udev writes blanks and what else is no plain sign in a label as "\x20".
std::string LabelOf(const std::string& link) {
    std::string label;
    for (std::size_t i = 0; i < link.size(); ++i) {
        const bool escaped = link.compare(i, 2, "\\x") == 0 && i + 3 < link.size();
        label += escaped
                     ? static_cast<char>(std::strtol(link.substr(i + 2, 2).c_str(), nullptr, 16))
                     : link[i];
        if (escaped) i += 3;
    }
    return label;
}

// Not one that says nothing.
bool IsEmpty(int status) {
    return status == CDS_NO_DISC || status == CDS_TRAY_OPEN;
}

} // namespace

LinuxVolumes::LinuxVolumes(const Sources& sources)
    : from_(sources),
      drives_(std::make_unique<DiscDrives>(sources.optical, sources.drivePatience)) {}

std::vector<LinuxVolumes::Mount> LinuxVolumes::Mounts() const {
    std::vector<Mount> mounts;
    std::istringstream lines(ReadProc(from_.mountinfo));
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
    std::istringstream lines(ReadProc(from_.cdromInfo));
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
    const std::string device = ResolvedLink(JoinPath(from_.sysBlock, mount.device));
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
    if (root.starts_with("/dev/")) return drives_->Status(root) == CDS_DISC_OK;
    const auto mounts = Mounts();
    return FolderExists(root) && std::any_of(mounts.begin(), mounts.end(), [&](const Mount& mount) {
               return mount.mountPoint == root && !IsPulled(mount);
           });
}

// Until somebody unmounts it, a mount outlives its medium, and its folders are still in memory.
bool LinuxVolumes::IsPulled(const Mount& mount) const {
    if (!mount.source.starts_with("/dev/") || !FolderExists(from_.sysBlock)) return false;
    const auto optical = OpticalDevices();
    if (std::find(optical.begin(), optical.end(), mount.source) != optical.end())
        return IsEmpty(drives_->Status(mount.source));
    return !mount.device.starts_with("0:") && !FolderExists(JoinPath(from_.sysBlock, mount.device));
}

std::string LinuxVolumes::Label(const std::string& root) const {
    for (const Mount& mount : Mounts()) {
        if (mount.mountPoint != root && mount.source != root) continue;
        // udev keeps a link named after the label for every volume.
        for (const FolderEntry& entry : ListFolder(from_.byLabel))
            if (ResolvedLink(JoinPath(from_.byLabel, entry.name)) == ResolvedLink(mount.source))
                return LabelOf(entry.name);
        return FileNameOf(mount.mountPoint);
    }
    return AudioTracks(root).empty() ? "" : "Audio CD";
}

std::string LinuxVolumes::DeviceOf(const std::string& root) const {
    for (const Mount& mount : Mounts())
        if (mount.mountPoint == root) return mount.source;
    return root;
}

std::vector<std::string> LinuxVolumes::AudioTracks(const std::string& root) const {
    const std::string device = DeviceOf(root);
    const auto optical = OpticalDevices();
    std::vector<std::string> tracks;
    if (std::find(optical.begin(), optical.end(), device) == optical.end()) return tracks;
    for (const AudioTrack& track : drives_->Contents(device).tracks) {
        const std::string number = std::to_string(track.number);
        tracks.push_back(device + "/Track" + (number.size() < 2 ? "0" : "") + number + ".CDA");
    }
    return tracks;
}

std::int32_t LinuxVolumes::Serial(const std::string& path) const {
    // A drive that is not mounted lies in no file system but that of devices.
    const auto optical = OpticalDevices();
    if (std::find(optical.begin(), optical.end(), path) != optical.end())
        return drives_->Contents(path).serial;
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
    const std::string device = DeviceOf(root);
    const int fd = ::open(device.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) return false;
    const bool opened = ::ioctl(fd, CDROMEJECT) == 0;
    ::close(fd);
    return opened;
}

} // namespace vk
