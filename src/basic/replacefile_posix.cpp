// A file is replaced in five steps: a temporary file beside it is made and locked, written, synchronised,
// given what the old file had, and takes the old file's name; then the folder is synchronised.
//
// The temporary file has a short name of its own that follows from the name of the file, so that what a
// killed program has left is found by the next one that saves to that name: nobody holds its lock.
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#ifdef __linux__
#include <sys/xattr.h>
#endif

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <utility>

#include "basic/files.h"

namespace {

constexpr mode_t kOwnerAlone = S_IRUSR | S_IWUSR;
constexpr mode_t kGroupBits = S_IRWXG;
constexpr mode_t kOtherBits = S_IRWXO;
constexpr mode_t kAllBits = S_IRWXU | S_IRWXG | S_IRWXO;  // without set-user and set-group

// Once more when a signal came between.
template <typename Call>
auto Uninterrupted(Call call)
{
    auto result = call();
    while (result == -1 && errno == EINTR)
        result = call();
    return result;
}

void Demand(bool done)
{
    if (!done) Raise(ErrorOfSystem(errno));
}

// ---- an open file ----

class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor& operator=(Descriptor&&) = delete;
    ~Descriptor()
    {
        if (IsOpen()) close(number_);
    }

    [[nodiscard]] bool IsOpen() const { return number_ >= 0; }
    [[nodiscard]] int Number() const { return number_; }

    // After a signal the file is closed all the same.
    void Close()
    {
        const int number = std::exchange(number_, -1);
        Demand(close(number) == 0 || errno == EINTR);
    }

private:
    int number_;
};

Descriptor Open(const std::string& path, int flags, mode_t mode = 0)
{
    return Descriptor(Uninterrupted([&] { return open(path.c_str(), flags | O_CLOEXEC, mode); }));
}

struct stat StatusOf(const Descriptor& file)
{
    struct stat status {};
    Demand(fstat(file.Number(), &status) == 0);
    return status;
}

void WriteAll(const Descriptor& file, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t count = Uninterrupted([&] { return write(file.Number(), text.data(), text.size()); });
        Demand(count >= 0);
        text.remove_prefix(static_cast<std::size_t>(count));
    }
}

// Some file systems have nothing to synchronise.
void Synchronise(const Descriptor& file)
{
    const bool done = Uninterrupted([&] { return fsync(file.Number()); }) == 0;
    Demand(done || errno == EINVAL || errno == ENOTSUP || errno == ENOSYS);
}

// ---- names ----

std::string FolderOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

std::string TargetOfLink(const std::string& link)
{
    std::array<char, PATH_MAX> target{};
    const ssize_t length = readlink(link.c_str(), target.data(), target.size());
    Demand(length >= 0);
    return {target.data(), static_cast<std::size_t>(length)};
}

bool IsLink(const std::string& path)
{
    struct stat status {};
    const bool there = lstat(path.c_str(), &status) == 0;
    Demand(there || errno == ENOENT);
    return there && S_ISLNK(status.st_mode);
}

// Where a chain of links ends, so that the links stay.
std::string BehindLinks(std::string path)
{
    constexpr int kMostLinks = 40;  // the system follows no more either
    for (int i = 0; IsLink(path); ++i) {
        if (i == kMostLinks) Raise(ErrorNumber::PathFileAccess);
        const std::string target = TargetOfLink(path);
        path = (target.starts_with('/') ? std::string() : FolderOf(path)).append(target);
    }
    return path;
}

// FNV-1a of the file's name without its folder.
std::uint64_t HashOfName(std::string_view path)
{
    const std::string_view name = path.substr(path.rfind('/') + 1);
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char character : name)
        hash = (hash ^ static_cast<unsigned char>(character)) * 0x100000001b3;
    return hash;
}

std::string NameOfTemporary(const std::string& target, int number)
{
    std::array<char, 48> name{};
    static_cast<void>(std::snprintf(name.data(), name.size(), ".vantrel-%016llx-%d.tmp",
                                    static_cast<unsigned long long>(HashOfName(target)), number));
    return FolderOf(target) + name.data();
}

