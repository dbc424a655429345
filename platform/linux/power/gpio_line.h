// An input of the board's own, by the kernel's GPIO character devices.
#pragma once

#include "platform/input_line.h"

#include <QSocketNotifier>

#include <gpiod.h>

#include <memory>
#include <string>

struct gpiod_line;

namespace vk {

class GpioLine : public InputLine {
  public:
    ~GpioLine() override { GpioLine::Close(); }
    /// "gpiochip0:17", or the name that the board's description gives a line.
    bool Open(const std::string& name) override;
    std::string Failure() const override { return failure_; }
    void Close() override;
    bool IsOpen() const override { return line_; }
    bool High() const override;

  private:
    bool Find(const std::string& name);
    bool Fail(const std::string& what);
    void Changed();

    gpiod_line* line_ = nullptr; ///< holds its chip
    std::unique_ptr<QSocketNotifier> events_;
    std::string failure_;
};

} // namespace vk
