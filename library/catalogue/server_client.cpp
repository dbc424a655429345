#include "library/catalogue/server_client.h"

#include <utility>

namespace vk {

namespace {

bool IsLast(const ServerEvent& event) {
    return event.kind == ServerEvent::Kind::StatusChanged &&
           (event.state == DBStateValue::OnLine || event.state == DBStateValue::Disabled);
}

} // namespace

DB_OBJ::DB_OBJ(std::string program, Needs needs, Events events, int stopMs)
    : program_(std::move(program)), n_(std::move(needs)), events_(std::move(events)),
      stopMs_(stopMs), stopTimer_(n_.clock.MakeTimer([this] { StopsNot(); })) {}

// The server works on a file of its own, so that ending it without more ado loses nothing.
DB_OBJ::~DB_OBJ() {
    Release();
}

void DB_OBJ::Scan(const ScanRequest& request) {
    if (process_) return;
    lines_ = {};
    process_ = n_.makeProcess();
    process_->onOutput = [this](std::string_view bytes) { Read(bytes); };
    process_->onEnded = [this](int code) { Ended(code); };
    ChildProcess& server = *process_;
    server.Start(program_, {"--serve"});
    Send({ServerRequest::Kind::Scan, request});
}

void DB_OBJ::Stop() {
    if (!process_) return;
    Send({ServerRequest::Kind::Stop, {}});
    stopping_ = process_.get();
    stopTimer_->Start(stopMs_);
}

// It may hang on a drive, and then even survive being killed. One that said its last word meanwhile
// is no loss.
void DB_OBJ::StopsNot() {
    stopTimer_->Stop();
    ChildProcess* const late = std::exchange(stopping_, nullptr);
    if (late) late->Kill();
    if (!late || late != process_.get()) return;
    n_.log.WriteDebugLog("DB_UPDATE does not stop");
    Release();
    events_.Lost();
}

void DB_OBJ::Send(const ServerRequest& request) {
    if (process_) process_->Write(ToLine(request) + '\n');
}

void DB_OBJ::Read(std::string_view bytes) {
    std::vector<ServerEvent> events;
    lines_.Feed(bytes, [&](std::string_view line) {
        if (auto event = ParseEvent(line))
            events.push_back(*std::move(event));
        else
            n_.log.WriteDebugLog("DB_UPDATE: not understood: " + std::string(line));
    });
    for (const ServerEvent& event : events)
        Take(event);
}

void DB_OBJ::Ended(int code) {
    const std::unique_ptr<ChildProcess> gone = std::move(process_);
    stopping_ = nullptr;
    n_.log.WriteDebugLog(code == ChildProcess::NotStarted
                             ? "Could not reference DB_UPDATE.exe"
                             : "DB_UPDATE ended during a scan, exit code " + std::to_string(code));
    events_.Lost();
}

void DB_OBJ::Take(const ServerEvent& event) {
    if (IsLast(event)) Release(); // first, as the handler may want the next scan
    switch (event.kind) {
    case ServerEvent::Kind::StatusChanged:
        return events_.StatusChanged(event.state);
    case ServerEvent::Kind::ShowProgress:
        return events_.ShowProgress(event.progress);
    case ServerEvent::Kind::UnhookDB:
        return events_.UnhookDB();
    case ServerEvent::Kind::DBError:
        return events_.DBError(event.error);
    }
}

void DB_OBJ::Release() {
    if (!process_) return;
    ChildProcess* const server = process_.get();
    leaving_.push_back(std::move(process_));
    server->onOutput = {};
    server->onEnded = [this, server](int) {
        if (stopping_ == server) stopping_ = nullptr;
        std::erase_if(leaving_, [&](const auto& child) { return child.get() == server; });
    };
    server->Write(ToLine(ServerRequest{ServerRequest::Kind::Quit, {}}) + '\n');
    server->CloseInput();
}

} // namespace vk