// ---- the temporary file ----

bool IsStillNamed(const Descriptor& file, const std::string& path)
{
    const struct stat held = StatusOf(file);
    struct stat named {};
    return lstat(path.c_str(), &named) == 0 && named.st_dev == held.st_dev && named.st_ino == held.st_ino;
}

bool Lock(const Descriptor& file)
{
    return Uninterrupted([&] { return flock(file.Number(), LOCK_EX | LOCK_NB); }) == 0;
}

// Takes away what a program that was killed has left under this name. One that lives holds the lock of its
// file; what is no plain file of this user was never made here.
bool ClearedAway(const std::string& path)
{
    const Descriptor left = Open(path, O_WRONLY | O_NOFOLLOW | O_NONBLOCK);
    if (!left.IsOpen()) return errno == ENOENT;
    const struct stat status = StatusOf(left);
    const bool own = status.st_uid == geteuid() || geteuid() == 0;  // who may have given it away already
    if (!S_ISREG(status.st_mode) || status.st_nlink > 1 || !own) return false;
    return Lock(left) && IsStillNamed(left, path) && unlink(path.c_str()) == 0;
}

// The new file until it has its name; what did not get that far is removed.
class TemporaryFile {
public:
    explicit TemporaryFile(const std::string& target)
    {
        int number = 1;
        while (!Make(NameOfTemporary(target, number)))
            ++number;
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() { Remove(); }

    [[nodiscard]] Descriptor& File() { return *file_; }

    void MoveTo(const std::string& target)
    {
        Demand(Uninterrupted([&] { return std::rename(path_.c_str(), target.c_str()); }) == 0);
        path_.clear();
    }

    void GiveUp()
    {
        Remove();
        file_->Close();
    }

private:
    void Remove()
    {
        if (!path_.empty()) unlink(path_.c_str());
        path_.clear();
    }

    // False: the name belongs to somebody else, and the next one is to be tried.
    bool Make(const std::string& path)
    {
        file_.reset();
        file_.emplace(Open(path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, kOwnerAlone));
        if (!file_->IsOpen()) {
            Demand(errno == EEXIST);
            return ClearedAway(path) && Make(path);
        }
        path_ = path;
        const bool locked = Lock(*file_) || errno != EWOULDBLOCK;  // a file system may know no locks
        if (locked && IsStillNamed(*file_, path)) return true;
        path_.clear();  // another program took it for a left one, between the making and the lock
        return false;
    }

    std::string path_;
    std::optional<Descriptor> file_;
};

// ---- what the old file had ----

// Whether the group could be kept. The owner can only be by the superuser.
bool KeepOwner(const Descriptor& file, const struct stat& old)
{
    const struct stat fresh = StatusOf(file);
    if (fresh.st_uid == old.st_uid && fresh.st_gid == old.st_gid) return true;
    if (fchown(file.Number(), old.st_uid, old.st_gid) == 0) return true;
    return fresh.st_gid == old.st_gid || fchown(file.Number(), static_cast<uid_t>(-1), old.st_gid) == 0;
}

// Another group than the old file's may do no more than everybody.
mode_t ModeFor(mode_t old, bool groupKept)
{
    const mode_t mode = old & kAllBits;
    return groupKept ? mode : (mode & ~kGroupBits) | ((mode & kOtherBits) << 3);
}

#ifdef __linux__

constexpr const char* kAccessList = "system.posix_acl_access";
constexpr const char* kListForNewFiles = "system.posix_acl_default";  // of a folder
constexpr std::string_view kCapability = "security.capability";       // goes with set-user

// A list of rights beside the mode, as the system stores it: its version in 4 bytes, then entries of 8, which
// begin with whom they speak of and with his rights, in 2 bytes each, the low one first.
class AccessList {
public:
    // Most: what all but the owner and everybody can have at the most.
    enum Whom : unsigned { Owner = 1, Group = 4, Most = 16, Everybody = 32 };

    explicit AccessList(std::string bytes) : bytes_(std::move(bytes)) {}

