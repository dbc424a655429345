#include "library/catalogue/server_client.h"

#include <QPointer>
#include <QProcess>
#include <QTimer>

#include <utility>
#include <vector>

namespace vk {

namespace {

constexpr int GraceMs = 500; ///< for a server that has been told to quit

bool IsLast(const ServerEvent& event) {
    return event.kind == ServerEvent::Kind::StatusChanged &&
           (event.state == DBStateValue::OnLine || event.state == DBStateValue::Disabled);
}

} // namespace

DB_OBJ::DB_OBJ(std::string program, const DebugLog& log, Events events, int stopMs)
    : program_(std::move(program)), log_(log), events_(std::move(events)), stopMs_(stopMs),
      processes_(std::make_unique<QObject>()) {}

// The server works on a file of its own, so that ending it without more ado loses nothing.
DB_OBJ::~DB_OBJ() {
    Release();
    for (QProcess* process : processes_->findChildren<QProcess*>()) {
        process->disconnect();
        if (process->waitForFinished(GraceMs)) continue;
        process->kill();
        // It may hang in the kernel, on a drive: its destructor would wait for it.
        if (!process->waitForFinished(GraceMs)) process->setParent(nullptr);
    }
}

void DB_OBJ::Scan(const ScanRequest& request) {
    if (process_) return;
    lines_ = {};
    process_ = new QProcess(processes_.get());
    process_->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QObject::connect(process_, &QProcess::readyReadStandardOutput, process_, [this] { Read(); });
    QObject::connect(process_, &QProcess::finished, process_, [this](int code) {
        Read();
        Lose("DB_UPDATE ended during a scan, exit code " + std::to_string(code));
    });
    QObject::connect(process_, &QProcess::errorOccurred, process_,
                     [this](QProcess::ProcessError error) {
                         if (error == QProcess::FailedToStart)
                             Lose("Could not reference DB_UPDATE.exe");
                     });
    process_->start(QString::fromStdString(program_), {QStringLiteral("--serve")});
    Send({ServerRequest::Kind::Scan, request});
}

void DB_OBJ::Stop() {
    if (!process_) return;
    Send({ServerRequest::Kind::Stop, {}});
    // It may hang on a drive, and then even survive being killed.
    const QPointer<QProcess> process = process_;
    QTimer::singleShot(stopMs_, processes_.get(), [this, process] {
        if (process) process->kill();
        if (process && process == process_) Lose("DB_UPDATE does not stop");
    });
}

void DB_OBJ::Send(const ServerRequest& request) {
    if (process_) process_->write((ToLine(request) + '\n').c_str());
}

void DB_OBJ::Read() {
    if (!process_) return;
    const QByteArray bytes = process_->readAllStandardOutput();
    std::vector<ServerEvent> events;
    lines_.Feed({bytes.constData(), static_cast<std::size_t>(bytes.size())},
                [&](std::string_view line) {
                    if (auto event = ParseEvent(line))
                        events.push_back(*std::move(event));
                    else
                        log_.WriteDebugLog("DB_UPDATE: not understood: " + std::string(line));
                });
    for (const ServerEvent& event : events)
        Take(event);
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

void DB_OBJ::Lose(const std::string& why) {
    if (!process_) return;
    log_.WriteDebugLog(why);
    Release();
    events_.Lost();
}

/// The process is let go, not waited for: it ends when its input does, and is then deleted.
void DB_OBJ::Release() {
    QProcess* process = std::exchange(process_, nullptr);
    if (!process) return;
    process->disconnect();
    if (process->state() == QProcess::NotRunning) return process->deleteLater();
    QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
    process->write((ToLine(ServerRequest{ServerRequest::Kind::Quit, {}}) + '\n').c_str());
    process->closeWriteChannel();
}

} // namespace vk
