// What a screen makes of every action, by key and by remote.
#pragma once

#include "input/actions.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>

namespace vk::test {

/// Sends every action to a screen: by the key of a full map, by the remote's code, and by its fixed
/// key with an empty map. `effect` gives what has changed since it was asked last, in words, and
/// brings the screen back to where it was; actions that are not in `table` must change nothing.
template<class Screen>
void ExpectTable(Screen& screen, KeyMap& keys, const std::map<Action, std::string>& table,
                 const std::function<std::string()>& effect) {
    KeyMap full;
    RemoteMap remote;
    for (const ActionNames& names : Actions) {
        full[names.action] = std::string("key ") + names.key;
        remote[names.action] = std::string("code ") + names.remote;
    }
    for (const ActionNames& names : Actions) {
        const auto row = table.find(names.action);
        const std::string expected = row == table.end() ? "" : row->second;
        const auto check = [&](bool used, const char* how) {
            EXPECT_EQ(used, row != table.end()) << names.key << how;
            EXPECT_EQ(effect(), expected) << names.key << how;
        };
        keys = full;
        check(screen.Form_KeyDown(full[names.action]), " by key");
        check(screen.DoAction(InputCode(remote[names.action], remote)), " by remote");
        keys = {};
        if (*names.fixed) check(screen.Form_KeyDown(names.fixed), " with an empty map");
    }
}

} // namespace vk::test
