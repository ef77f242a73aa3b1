#include "app/TerminationSignals.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace orvel {

namespace {

// A signal handler may only write to a descriptor: the event loop reads the other end.
int signalPipe[2] = {-1, -1};

void onTerminationSignal(int) {
    const char byte = 1;
    [[maybe_unused]] const auto written = ::write(signalPipe[0], &byte, 1);
}

constexpr int handledSignals[] = {SIGTERM, SIGINT, SIGHUP};

} // namespace

TerminationSignals::TerminationSignals(QObject* parent) : QObject(parent) {
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, signalPipe) != 0)
        return;
    notifier_ = new QSocketNotifier(signalPipe[1], QSocketNotifier::Read, this);
    connect(notifier_, &QSocketNotifier::activated, this, [] {
        char byte = 0;
        while (::read(signalPipe[1], &byte, 1) > 0) {
        }
        QCoreApplication::quit();
    });
    struct sigaction action {};
    action.sa_handler = onTerminationSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (const int signal : handledSignals)
        ::sigaction(signal, &action, nullptr);
}

TerminationSignals::~TerminationSignals() {
    struct sigaction action {};
    action.sa_handler = SIG_DFL;
    sigemptyset(&action.sa_mask);
    for (const int signal : handledSignals)
        ::sigaction(signal, &action, nullptr);
    delete notifier_;
    for (int& end : signalPipe) {
        if (end >= 0)
            ::close(end);
        end = -1;
    }
}

} // namespace orvel
