// The pages that learn keys and codes, as data.
#pragma once

#include "settings/keyboard_learning.h"
#include "settings/pages/page.h"
#include "settings/remote_learning.h"

namespace vk {

/// A button for each action. While one waits for its key, any key is that.
Page KeyboardPage(KeyboardLearning& learning, std::function<void()> done);
/// The buttons on its first sheets, the receiver on the last. Codes of the remote are collected;
/// those that are not learnt work the page.
Page RemotePage(SettingsStore& store, Dialogs& dialogs, RemoteLearning& learning,
                std::function<void()> done);

} // namespace vk
