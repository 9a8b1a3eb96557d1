// Preloaded into a program: counts the calls that change files, and lets one of them go wrong.
//   KV_FAULT=kill:N   ends the program in call N, as SIGKILL does; of a write only half is done
//   KV_FAULT=full:N   the disk is full from call N on
//   KV_FAULT=io:N     call N fails with EIO
//   KV_FAULT_LOG=FILE appends a line for each call: its name and what it is about
// Writes to what is no regular file (terminal, pipe) do not count.

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace {

enum class Fault { None, Kill, DiskFull, InputOutput };
enum class Needs { Nothing, Room };

// How many calls there have been; a preloaded library has no other place for it.
long callsSoFar = 0;

Fault FaultOf(std::string_view name) {
    if (name == "kill") return Fault::Kill;
    if (name == "full") return Fault::DiskFull;
    return name == "io" ? Fault::InputOutput : Fault::None;
}

void Log(const char* call, const std::string& about) {
    const char* const file = std::getenv("KV_FAULT_LOG");
    if (file == nullptr) return;
    const std::string line = std::string(call) + " " + about + "\n";
    const long log =
        ::syscall(SYS_openat, AT_FDCWD, file, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
    (void)::syscall(SYS_write, log, line.data(), line.size());
    (void)::syscall(SYS_close, log);
}

// What is to happen to this call.
Fault Count(const char* call, const std::string& about, Needs needs) {
    Log(call, about);
    ++callsSoFar;
    const char* const wanted = std::getenv("KV_FAULT");
    const char* const colon = wanted == nullptr ? nullptr : std::strchr(wanted, ':');
    if (colon == nullptr) return Fault::None;
    const Fault fault = FaultOf({wanted, static_cast<std::size_t>(colon - wanted)});
    const long place = std::strtol(colon + 1, nullptr, 10);
    const bool isDue = fault == Fault::DiskFull ? callsSoFar >= place && needs == Needs::Room
                                                : callsSoFar == place;
    return isDue ? fault : Fault::None;
}

void EndHere() {
    ::kill(::getpid(), SIGKILL);
}

bool Fails(Fault fault) {
    if (fault == Fault::Kill) EndHere();
    if (fault == Fault::None) return false;
    errno = fault == Fault::DiskFull ? ENOSPC : EIO;
    return true;
}

bool IsRegular(int descriptor) {
    struct stat status {};
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

std::string NameOf(int descriptor) {
    std::array<char, 4096> name{};
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    return ::readlink(link.c_str(), name.data(), name.size() - 1) < 0 ? "?" : name.data();
}

// The function of that name which this library hides.
template <class Function>
Function* Hidden(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

template <class Write>
ssize_t WriteWithFault(const char* call, int descriptor, std::size_t size, const Write& write) {
    if (!IsRegular(descriptor)) return write(size);
    const Fault fault = Count(call, NameOf(descriptor), Needs::Room);
    if (fault == Fault::Kill) (void)write(size / 2);
    return Fails(fault) ? -1 : write(size);
}

int OpenWithFault(const char* call, const char* path, int flags, mode_t mode) {
    const bool changes = (flags & (O_CREAT | O_TRUNC)) != 0;
    if (changes && Fails(Count("open", path, Needs::Room))) return -1;
    return Hidden<int(const char*, int, ...)>(call)(path, flags, mode);
}

mode_t ModeOf(int flags, std::va_list arguments) {
    return (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
}

}  // namespace

extern "C" {

ssize_t write(int descriptor, const void* bytes, std::size_t size) {
    const auto write = Hidden<ssize_t(int, const void*, std::size_t)>("write");
    return WriteWithFault("write", descriptor, size,
                          [&](std::size_t part) { return write(descriptor, bytes, part); });
}

ssize_t pwrite64(int descriptor, const void* bytes, std::size_t size, off64_t place) {
    const auto write = Hidden<ssize_t(int, const void*, std::size_t, off64_t)>("pwrite64");
    return WriteWithFault("write", descriptor, size,
                          [&](std::size_t part) { return write(descriptor, bytes, part, place); });
}

ssize_t pwrite(int descriptor, const void* bytes, std::size_t size, off_t place) {
    return pwrite64(descriptor, bytes, size, place);
}

ssize_t copy_file_range(int from, off64_t* fromPlace, int to, off64_t* toPlace, std::size_t size,
                        unsigned flags) {
    if (Fails(Count("copy", NameOf(to), Needs::Room))) return -1;
    return Hidden<ssize_t(int, off64_t*, int, off64_t*, std::size_t, unsigned)>("copy_file_range")(
        from, fromPlace, to, toPlace, size, flags);
}

int ftruncate64(int descriptor, off64_t size) {
    if (Fails(Count("truncate", NameOf(descriptor), Needs::Nothing))) return -1;
    return Hidden<int(int, off64_t)>("ftruncate64")(descriptor, size);
}

int ftruncate(int descriptor, off_t size) {
    return ftruncate64(descriptor, size);
}

int fdatasync(int descriptor) {
    if (Fails(Count("sync", NameOf(descriptor), Needs::Nothing))) return -1;
    return Hidden<int(int)>("fdatasync")(descriptor);
}

int fsync(int descriptor) {
    if (Fails(Count("sync", NameOf(descriptor), Needs::Nothing))) return -1;
    return Hidden<int(int)>("fsync")(descriptor);
}

int rename(const char* from, const char* to) {
    if (Fails(Count("rename", to, Needs::Nothing))) return -1;
    return Hidden<int(const char*, const char*)>("rename")(from, to);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) {
    if (Fails(Count("rename", to, Needs::Nothing))) return -1;
    return Hidden<int(int, const char*, int, const char*, unsigned)>("renameat2")(
        fromFolder, from, toFolder, to, flags);
}

int link(const char* from, const char* to) {
    if (Fails(Count("link", to, Needs::Room))) return -1;
    return Hidden<int(const char*, const char*)>("link")(from, to);
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) {
    if (Fails(Count("link", to, Needs::Room))) return -1;
    return Hidden<int(int, const char*, int, const char*, int)>("linkat")(fromFolder, from,
                                                                          toFolder, to, flags);
}

int unlink(const char* path) {
    if (Fails(Count("unlink", path, Needs::Nothing))) return -1;
    return Hidden<int(const char*)>("unlink")(path);
}

int open(const char* path, int flags, ...) {
    std::va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = ModeOf(flags, arguments);
    va_end(arguments);
    return OpenWithFault("open", path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    std::va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = ModeOf(flags, arguments);
    va_end(arguments);
    return OpenWithFault("open64", path, flags, mode);
}

}  // extern "C"
