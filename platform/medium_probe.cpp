#include "platform/medium_probe.h"

#include "platform/files.h"

#include <atomic>
#include <system_error>
#include <thread>

namespace vk {

namespace {

enum class Found { Unknown, There, Gone };

class ThreadProbe : public MediumProbe {
  public:
    void Ask(const std::string& path) override {
        auto found = std::make_shared<std::atomic<Found>>(Found::Unknown);
        found_ = found;
        try {
            std::thread([found, path] {
                const bool there = FileExists(path) || FolderExists(path);
                *found = there ? Found::There : Found::Gone;
            }).detach();
        } catch (const std::system_error&) {
            *found = Found::There; // no thread to be had says nothing of the medium
        }
    }
    std::optional<bool> Answer() const override {
        const Found found = found_ ? found_->load() : Found::Unknown;
        return found == Found::Unknown ? std::nullopt : std::optional(found == Found::There);
    }

  private:
    /// Shared with the thread, which may outlive this object.
    std::shared_ptr<std::atomic<Found>> found_;
};

} // namespace

std::unique_ptr<MediumProbe> MakeMediumProbe() {
    return std::make_unique<ThreadProbe>();
}

} // namespace vk
