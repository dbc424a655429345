// The catalogue server as the main program holds it: a process of its own that reports by events.
#pragma once

#include "core/debug_log.h"
#include "library/catalogue/protocol.h"
#include "platform/child_process.h"
#include "platform/clock.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vk {

/// Starts the server for each scan and lets it go afterwards. Events arrive while the application's
/// events run; a handler may call any operation of this object.
class DB_OBJ {
  public:
    struct Events {
        std::function<void(DBStateValue)> StatusChanged;
        std::function<void(const ScanProgress&)> ShowProgress;
        /// The server's file is complete: it is to be taken in place of the old one now.
        std::function<void()> UnhookDB;
        std::function<void(const ServerError&)> DBError;
        /// The server ended in the middle of a scan, or could not be started, which has been
        /// logged. The old catalogue is as it was.
        std::function<void()> Lost;
    };
    struct Needs {
        const DebugLog& log;
        Clock& clock;
        MakeChildProcess makeProcess;
    };

    /// `program` is the server's full path. All events must be set. A server that does not come to
    /// its end within `stopMs` milliseconds of a `Stop` is killed.
    DB_OBJ(std::string program, Needs needs, Events events, int stopMs = 5000);
    /// Lets the server go; a scan that is under way comes to nothing.
    ~DB_OBJ();
    DB_OBJ(const DB_OBJ&) = delete;
    DB_OBJ& operator=(const DB_OBJ&) = delete;

    /// True from `Scan` to the scan's last event.
    bool Scanning() const { return process_ != nullptr; }
    /// Begins a scan; while one is under way nothing is done.
    void Scan(const ScanRequest& request);
    /// Asks the server to give the scan up; its last event, or its end, comes soon after.
    void Stop();

  private:
    void Send(const ServerRequest& request);
    void Read(std::string_view bytes);
    void Ended(int code);
    void Take(const ServerEvent& event);
    void StopsNot();
    void Release();

    const std::string program_;
    const Needs n_;
    const Events events_;
    const int stopMs_;
    std::unique_ptr<Timer> stopTimer_;
    std::unique_ptr<ChildProcess> process_; ///< the one that works
    /// Let go: each ends when it finds the end of its input, and is then deleted.
    std::vector<std::unique_ptr<ChildProcess>> leaving_;
    ChildProcess* stopping_ = nullptr; ///< was told to stop; one of the above
    LineSplitter lines_;
};

} // namespace vk
