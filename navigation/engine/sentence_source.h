// The one place through which a receiver's sentences come.
#pragma once

#include "navigation/engine/sentence_feed.h"
#include "platform/clock.h"

#include <memory>
#include <string>
#include <string_view>

namespace vk {

/// Keeps a feed open: one that is missing or goes is tried again in growing pauses.
class SentenceSource {
  public:
    static constexpr int SilenceMs = 3000;

    SentenceSource(Clock& clock, MakeSentenceFeed make);

    /// `source` and `serialSettings` are those of `EngineSetup`. Opens anew when it is open.
    void Open(const std::string& source, const std::string& serialSettings);
    void Close();

    std::function<void(std::string_view bytes)> onBytes;
    /// Nothing has come for three seconds; told once, and again after bytes have come.
    std::function<void()> onSilent;
    /// A line for the log: why there is nothing to hear; once until it has been heard again.
    std::function<void(const std::string&)> onLog;

  private:
    void Try();
    void Heard(std::string_view bytes);
    void Gone();
    void FallSilent();

    MakeSentenceFeed make_;
    std::string source_, serialSettings_;
    std::unique_ptr<SentenceFeed> feed_;
    std::unique_ptr<Timer> retry_, silence_;
    int pauseMs_ = 0;
    bool complained_ = false;
};

} // namespace vk
