// The remote of a machine that nobody has set up yet.
#pragma once

#include "core/base.h"
#include "input/remote/remote_search.h"
#include "input/remote_map.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace vk {

/// Finds a receiver while the first questions are asked, and makes its remote answer them.
class FirstReceiver {
  public:
    /// Gets each code, and whether its button is held on; true when it used it.
    using Listener = std::function<bool(const std::string& code, bool held)>;
    struct Needs {
        Base& base;
        RemoteMap& codes;           ///< the map in use
        std::function<bool()> open; ///< opens the receiver of the settings; false: none
        /// Codes go there first, all of them; to nobody when it is empty.
        std::function<void(Listener)> listen;
        RemoteSearch::Needs search;
    };
    /// So long a button is waited for, milliseconds.
    static constexpr int WaitMs = 30'000;

    explicit FirstReceiver(Needs needs);

    /// Unless a remote is enabled: takes lircd's receiver, and gives its usual names of buttons to
    /// the actions that have no code. Without lircd looks for a USB-UIRT and for a receiver on the
    /// serial ports until `End`, and has the buttons learnt of what is found; when they are not,
    /// everything stays as it was.
    void Begin();
    void End() { search_.Stop(); }

  private:
    bool TakeLirc();
    void Found(const RemoteSearch::Found& found);
    void Use(bool enabled, const std::string& type, const std::string& port);
    /// False when the user gave it up.
    bool Learn(const std::string& name);
    bool Works() const;
    bool Hear(const std::string& code, bool held);
    void Keep();

    Needs n_;
    RemoteSearch search_;
    RemoteMap learnt_;
    std::string code_;      ///< of the button that was asked for; "" until it was heard twice
    std::string candidate_; ///< heard once
};

} // namespace vk
