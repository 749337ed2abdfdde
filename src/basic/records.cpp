#include "basic/records.h"

#include <cerrno>
#include <filesystem>
#include <fstream>

#include "basic/decimal.h"
#include "basic/error.h"
#include "basic/number.h"

namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kLargestFile = 8u << 20;  // bytes; the largest problem takes some hundred thousand

// File names are UTF-8 on every platform.
fs::path PathOf(std::string_view name)
{
    return std::u8string(name.begin(), name.end());
}

ErrorNumber ErrorOf(int systemError)
{
    switch (systemError) {
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

// A missing file is one thing, a missing folder another.
ErrorNumber MissingAt(const fs::path& path)
{
    std::error_code ignored;
    const bool folder = !path.has_parent_path() || fs::is_directory(path.parent_path(), ignored);
    return folder ? ErrorNumber::FileNotFound : ErrorNumber::PathNotFound;
}

std::string ReadWhole(const fs::path& path, std::uintmax_t size)
{
    errno = 0;
    std::ifstream stream(path, std::ios::binary);
    if (!stream) Raise(ErrorOf(errno));
    std::string text(static_cast<std::size_t>(size), '\0');
    stream.read(text.data(), static_cast<std::streamsize>(text.size()));
    if (stream.bad()) Raise(ErrorOf(errno));
    text.resize(static_cast<std::size_t>(stream.gcount()));
    return text;
}

// Writes to the path itself and sees to it that nothing is left in a buffer.
void WriteWhole(const fs::path& path, std::string_view text)
{
    errno = 0;
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    if (!stream) Raise(ErrorOf(errno));
    stream.write(text.data(), static_cast<std::streamsize>(text.size()));
    stream.close();
    if (!stream) Raise(ErrorOf(errno));
}

// A name beside the target that nobody uses.
fs::path TemporaryFor(const fs::path& target)
{
    std::error_code ignored;
    for (int i = 1;; ++i) {
        fs::path candidate = target;
        candidate += "." + std::to_string(i) + ".tmp";
        if (!fs::exists(fs::symlink_status(candidate, ignored))) return candidate;
    }
}

// A new file would take the place of a write-protected one without a word.
void RefuseProtected(const fs::path& target)
{
    errno = 0;
    const std::ofstream stream(target, std::ios::binary | std::ios::app);
    if (!stream) Raise(ErrorOf(errno));
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
        if (failure) Raise(ErrorOf(failure.default_error_condition().value()));
        moved_ = true;
    }

private:
    fs::path path_;
    bool moved_ = false;
};

// Only a regular file or a device can be written, or a name that is still free.
fs::file_status StatusForWriting(const fs::path& target)
{
    std::error_code ignored;
    const fs::file_status status = fs::status(target, ignored);
    const bool writable = !fs::exists(status) || fs::is_regular_file(status) || fs::is_character_file(status);
    if (!writable) Raise(ErrorNumber::PathFileAccess);
    return status;
}

void ReplaceRegular(const fs::path& target, const fs::file_status& old, std::string_view text)
{
    if (fs::exists(old)) RefuseProtected(target);
    TemporaryFile temporary(TemporaryFor(target));
    temporary.Write(text);
    temporary.MoveTo(target, old);
}

// Where a chain of links ends, so that the links stay.
fs::path BehindLinks(const fs::path& path)
{
    std::error_code failure;
    if (!fs::is_symlink(path, failure)) return path;
    fs::path target = fs::weakly_canonical(path, failure);
    return failure ? path : target;
}

struct FieldText {
    std::string operator()(double value) const { return PlainDigits(ToShortestDecimal(value)); }
    std::string operator()(const Variant& value) const
    {
        return value.IsEmpty() ? std::string() : (*this)(value.Value());
    }
    std::string operator()(const std::string& value) const { return '"' + value + '"'; }
};

bool IsLineEnd(char c)
{
    return c == '\r' || c == '\n';
}

// The number that a field holds; an empty field counts as 0.
double NumberOf(std::string_view field)
{
    if (field.empty()) return 0.0;
    if (NumeralLength(field) != field.size()) Raise(ErrorNumber::TypeMismatch);
    return NumeralValue(field);
}

std::string_view WithoutBlanksBehind(std::string_view field)
{
    return field.substr(0, field.find_last_not_of(" \t") + 1);
}

}  // namespace

