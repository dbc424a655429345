#include "player/engine/hand_over.h"

#include <chrono>

namespace vk {

namespace {

constexpr int StepTimeoutMs = 5000;

bool Send(const FileDescriptor& connection, PlayerListStep step, std::string_view payload) {
    return AskPlayer(connection, {WM_COPYDATA, step, 0}, payload, StepTimeoutMs) == 1;
}

} // namespace

std::int64_t SteadyNanoseconds() {
    return std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

bool HandOver(const FileDescriptor& connection, const std::vector<std::string>& entries,
              std::int64_t startedNs) {
    const std::string_view began(reinterpret_cast<const char*>(&startedNs), sizeof startedNs);
    if (!Send(connection, ListBegin, began)) return false;
    std::string packet;
    for (const std::string& entry : entries) {
        if (entry.size() >= PlayerPayloadLimit) continue;
        if (packet.size() + entry.size() + 1 > PlayerPayloadLimit) {
            if (!Send(connection, ListPaths, packet)) return false;
            packet.clear();
        }
        packet.append(entry).push_back('\0');
    }
    return (packet.empty() || Send(connection, ListPaths, packet)) && Send(connection, ListEnd, {});
}

} // namespace vk
