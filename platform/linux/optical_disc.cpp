#include "platform/linux/optical_disc.h"

#include <fcntl.h>
#include <linux/cdrom.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <climits>

namespace vk {

namespace {

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

bool HoldsDisc(const OpticalCalls& calls, const std::string& device) {
    return OpenDrive(calls, device).Status() == CDS_DISC_OK;
}

bool IsEmptyDrive(const OpticalCalls& calls, const std::string& device) {
    const int status = OpenDrive(calls, device).Status();
    return status == CDS_NO_DISC || status == CDS_TRAY_OPEN;
}

AudioDisc ReadAudioDisc(const OpticalCalls& calls, const std::string& device) {
    const OpenDrive drive(calls, device);
    cdrom_tochdr header{};
    // An empty drive would be waited for.
    if (drive.Status() != CDS_DISC_OK || !drive.Contents(header)) return {};
    AudioDisc disc;
    std::uint32_t serial = 2166136261u;
    for (int track = header.cdth_trk0; track <= header.cdth_trk1; ++track) {
        cdrom_tocentry entry;
        if (!drive.Entry(track, entry)) return {};
        if (!(entry.cdte_ctrl & CDROM_DATA_TRACK)) disc.tracks.push_back(track);
        serial = (serial ^ static_cast<std::uint32_t>(entry.cdte_addr.lba)) * 16777619u;
    }
    if (!disc.tracks.empty()) disc.serial = static_cast<std::int32_t>(serial);
    return disc;
}

} // namespace vk
