// The page on which keys are given to the actions.
#pragma once

#include "settings/keyboard_learning.h"
#include "settings/screen/learning_page.h"

namespace vk {

class settingsKeyboard : public LearningPage {
  public:
    settingsKeyboard(const LearningPage::Needs& page, KeyboardLearning::Needs needs,
                     QWidget* parent);

    /// While an action waits for its key, any key is that.
    bool Form_KeyDown(const std::string& code);
    bool DoAction(const InputCode& code);
    /// The key that armed a function may still be held.
    bool Repeats(const InputCode&) const { return false; }

    const KeyboardLearning& learning() const { return learning_; }

  protected:
    void Enter() override { learning_.Enter(); }
    void Leave() override { learning_.Leave(); }
    std::string Heading() const override;

  private:
    KeyboardLearning learning_;
};

} // namespace vk
