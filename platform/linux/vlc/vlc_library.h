// libVLC as films use it.
#pragma once

#include <vlc/vlc.h>

#include <memory>
#include <mutex>

namespace vk {

/// Its decoders take memory for as long as there is an instance. Any thread may use it.
class VlcLibrary {
  public:
    /// The instance, made when there is none; null where libVLC refuses.
    std::shared_ptr<libvlc_instance_t> Get();
    /// Ends it, and gives what it took back to the system; not while a film uses it.
    void Release();

  private:
    std::mutex mutex_;
    std::shared_ptr<libvlc_instance_t> instance_;
};

} // namespace vk
