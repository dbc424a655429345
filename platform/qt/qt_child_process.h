// Children on QProcess.
#pragma once

#include "platform/child_process.h"

#include <QProcess>

#include <memory>

namespace vk {

class QtChildProcess : public ChildProcess {
  public:
    QtChildProcess();
    ~QtChildProcess() override;
    void Start(const std::string& program, const std::vector<std::string>& arguments) override;
    void Write(std::string_view bytes) override;
    void CloseInput() override;
    void Kill() override;

  private:
    void Read();
    void Ended(int code);

    QProcess* process_; ///< deletes itself once let go, as it may be what calls us
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true); ///< gone with this object
};

} // namespace vk