void RecordWriter::Write(std::initializer_list<Field> fields)
{
    const char* separator = "";
    for (const Field& field : fields) {
        text_ += separator + std::visit(FieldText{}, field);
        separator = ",";
    }
    text_ += "\r\n";
}

void RecordWriter::Save(const std::string& path) const
{
    ReplaceFile(path, text_);
}

RecordReader RecordReader::FromFile(const std::string& path)
{
    const fs::path file = PathOf(path);
    std::error_code failure;
    const fs::file_status status = fs::status(file, failure);
    if (status.type() == fs::file_type::not_found) Raise(MissingAt(file));
    if (status.type() == fs::file_type::none) Raise(ErrorOf(failure.default_error_condition().value()));
    if (!fs::is_regular_file(status)) Raise(ErrorNumber::PathFileAccess);
    const std::uintmax_t size = fs::file_size(file, failure);
    if (failure) Raise(ErrorOf(failure.default_error_condition().value()));
    if (size > kLargestFile) Raise(ErrorNumber::Overflow);
    return RecordReader(ReadWhole(file, size));
}

void RecordReader::StartField()
{
    if (next_ >= text_.size()) Raise(ErrorNumber::InputPastEnd);
    while (next_ < text_.size() && (text_[next_] == ' ' || text_[next_] == '\t'))
        ++next_;
}

std::string_view RecordReader::TakeUnquoted()
{
    const std::size_t start = next_;
    while (next_ < text_.size() && text_[next_] != ',' && !IsLineEnd(text_[next_]))
        ++next_;
    return std::string_view(text_).substr(start, next_ - start);
}

std::string_view RecordReader::TakeQuoted()
{
    const std::size_t start = next_ + 1;
    const std::size_t end = text_.find('"', start);
    if (end == std::string::npos) {
        next_ = text_.size();
        Raise(ErrorNumber::InputPastEnd);
    }
    next_ = end + 1;
    TakeUnquoted();
    return std::string_view(text_).substr(start, end - start);
}

void RecordReader::PassSeparator()
{
    if (next_ >= text_.size()) return;
    const bool carriageReturn = text_[next_++] == '\r';
    if (carriageReturn && next_ < text_.size() && text_[next_] == '\n') ++next_;
}

std::string_view RecordReader::TakeNumberField()
{
    StartField();
    const std::string_view field = WithoutBlanksBehind(TakeUnquoted());
    PassSeparator();
    return field;
}

double RecordReader::ReadDouble()
{
    return NumberOf(TakeNumberField());
}

std::int16_t RecordReader::ReadInt16()
{
    return ToInt16(ReadDouble());
}

std::int16_t RecordReader::ReadCount()
{
    const std::int16_t count = ReadInt16();
    if (count < 0) Raise(ErrorNumber::SubscriptOutOfRange);
    return count;
}

std::int32_t RecordReader::ReadInt32()
{
    return ToInt32(ReadDouble());
}

Variant RecordReader::ReadVariant()
{
    const std::string_view field = TakeNumberField();
    return field.empty() ? Variant() : Variant(NumberOf(field));
}

std::string RecordReader::ReadString()
{
    StartField();
    const bool quoted = next_ < text_.size() && text_[next_] == '"';
    std::string field(quoted ? TakeQuoted() : TakeUnquoted());
    PassSeparator();
    return field;
}

void ReplaceFile(const std::string& path, std::string_view text)
{
    const fs::path target = BehindLinks(PathOf(path));
    const fs::file_status old = StatusForWriting(target);
    if (fs::is_character_file(old))
        WriteWhole(target, text);  // a device takes the bytes; it cannot be replaced
    else
        ReplaceRegular(target, old, text);
}

void RequireWritable(const std::string& path)
{
    const fs::path target = BehindLinks(PathOf(path));
    const fs::file_status old = StatusForWriting(target);
    if (fs::exists(old)) RefuseProtected(target);
    if (!fs::is_character_file(old)) TemporaryFile(TemporaryFor(target)).Write({});
}
