#include "navigation/navit/tied_child.h"

#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>

namespace vk {

namespace {

constexpr int GraceMs = 300;

} // namespace

TiedChild::TiedChild() : process_(new QProcess) {
    process_->setStandardErrorFile(QProcess::nullDevice());
    process_->setStandardInputFile(QProcess::nullDevice());
    const pid_t parent = ::getpid();
    process_->setChildProcessModifier([parent] {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (::getppid() != parent) ::_exit(1); // it went before that was said
    });
    QObject::connect(process_, &QProcess::readyReadStandardOutput, process_, [this] {
        const QByteArray bytes = process_->readAllStandardOutput();
        if (onOutput) onOutput({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    });
    QObject::connect(process_, &QProcess::finished, process_, [this] {
        if (onEnded) onEnded();
    });
    QObject::connect(process_, &QProcess::errorOccurred, process_,
                     [this](QProcess::ProcessError error) {
                         if (error == QProcess::FailedToStart && onEnded) onEnded();
                     });
}

TiedChild::~TiedChild() {
    process_->disconnect();
    if (Running()) {
        process_->terminate();
        if (!process_->waitForFinished(GraceMs)) process_->kill();
        // It may hang in the kernel: its destructor would wait for it.
        process_->waitForFinished(GraceMs);
        if (Running()) return;
    }
    delete process_;
}

void TiedChild::Start(const std::string& program, const std::vector<std::string>& arguments,
                      const std::vector<std::pair<std::string, std::string>>& environment) {
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    for (const auto& [name, value] : environment)
        variables.insert(QString::fromStdString(name), QString::fromStdString(value));
    process_->setProcessEnvironment(variables);
    QStringList words;
    for (const std::string& argument : arguments)
        words << QString::fromStdString(argument);
    process_->start(QString::fromStdString(program), words);
}

} // namespace vk
