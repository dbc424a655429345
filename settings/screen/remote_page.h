// The page on which the receiver is set and the remote's codes are learnt.
#pragma once

#include "settings/remote_learning.h"
#include "settings/screen/learning_page.h"

namespace vk {

/// The actions on one page of its board, the receiver on the other. The list of codes, its last row
/// marked, is the text above.
class settingsRemote : public LearningPage {
  public:
    settingsRemote(const LearningPage::Needs& page, RemoteLearning::Needs needs, QWidget* parent);

    bool Form_KeyDown(const std::string& code) { return WorkPage(InputCode(code, keys())); }
    /// Codes of the remote are collected; those that are not learnt work the page.
    bool DoAction(const InputCode& code);

    const RemoteLearning& learning() const { return learning_; }

  protected:
    void Enter() override { learning_.Enter(); }
    void Leave() override { learning_.Leave(); }
    std::string Heading() const override;

  private:
    using Step = void (RemoteLearning::*)(int);

    void AddActions();
    void AddReceiver();
    void AddStepper(int row, const char* name, const char* caption,
                    std::function<std::string()> value, Step step);
    void AddSwitch(QRect cell, const char* name, const char* caption, std::function<void()> use,
                   std::function<bool()> lit = {});

    RemoteLearning learning_;
};

} // namespace vk
