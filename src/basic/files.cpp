#include "basic/files.h"

#include <cerrno>
#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kLargestFile = 8u << 20;  // bytes; the largest problem takes some hundred thousand

// A missing file is one thing, a missing folder another.
ErrorNumber MissingAt(const fs::path& path)
{
    std::error_code ignored;
    const bool folder = !path.has_parent_path() || fs::is_directory(path.parent_path(), ignored);
    return folder ? ErrorNumber::FileNotFound : ErrorNumber::PathNotFound;
}

// As far as the file goes: another program may put a longer one in its place at any moment.
std::string ReadWhole(const fs::path& path)
{
    constexpr std::size_t kBlock = 1u << 16;
    errno = 0;
    std::ifstream stream(path, std::ios::binary);
    if (!stream) Raise(ErrorOfSystem(errno));
    std::string text;
    std::size_t length = 0;
    while (stream) {
        if (length > kLargestFile) Raise(ErrorNumber::Overflow);
        text.resize(length + kBlock);
        stream.read(text.data() + length, kBlock);
        length += static_cast<std::size_t>(stream.gcount());
    }
    if (stream.bad()) Raise(ErrorOfSystem(errno));
    text.resize(length);
    return text;
}

}  // namespace

ErrorNumber ErrorOfSystem(int number)
{
    switch (number) {
        case EACCES:
        case EPERM:
        case EROFS:
            return ErrorNumber::PermissionDenied;
        case ENOSPC:
        case EFBIG:
#ifdef EDQUOT
        case EDQUOT:
#endif
            return ErrorNumber::DiskFull;
        case ENOENT:
        case ENOTDIR:
            return ErrorNumber::PathNotFound;
        default:
            return ErrorNumber::PathFileAccess;
    }
}

std::string ReadFile(const std::string& path)
{
    const fs::path file = std::u8string(path.begin(), path.end());
    std::error_code failure;
    const fs::file_status status = fs::status(file, failure);
    if (status.type() == fs::file_type::not_found) Raise(MissingAt(file));
    if (status.type() == fs::file_type::none) Raise(ErrorOfSystem(failure.default_error_condition().value()));
    if (!fs::is_regular_file(status)) Raise(ErrorNumber::PathFileAccess);
    const std::uintmax_t size = fs::file_size(file, failure);
    if (failure) Raise(ErrorOfSystem(failure.default_error_condition().value()));
    if (size > kLargestFile) Raise(ErrorNumber::Overflow);
    return ReadWhole(file);
}
