#include "platform/linux/optical_disc.h"

#include <fcntl.h>
#include <linux/cdrom.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace vk {

namespace {

constexpr int LastTrack = 99;
/// Between sound and a later session of data: the end of one and the beginning of the other.
constexpr int SessionGap = 11400; // sectors; the discs' standard, 2.5 minutes and 2 seconds

/// The device, open as long as this is there.
class OpenDrive {
  public:
    OpenDrive(const OpticalCalls& calls, const std::string& device)
        : calls_(calls), handle_(calls.open(device)) {}
    ~OpenDrive() {
        if (handle_ >= 0) ::close(handle_);
    }
    OpenDrive(const OpenDrive&) = delete;
    OpenDrive& operator=(const OpenDrive&) = delete;

    int Status() const {
        const bool open = handle_ >= 0;
        return open ? calls_.control(handle_, CDROM_DRIVE_STATUS, nullptr) : CDS_NO_INFO;
    }
    bool Contents(cdrom_tochdr& header) const {
        return calls_.control(handle_, CDROMREADTOCHDR, &header) == 0;
    }
    bool Entry(int track, cdrom_tocentry& entry) const {
        entry = {};
        entry.cdte_track = static_cast<__u8>(track);
        entry.cdte_format = CDROM_LBA;
        return calls_.control(handle_, CDROMREADTOCENTRY, &entry) == 0;
    }

  private:
    const OpticalCalls& calls_;
    const int handle_;
};

} // namespace

OpticalCalls SystemOpticalCalls() {
    return {[](const std::string& device) {
                return ::open(device.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
            },
            // Of the drive's status the argument is a number: the present slot.
            [](int handle, unsigned long request, void* argument) {
                return request == CDROM_DRIVE_STATUS ? ::ioctl(handle, request, CDSL_CURRENT)
                                                     : ::ioctl(handle, request, argument);
            }};
}

int DriveStatus(const OpticalCalls& calls, const std::string& device) {
    return OpenDrive(calls, device).Status();
}

namespace {

struct Entry {
    int number, first;
    bool sound;
};

// All tracks and, as the last one, what follows them; empty when some cannot be read.
std::vector<Entry> TableOf(const OpenDrive& drive) {
    cdrom_tochdr header{};
    // An empty drive would be waited for.
    if (drive.Status() != CDS_DISC_OK || !drive.Contents(header)) return {};
    if (header.cdth_trk0 < 1 || header.cdth_trk1 > LastTrack) return {};
    std::vector<int> numbers;
    for (int track = header.cdth_trk0; track <= header.cdth_trk1; ++track)
        numbers.push_back(track);
    numbers.push_back(CDROM_LEADOUT);
    std::vector<Entry> table;
    for (const int track : numbers) {
        cdrom_tocentry entry;
        if (!drive.Entry(track, entry)) return {};
        table.push_back({track, entry.cdte_addr.lba, !(entry.cdte_ctrl & CDROM_DATA_TRACK)});
    }
    return table;
}

int EndOf(const Entry& track, const Entry& next) {
    const bool beforeData = next.number != CDROM_LEADOUT && !next.sound;
    const bool gap = beforeData && next.first - track.first > SessionGap;
    return gap ? next.first - SessionGap : next.first;
}

} // namespace

AudioDisc ReadAudioDisc(const OpticalCalls& calls, const std::string& device) {
    const std::vector<Entry> table = TableOf(OpenDrive(calls, device));
    AudioDisc disc;
    std::uint32_t serial = 2166136261u;
    for (std::size_t i = 0; i + 1 < table.size(); ++i) {
        const Entry& track = table[i];
        const int end = EndOf(track, table[i + 1]);
        if (track.sound && end > track.first)
            disc.tracks.push_back({track.number, track.first, end});
        serial = (serial ^ static_cast<std::uint32_t>(track.first)) * 16777619u;
    }
    if (!disc.tracks.empty()) disc.serial = static_cast<std::int32_t>(serial);
    return disc;
}

int DiscDrives::Status(const std::string& device) {
    const auto ask = [calls = calls_, device] { return DriveStatus(calls, device); };
    return status_[device].Ask(ask, patience_);
}

AudioDisc DiscDrives::Contents(const std::string& device) {
    const auto ask = [calls = calls_, device] { return ReadAudioDisc(calls, device); };
    return contents_[device].Ask(ask, patience_);
}

} // namespace vk
