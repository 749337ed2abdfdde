// Problem files: text records of comma-separated fields, a string in double quotes, CR LF behind each record.
//
// The writer gathers the file in memory; Save puts it in place only when it is whole, so that a full disk or
// a folder without permission leaves the old file as it was. The reader holds the file in memory and refuses
// one that is too large to be a problem ("Overflow" before it is read).
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>

#include "basic/variant.h"

class RecordWriter {
public:
    using Field = std::variant<double, Variant, std::string>;

    // One record. A double in the shortest plain decimal form that reads back as the same value, never with
    // an exponent; an empty Variant as nothing; a string in double quotes, with two for each quote within it.
    void Write(std::initializer_list<Field> fields);

    [[nodiscard]] const std::string& Text() const { return text_; }
    void Save(const std::string& path) const;  // run-time errors of the disk

private:
    std::string text_;
};

// Reads field by field, over record ends, as `Input #` does: quotes around a string are taken off, two within
// it are one, blanks in front of a field are passed over, CR LF and LF both end a record. A byte-order mark
// tells UTF-8 or UTF-16. Every routine raises "Input past end of file" at the end.
class RecordReader {
public:
    static RecordReader FromFile(const std::string& path);
    explicit RecordReader(std::string text);

    // "Type mismatch" where no number stands; an empty field is 0.
    double ReadDouble();
    std::int16_t ReadInt16();  // and "Overflow" beyond 16 bits; a fraction is rounded half to even
    std::int16_t ReadCount();  // and "Subscript out of range" below 0, which counts nothing
    std::int32_t ReadInt32();
    Variant ReadVariant();  // nothing between two commas is an empty one
    std::string ReadString();

private:
    void StartField();  // passes blanks over; "Input past end of file" when nothing is left
    std::string_view TakeUnquoted();
    std::string_view TakeBetweenQuotes();
    std::string TakeQuoted();
    std::string_view TakeNumberField();
    void PassSeparator();  // the comma or line end behind a field

    std::string text_;
    std::size_t next_ = 0;
};
