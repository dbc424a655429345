#include "app/application.h"
#include "app/linux/linux_ports.h"
#include "platform/paths.h"
#include "platform/user_folders.h"

#include <QApplication>
#include <QFile>
#include <QSocketNotifier>

#include <fcntl.h>
#include <malloc.h>
#include <unistd.h>

#include <csignal>

namespace {

int signalPipe[2] = {-1, -1};

// Only what may be called from a signal handler: the event loop reads the pipe.
void OnSignal(int) {
    const char byte = 1;
    [[maybe_unused]] const auto written = ::write(signalPipe[1], &byte, 1);
}

// The session's end arrives as SIGTERM, a closed terminal as SIGHUP.
void CatchSignals() {
    if (::pipe2(signalPipe, O_CLOEXEC | O_NONBLOCK) != 0) return;
    struct sigaction action {};
    action.sa_handler = OnSignal;
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        ::sigaction(number, &action, nullptr);
}

} // namespace

// Where there is no session bus Qt would have one started: a program more, and a fork among
// threads.
static void LeaveMissingBusAlone() {
    constexpr char Address[] = "DBUS_SESSION_BUS_ADDRESS";
    const QString socket = qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus");
    if (!qEnvironmentVariableIsSet(Address) && !QFile::exists(socket))
        qputenv(Address, "disabled:");
}

// Pictures are large and come and go: in mappings of their own they leave no holes in the heap.
static void KeepLargeBlocksOutOfTheHeap() {
    constexpr int Large = 256 * 1024; // bytes
    ::mallopt(M_MMAP_THRESHOLD, Large);
}

// Started as a service there is none; the libraries and the programs started from here want one.
static void NameHome() {
    if (const std::string home = vk::HomeFolder(); !home.empty())
        qputenv("HOME", QByteArray::fromStdString(home));
}

int main(int argc, char** argv) {
    NameHome();
    KeepLargeBlocksOutOfTheHeap();
    LeaveMissingBusAlone();
    QApplication qt(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Velkorandum"));
    QApplication::setQuitOnLastWindowClosed(false);
    CatchSignals();
    const std::string appDir = vk::ExecutableFolder();
    vk::LinuxPorts machine(appDir);
    // Not quit(): that would ask the window, which refuses to be closed by others.
    vk::Application application(vk::FindFolders(appDir), machine.ports(),
                                [] { QCoreApplication::exit(0); });
    QSocketNotifier wakeUp(signalPipe[0], QSocketNotifier::Read);
    QObject::connect(&wakeUp, &QSocketNotifier::activated, &qt,
                     [&application] { application.Quit(true); });
    return application.Start() ? QApplication::exec() : 0;
}