    [[nodiscard]] const std::string& Bytes() const { return bytes_; }
    [[nodiscard]] bool IsThere() const { return bytes_.size() > kHead; }

    [[nodiscard]] std::optional<mode_t> RightsOf(Whom whom) const
    {
        const std::size_t at = PlaceOf(whom);
        if (at == std::string::npos) return std::nullopt;
        return static_cast<unsigned char>(bytes_[at + kRights]) & kAllRights;
    }
    void Restrict(Whom whom, mode_t rights)
    {
        const std::size_t at = PlaceOf(whom);
        if (at != std::string::npos)
            bytes_[at + kRights] = static_cast<char>(bytes_[at + kRights] & static_cast<char>(rights));
    }

    // The mode that goes with it: its middle part is the most that groups and named users can have.
    [[nodiscard]] mode_t Mode() const
    {
        const mode_t middle = RightsOf(Most).value_or(RightsOf(Group).value_or(0));
        return RightsOf(Owner).value_or(0) << 6 | middle << 3 | RightsOf(Everybody).value_or(0);
    }

private:
    static constexpr std::size_t kHead = 4;
    static constexpr std::size_t kEntry = 8;
    static constexpr std::size_t kRights = 2;  // behind the beginning of an entry
    static constexpr mode_t kAllRights = 7;

    [[nodiscard]] std::size_t PlaceOf(Whom whom) const
    {
        for (std::size_t at = kHead; at + kEntry <= bytes_.size(); at += kEntry)
            if (static_cast<unsigned char>(bytes_[at]) == whom && bytes_[at + 1] == 0) return at;
        return std::string::npos;
    }

    std::string bytes_;
};

// What a call of the system that is asked twice, for a size and for the bytes, gives; empty where there is
// nothing.
template <typename Call>
std::string BytesOf(Call call)
{
    const ssize_t size = call(nullptr, 0);
    if (size <= 0) return {};
    std::string bytes(static_cast<std::size_t>(size), '\0');
    return call(bytes.data(), bytes.size()) == size ? bytes : std::string();
}

void CopyAttribute(const Descriptor& from, const Descriptor& to, const char* name, bool groupKept)
{
    std::string value =
        BytesOf([&](char* bytes, std::size_t size) { return fgetxattr(from.Number(), name, bytes, size); });
    if (value.empty() && fgetxattr(from.Number(), name, nullptr, 0) != 0) return;
    if (std::string_view(name) == kAccessList && !groupKept) {
        AccessList list(std::move(value));
        list.Restrict(AccessList::Group, list.RightsOf(AccessList::Everybody).value_or(0));
        value = list.Bytes();
    }
    static_cast<void>(fsetxattr(to.Number(), name, value.data(), value.size(), 0));
}

void CopyAttributes(const Descriptor& from, const Descriptor& to, bool groupKept)
{
    const std::string names =
        BytesOf([&](char* bytes, std::size_t size) { return flistxattr(from.Number(), bytes, size); });
    for (std::size_t start = 0; start < names.size(); start = names.find('\0', start) + 1)
        if (names.c_str() + start != kCapability) CopyAttribute(from, to, names.c_str() + start, groupKept);
}

// What the folder says of the rights of new files, whatever the mask of the process.
std::optional<mode_t> ModeFromFolder(const std::string& folder)
{
    const AccessList list(BytesOf([&](char* bytes, std::size_t size) {
        return getxattr(folder.c_str(), kListForNewFiles, bytes, size);
    }));
    return list.IsThere() ? std::optional(list.Mode()) : std::nullopt;
}

// The folder may have given the new file a list of rights that the old one did not have.
void DropAccessList(const Descriptor& file)
{
    static_cast<void>(fremovexattr(file.Number(), kAccessList));
}

// Everything that the file system of the file has not yet written, for a folder that cannot be opened.
bool SynchroniseFileSystem(const Descriptor& file)
{
    return syncfs(file.Number()) == 0;
}

#else

void CopyAttributes(const Descriptor&, const Descriptor&, bool)
{
}

std::optional<mode_t> ModeFromFolder(const std::string&)
{
    return std::nullopt;
}

void DropAccessList(const Descriptor&)
{
}

bool SynchroniseFileSystem(const Descriptor&)
{
    sync();
    return true;
}

#endif

// The mask of the process can only be read by setting it.
mode_t NewFileMode(const std::string& target)
{
    constexpr mode_t kReadAndWrite = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
    if (const auto mode = ModeFromFolder(FolderOf(target))) return *mode & kReadAndWrite;
    const mode_t mask = umask(kGroupBits | kOtherBits);
    umask(mask);
    return kReadAndWrite & ~mask;
}

void GiveMode(const Descriptor& file, mode_t mode)
{
    Demand(fchmod(file.Number(), mode) == 0 || errno == EPERM);  // some file systems have one mode for all
}

void KeepWhatTheOldFileHad(const Descriptor& file, const Descriptor& oldFile)
{
    const struct stat old = StatusOf(oldFile);
    const bool groupKept = KeepOwner(file, old);
    DropAccessList(file);
    GiveMode(file, ModeFor(old.st_mode, groupKept));
    CopyAttributes(oldFile, file, groupKept);
}

// ---- replacing ----

// The new name itself lies in the folder.
void SynchroniseFolder(const std::string& target, const Descriptor& file)
{
    Descriptor folder = Open(FolderOf(target), O_RDONLY | O_DIRECTORY);
    if (!folder.IsOpen()) {
        Demand(errno == EACCES && SynchroniseFileSystem(file));  // a folder may be written without being read
        return;
    }
    Synchronise(folder);
    folder.Close();
}

enum class Kind { Missing, Regular, Device };

// Only a regular file or a device can be written, or a name that is still free.
Kind KindForWriting(const std::string& path)
{
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) {
        Demand(errno == ENOENT);
        return Kind::Missing;
    }
    if (S_ISCHR(status.st_mode)) return Kind::Device;
    if (!S_ISREG(status.st_mode)) Raise(ErrorNumber::PathFileAccess);
    return Kind::Regular;
}

