#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <system_error>

/// A file without a name in the folder for temporary files, gone with the object. No child inherits it, and nothing is
/// buffered. Reading and writing go on where the last call ended.
class TSpillFile
{
public:
    TSpillFile() = default;
    ~TSpillFile() { Close(); }
    TSpillFile(const TSpillFile&) = delete;
    TSpillFile& operator=(const TSpillFile&) = delete;

    /// Makes the file; on an error the object stays without one.
    [[nodiscard]] std::error_code Create();
    [[nodiscard]] bool IsOpen() const { return FDescriptor != None; }
    void Close();

    /// Writes all bytes.
    [[nodiscard]] std::error_code Write(std::string_view Bytes);
    /// Reads the next bytes, as many as are there, to the front of Buffer and gives their number: 0 at the end or on
    /// an error.
    [[nodiscard]] std::size_t Read(char* Buffer, std::size_t Size);
    /// Goes back to the beginning.
    void Rewind();

private:
    static constexpr int None = -1;
    int FDescriptor = None;
};
