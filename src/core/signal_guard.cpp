#include "core/signal_guard.h"

#include <csignal>
#include <iterator>

namespace partwright {

namespace {

#ifdef _WIN32
constexpr int waitingSignals[] = {SIGINT, SIGTERM};
using Disposition = void (*)(int);
#else
constexpr int waitingSignals[] = {SIGINT, SIGTERM, SIGHUP};
using Disposition = struct sigaction;
#endif
constexpr std::size_t signalCount = std::size(waitingSignals);

// A signal's handler can reach nothing but what is global.
volatile std::sig_atomic_t came[signalCount];
Disposition before[signalCount];
int guards = 0;

extern "C" void remember(int signal) {
    for (std::size_t i = 0; i < signalCount; ++i)
        if (waitingSignals[i] == signal)
            came[i] = 1;
#ifdef _WIN32
    std::signal(signal, remember); // the system forgets the handler with each signal
#endif
}

void hold(std::size_t i) {
    came[i] = 0;
#ifdef _WIN32
    before[i] = std::signal(waitingSignals[i], remember);
#else
    struct sigaction waiting {};
    waiting.sa_handler = remember;
    waiting.sa_flags = SA_RESTART;
    sigemptyset(&waiting.sa_mask);
    sigaction(waitingSignals[i], &waiting, &before[i]);
#endif
}

void release(std::size_t i) {
#ifdef _WIN32
    std::signal(waitingSignals[i], before[i]);
#else
    sigaction(waitingSignals[i], &before[i], nullptr);
#endif
}

} // namespace

SignalGuard::SignalGuard() {
    if (guards++ != 0)
        return;
    for (std::size_t i = 0; i < signalCount; ++i)
        hold(i);
}

SignalGuard::~SignalGuard() {
    if (--guards != 0)
        return;
    for (std::size_t i = 0; i < signalCount; ++i)
        release(i);
    for (std::size_t i = 0; i < signalCount; ++i)
        if (came[i] != 0)
            std::raise(waitingSignals[i]);
}

void ignoreWriteSignals() {
#ifndef _WIN32
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
#endif
}

} // namespace partwright
