// Where the system has no calls of POSIX: the new file is written beside the old one and takes its name.
#include <cerrno>
#include <filesystem>
#include <fstream>

#include "basic/files.h"

namespace {

namespace fs = std::filesystem;

fs::path PathOf(const std::string& name)
{
    return std::u8string(name.begin(), name.end());
}

// Writes to the path itself and sees to it that nothing is left in a buffer.
void WriteWhole(const fs::path& path, std::string_view text)
{
    errno = 0;
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    if (!stream) Raise(ErrorOfSystem(errno));
    stream.write(text.data(), static_cast<std::streamsize>(text.size()));
    stream.close();
    if (!stream) Raise(ErrorOfSystem(errno));
}

// A name beside the target that nobody uses.
fs::path TemporaryFor(const fs::path& target)
{
    std::error_code ignored;
    for (int i = 1;; ++i) {
        fs::path candidate = target.parent_path() / ("vantrel-" + std::to_string(i) + ".tmp");
        if (!fs::exists(fs::symlink_status(candidate, ignored))) return candidate;
    }
}

// A new file would take the place of a write-protected one without a word.
void RefuseProtected(const fs::path& target)
{
    errno = 0;
    const std::ofstream stream(target, std::ios::binary | std::ios::app);
    if (!stream) Raise(ErrorOfSystem(errno));
}

// The new file until it has its name; what did not get that far is removed.
class TemporaryFile {
public:
    explicit TemporaryFile(fs::path path) : path_(std::move(path)) {}
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile()
    {
        std::error_code ignored;
        if (!moved_) fs::remove(path_, ignored);
    }

    void Write(std::string_view text) const { WriteWhole(path_, text); }
    void MoveTo(const fs::path& target, const fs::file_status& old)
    {
        std::error_code failure;
        if (fs::exists(old)) fs::permissions(path_, old.permissions(), failure);
        fs::rename(path_, target, failure);
        if (failure) Raise(ErrorOfSystem(failure.default_error_condition().value()));
        moved_ = true;
    }

private:
    fs::path path_;
    bool moved_ = false;
};

// Only a regular file can be written, or a name that is still free.
fs::file_status StatusForWriting(const fs::path& target)
{
    std::error_code ignored;
    const fs::file_status status = fs::status(target, ignored);
    if (fs::exists(status) && !fs::is_regular_file(status)) Raise(ErrorNumber::PathFileAccess);
    return status;
}

// Where a chain of links ends, so that the links stay.
fs::path BehindLinks(const fs::path& path)
{
    std::error_code failure;
    if (!fs::is_symlink(path, failure)) return path;
    fs::path target = fs::weakly_canonical(path, failure);
    return failure ? path : target;
}

}  // namespace

void ReplaceFile(const std::string& path, std::string_view text)
{
    const fs::path target = BehindLinks(PathOf(path));
    const fs::file_status old = StatusForWriting(target);
    if (fs::exists(old)) RefuseProtected(target);
    TemporaryFile temporary(TemporaryFor(target));
    temporary.Write(text);
    temporary.MoveTo(target, old);
}

void RequireWritable(const std::string& path)
{
    const fs::path target = BehindLinks(PathOf(path));
    const fs::file_status old = StatusForWriting(target);
    if (fs::exists(old)) RefuseProtected(target);
    TemporaryFile(TemporaryFor(target)).Write({});
}

std::size_t LongestName(const std::string&)
{
    return 255;
}

void TakeSizeLimitAsError()
{
    // there is no such limit
}
