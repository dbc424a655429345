// The end of a text file that grows, to be read a few lines at a time.
#pragma once

#include "platform/file_state.h"

#include <cstddef>
#include <string>
#include <vector>

namespace vk {

/// Follows the file's end until it is moved back from there. What lies further back than some
/// thousand lines is not shown.
class LogView {
  public:
    static constexpr int Step = 4; ///< lines that a press of a button moves by

    explicit LogView(std::string file) : file_(std::move(file)) {}

    /// The lines up to where the view stands, more of them than any panel shows. They may be broken
    /// everywhere, also where a word or a path does not end. Asked with each drawing: the file is
    /// read again when it has changed.
    const std::string& Text();
    /// So many lines back, or (negative) towards the end.
    void Move(int lines);

  private:
    void Follow();
    void ReadEnd();
    void Take();

    std::string file_, text_;
    FileStamp read_;                 ///< of the file when it was read
    std::vector<std::string> lines_; ///< long ones in several
    std::size_t back_ = 0;           ///< lines that are passed over at the end
    bool known_ = false;
};

} // namespace vk
