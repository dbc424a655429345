// Dialogs of programs in front of which nobody sits.
#pragma once

#include "platform/dialogs.h"

namespace vk {

/// Shows nothing, and answers as a user who cancels.
class NoDialogs : public Dialogs {
  public:
    void ShowMessage(const std::string&, const std::string&, MessageKind) override {}
    bool AskYesNo(const std::string&, const std::string&) override { return false; }
    bool AskOkCancel(const std::string&, const std::string&) override { return false; }
    std::optional<std::string> InputBox(const std::string&, const std::string&,
                                        const std::string&) override {
        return std::nullopt;
    }
    std::string ChooseFolder(const std::string&, const std::string&) override { return {}; }
};

} // namespace vk
