#include "platform/qt/qt_child_process.h"

namespace vk {

namespace {

constexpr int GraceMs = 500; ///< for a child that is let go

} // namespace

QtChildProcess::QtChildProcess() : process_(new QProcess) {
    process_->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QObject::connect(process_, &QProcess::readyReadStandardOutput, process_, [this] { Read(); });
    QObject::connect(process_, &QProcess::finished, process_, [this](int code) { Ended(code); });
    QObject::connect(process_, &QProcess::errorOccurred, process_,
                     [this](QProcess::ProcessError error) {
                         if (error == QProcess::FailedToStart) Ended(NotStarted);
                     });
}

QtChildProcess::~QtChildProcess() {
    process_->disconnect();
    process_->closeWriteChannel();
    if (process_->state() != QProcess::NotRunning && !process_->waitForFinished(GraceMs)) {
        process_->kill();
        // It may hang in the kernel, on a drive: its destructor would wait for it.
        if (!process_->waitForFinished(GraceMs)) return;
    }
    process_->deleteLater();
}

void QtChildProcess::Start(const std::string& program, const std::vector<std::string>& arguments) {
    QStringList words;
    for (const std::string& argument : arguments)
        words << QString::fromStdString(argument);
    process_->start(QString::fromStdString(program), words);
}

void QtChildProcess::Write(std::string_view bytes) {
    process_->write(bytes.data(), static_cast<qint64>(bytes.size()));
}

void QtChildProcess::CloseInput() {
    process_->closeWriteChannel();
}

void QtChildProcess::Kill() {
    process_->kill();
}

// What is called may destroy this object, so that what runs is a copy.
void QtChildProcess::Read() {
    const QByteArray bytes = process_->readAllStandardOutput();
    const auto told = onOutput;
    if (told && !bytes.isEmpty()) told({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

void QtChildProcess::Ended(int code) {
    const std::weak_ptr<bool> alive = alive_;
    Read();
    if (alive.expired()) return;
    const auto told = onEnded;
    if (told) told(code);
}

} // namespace vk
