// A small file that one running program holds at a time.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

/// The hold ends with the object, or with the program, however that ends; the file stays.
class THeldFile
{
public:
    /// Makes the file, for this user alone, if need be. Null: another program holds it. Throws EFileError.
    [[nodiscard]] static std::unique_ptr<THeldFile> Hold(const std::string& FileName);
    ~THeldFile();
    THeldFile(const THeldFile&) = delete;
    THeldFile& operator=(const THeldFile&) = delete;

    /// Writes the text in one piece over what the file holds. Line ends follow it where that was longer. Throws
    /// EFileError.
    void Write(std::string Text);
    /// Removes the file. Throws EFileError.
    void Remove();

private:
    THeldFile(std::string FileName, int Descriptor, std::size_t Length)
        : FFileName(std::move(FileName)), FDescriptor(Descriptor), FLength(Length)
    {}

    std::string FFileName;
    int FDescriptor;
    std::size_t FLength; ///< of the longest text that the file held so far
};