// A new file would take the place of a write-protected one without a word.
Descriptor OpenOld(const std::string& target)
{
    Descriptor old = Open(target, O_WRONLY);
    Demand(old.IsOpen());
    return old;
}

void WriteDevice(const std::string& path, std::string_view text)
{
    Descriptor device = OpenOld(path);
    WriteAll(device, text);
    device.Close();
}

void ReplaceRegular(const std::string& target, Kind kind, std::string_view text)
{
    std::optional<Descriptor> old;
    if (kind == Kind::Regular) old.emplace(OpenOld(target));
    TemporaryFile temporary(target);
    WriteAll(temporary.File(), text);
    if (old) {
        KeepWhatTheOldFileHad(temporary.File(), *old);
        old->Close();
    } else {
        GiveMode(temporary.File(), NewFileMode(target));
    }
    Synchronise(temporary.File());
    temporary.MoveTo(target);
    SynchroniseFolder(target, temporary.File());
    temporary.File().Close();  // and the lock with it
}

}  // namespace

void ReplaceFile(const std::string& path, std::string_view text)
{
    const Kind kind = KindForWriting(path);
    if (kind == Kind::Device)
        WriteDevice(path, text);  // it takes the bytes; it cannot be replaced
    else
        ReplaceRegular(BehindLinks(path), kind, text);
}

void RequireWritable(const std::string& path)
{
    const Kind kind = KindForWriting(path);
    const std::string target = kind == Kind::Device ? path : BehindLinks(path);
    if (kind != Kind::Missing) OpenOld(target).Close();
    if (kind != Kind::Device) TemporaryFile(target).GiveUp();
}

std::size_t LongestName(const std::string& folder)
{
    const long longest = pathconf(folder.c_str(), _PC_NAME_MAX);
    return longest > 0 ? static_cast<std::size_t>(longest) : NAME_MAX;
}

void TakeSizeLimitAsError()
{
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
}
