// Radio remotes: house and command are the code.
#pragma once

#include "input/remote/remote_receiver.h"
#include "platform/x10_remote.h"

#include <functional>
#include <memory>
#include <utility>

namespace vk {

class X10Receiver : public RemoteReceiver {
  public:
    /// `create` makes the driver's object; it gives null, or is empty, where there is no driver.
    explicit X10Receiver(std::function<std::unique_ptr<X10Remote>()> create)
        : create_(std::move(create)) {}

    bool Start() override {
        CPRemote_ = create_ ? create_() : nullptr;
        if (!CPRemote_) return false;
        CPRemote_->X10Command = [this](const std::string& house, const std::string& command) {
            CPRemote_X10Command(house, command);
        };
        return true;
    }
    // The object stays until this goes: the call may come out of its own event.
    void Stop() override { stopped_ = true; }

    bool Ready() const override { return CPRemote_ != nullptr; }

  private:
    void CPRemote_X10Command(const std::string& house, const std::string& command) {
        if (onCode && !stopped_) onCode(house + command);
    }

    std::function<std::unique_ptr<X10Remote>()> create_;
    std::unique_ptr<X10Remote> CPRemote_;
    bool stopped_ = false;
};

} // namespace vk
