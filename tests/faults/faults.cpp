#include "faults/faults.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <mutex>
#include <string_view>

namespace {

struct Experiment {
    std::string Name;
    std::string Fault;
    long At = 0;     // the number of the call that fails
    long Calls = 0;  // so far
};

struct State {
    std::recursive_mutex Lock;
    std::string Under;
    std::map<std::string, Experiment> Experiments;
    std::map<int, std::string> Files;  // by their descriptors
};

State& TheState()
{
    static State* state = [] {
        auto* made = new State;  // it outlives everything that still closes files
        const char* under = std::getenv("FAULTS_UNDER");
        if (under != nullptr) made->Under = under;
        return made;
    }();
    return *state;
}

template <typename Function>
Function Real(const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

// NAME-N-FAULT; null when the path is none of ours.
Experiment* ExperimentOf(const std::string& path)
{
    State& state = TheState();
    if (state.Under.empty() || !path.starts_with(state.Under + "/")) return nullptr;
    const std::string rest = path.substr(state.Under.size() + 1);
    const std::string name = rest.substr(0, rest.find('/'));
    const std::size_t second = name.rfind('-');
    const std::size_t first = second == std::string::npos ? second : name.rfind('-', second - 1);
    if (first == std::string::npos) return nullptr;
    Experiment& experiment = state.Experiments[name];
    experiment.Name = name;
    experiment.At = std::strtol(name.c_str() + first + 1, nullptr, 10);
    experiment.Fault = name.substr(second + 1);
    return &experiment;
}

int ErrorOf(const std::string& fault)
{
    static const std::map<std::string, int> kErrors = {
        {"EIO", EIO},       {"ENOSPC", ENOSPC}, {"EACCES", EACCES}, {"EINTR", EINTR},    {"EDQUOT", EDQUOT},
        {"EMFILE", EMFILE}, {"EROFS", EROFS},   {"EINVAL", EINVAL}, {"ENOTSUP", ENOTSUP}};
    const auto found = kErrors.find(fault);
    return found == kErrors.end() ? EIO : found->second;
}

void Log(const Experiment& experiment, const char* call)
{
    const char* path = std::getenv("FAULTS_LOG");
    if (path == nullptr) return;
    const std::string line = experiment.Name + " " + call + "\n";
    const long file = syscall(SYS_openat, AT_FDCWD, path, O_WRONLY | O_CREAT | O_APPEND, 0644);
    if (file < 0) return;
    syscall(SYS_write, file, line.data(), line.size());
    syscall(SYS_close, file);
}

enum class Turn { Real, Fails, Short };

// What becomes of the next call there. Sets errno for one that fails.
Turn NextTurn(Experiment* experiment, const char* call)
{
    if (experiment == nullptr || (experiment->Fault == "LOST") != (std::string_view(call) == "lstat") ||
        ++experiment->Calls != experiment->At)
        return Turn::Real;
    Log(*experiment, call);
    if (experiment->Fault == "KILL") kill(getpid(), SIGKILL);
    if (experiment->Fault == "STOP") kill(getpid(), SIGSTOP);
    if (experiment->Fault == "KILL" || experiment->Fault == "STOP") return Turn::Real;
    if (experiment->Fault == "SHORT") return Turn::Short;
    errno = ErrorOf(experiment->Fault);
    return Turn::Fails;
}

Experiment* ExperimentOf(int file)
{
    State& state = TheState();
    const auto found = state.Files.find(file);
    return found == state.Files.end() ? nullptr : ExperimentOf(found->second);
}

int OpenWith(const char* name, const char* path, int flags, mode_t mode)
{
    const std::scoped_lock lock(TheState().Lock);
    Experiment* experiment = ExperimentOf(std::string(path));
    if (NextTurn(experiment, "open") == Turn::Fails) return -1;
    const int file = Real<int (*)(const char*, int, ...)>(name)(path, flags, mode);
    if (file >= 0 && experiment != nullptr) TheState().Files[file] = path;
    return file;
}

mode_t ModeArgument(int flags, va_list arguments)
{
    const bool makes = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
    return makes ? va_arg(arguments, mode_t) : 0;
}

}  // namespace

void faults::SetUnder(const std::string& folder)
{
    TheState().Under = folder;
}

bool faults::Happened(const std::string& experiment)
{
    const auto found = TheState().Experiments.find(experiment);
    return found != TheState().Experiments.end() && found->second.Calls >= found->second.At;
}

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the headers of the system have reserved
// names
extern "C" {

int open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = ModeArgument(flags, arguments);
    va_end(arguments);
    return OpenWith("open", path, flags, mode);
}

int open64(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = ModeArgument(flags, arguments);
    va_end(arguments);
    return OpenWith("open64", path, flags, mode);
}

ssize_t write(int file, const void* bytes, size_t size)
{
    const std::scoped_lock lock(TheState().Lock);
    const Turn turn = NextTurn(ExperimentOf(file), "write");
    if (turn == Turn::Fails) return -1;
    const size_t share = turn == Turn::Short ? size / 2 : size;
    return Real<ssize_t (*)(int, const void*, size_t)>("write")(file, bytes, share);
}

int lstat(const char* path, struct stat* status) noexcept
{
    if (NextTurn(ExperimentOf(std::string(path)), "lstat") == Turn::Fails) return -1;
    return Real<int (*)(const char*, struct stat*)>("lstat")(path, status);
}

int fsync(int file)
{
    if (NextTurn(ExperimentOf(file), "fsync") == Turn::Fails) return -1;
    return Real<int (*)(int)>("fsync")(file);
}

int rename(const char* from, const char* to) noexcept
{
    if (NextTurn(ExperimentOf(std::string(from)), "rename") == Turn::Fails) return -1;
    return Real<int (*)(const char*, const char*)>("rename")(from, to);
}

// One that fails has closed the file all the same, as the system does.
int close(int file)
{
    const std::scoped_lock lock(TheState().Lock);
    const Turn turn = NextTurn(ExperimentOf(file), "close");
    const int error = errno;
    TheState().Files.erase(file);
    const int result = Real<int (*)(int)>("close")(file);
    if (turn != Turn::Fails) return result;
    errno = error;
    return -1;
}

}  // extern "C"
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
