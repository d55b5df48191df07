#include "saves/faults.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <string>
#include <string_view>

namespace partwright::test {

namespace {

std::string watchedFolder;
std::size_t plannedCall = 0;
Fault plannedFault = Fault::None;
std::size_t calls = 0;
/// Files below the folder that are open for writing, by number.
std::array<std::string, 1024> watched;
std::string failed;

template <class Function>
Function* real(Function*, const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

void die() {
    ::kill(::getpid(), SIGKILL);
}

/// Empty for what does not count.
std::string watchedPath(int file) {
    const bool isKnown = file >= 0 && static_cast<std::size_t>(file) < watched.size();
    return isKnown ? watched[static_cast<std::size_t>(file)] : std::string();
}

std::string watchedPath(const char* path) {
    return !watchedFolder.empty() && std::string_view(path).starts_with(watchedFolder) ? path : "";
}

int errorOf(Fault fault) {
    switch (fault) {
    case Fault::Interrupted:
    case Fault::InterruptedFromNow:
        return EINTR;
    case Fault::NoSpace:
    case Fault::NoSpaceFromNow:
        return ENOSPC;
    case Fault::DeviceError:
    case Fault::DeviceErrorFromNow:
        return EIO;
    default:
        return 0;
    }
}

/// The fault for the call at hand.
Fault nextFault() {
    ++calls;
    const bool lasts = plannedFault >= Fault::NoSpaceFromNow;
    return calls == plannedCall || (lasts && calls > plannedCall) ? plannedFault : Fault::None;
}

/// A call with the fault that is ordered for it.
template <class Call>
auto faulty(const std::string& path, Call call) -> decltype(call()) {
    const Fault fault = path.empty() || plannedCall == 0 ? Fault::None : nextFault();
    if (fault == Fault::KillBefore || fault == Fault::KillInside)
        die();
    if (const int error = errorOf(fault); error != 0) {
        failed = path;
        errno = error;
        return -1;
    }
    const auto result = call();
    if (fault == Fault::KillAfter)
        die();
    return result;
}

int openFile(const char* name, const char* path, int flags, mode_t mode) {
    const bool isWriting = (flags & O_ACCMODE) != O_RDONLY;
    const std::string counted = isWriting ? watchedPath(path) : std::string();
    const int file = faulty(counted, [&] {
        return reinterpret_cast<int (*)(const char*, int, ...)>(dlsym(RTLD_NEXT, name))(path, flags,
                                                                                        mode);
    });
    if (file >= 0 && static_cast<std::size_t>(file) < watched.size())
        watched[static_cast<std::size_t>(file)] = counted;
    return file;
}

} // namespace

void planFault(const char* folder, std::size_t call, Fault fault) {
    watchedFolder = folder;
    plannedCall = call;
    plannedFault = fault;
    calls = 0;
    failed.clear();
}

std::size_t countedCalls() {
    return calls;
}

const char* failedFile() {
    return failed.c_str();
}

} // namespace partwright::test

using namespace partwright::test;

extern "C" {

int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const auto mode = static_cast<mode_t>((flags & O_CREAT) != 0 ? va_arg(rest, unsigned) : 0);
    va_end(rest);
    return openFile("open", path, flags, mode);
}

ssize_t read(int file, void* data, size_t size) {
    return faulty(watchedPath(file), [&] { return real(read, "read")(file, data, size); });
}

ssize_t write(int file, const void* data, size_t size) {
    const auto piece = [&](size_t part) { return real(write, "write")(file, data, part); };
    if (watchedPath(file).empty() || plannedCall == 0 || calls + 1 != plannedCall ||
        (plannedFault != Fault::Short && plannedFault != Fault::KillInside))
        return faulty(watchedPath(file), [&] { return piece(size); });
    ++calls;
    const ssize_t taken = piece((size + 1) / 2);
    if (plannedFault == Fault::KillInside)
        die();
    return taken;
}

int posix_fallocate(int file, off_t offset, off_t size) {
    const int result = faulty(watchedPath(file), [&] {
        errno = real(posix_fallocate, "posix_fallocate")(file, offset, size);
        return errno == 0 ? 0 : -1;
    });
    return result == 0 ? 0 : errno;
}

int ftruncate(int file, off_t size) noexcept {
    return faulty(watchedPath(file), [&] { return real(ftruncate, "ftruncate")(file, size); });
}

int fsync(int file) {
    return faulty(watchedPath(file), [&] { return real(fsync, "fsync")(file); });
}

int rename(const char* from, const char* to) noexcept {
    return faulty(watchedPath(to), [&] { return real(rename, "rename")(from, to); });
}

int mkdir(const char* path, mode_t mode) noexcept {
    return faulty(watchedPath(path), [&] { return real(mkdir, "mkdir")(path, mode); });
}

int remove(const char* path) noexcept {
    return faulty(watchedPath(path), [&] { return real(remove, "remove")(path); });
}
}
