#include "platform/Processes.h"

#include <uv.h>

#include <array>
#include <cstdint>

namespace
{
/// A file's bytes at some places of it. A file that is too short has none there.
class TBytesOfFile
{
public:
    explicit TBytesOfFile(const std::string& FileName)
    {
        uv_fs_t Request;
        // A pipe of that name is not waited for.
        FFile = uv_fs_open(nullptr, &Request, FileName.c_str(), UV_FS_O_RDONLY | UV_FS_O_NONBLOCK, 0, nullptr);
        uv_fs_req_cleanup(&Request);
    }
    ~TBytesOfFile()
    {
        uv_fs_t Request;
        if (FFile >= 0)
            uv_fs_close(nullptr, &Request, FFile, nullptr);
    }
    TBytesOfFile(const TBytesOfFile&) = delete;
    TBytesOfFile& operator=(const TBytesOfFile&) = delete;

    /// The bytes from Offset on, as many as there are of Size.
    [[nodiscard]] std::string Read(std::uint32_t Offset, std::size_t Size) const
    {
        std::string Bytes(Size, '\0');
        uv_buf_t Buffer = uv_buf_init(Bytes.data(), static_cast<unsigned>(Size));
        uv_fs_t Request;
        const ssize_t Count = FFile < 0 ? 0 : uv_fs_read(nullptr, &Request, FFile, &Buffer, 1, Offset, nullptr);
        Bytes.resize(Count > 0 ? static_cast<std::size_t>(Count) : 0);
        return Bytes;
    }

private:
    uv_file FFile;
};

/// The little-endian number of Size bytes at an offset; 0 where the bytes end before.
std::uint32_t Number(std::string_view Bytes, std::size_t Offset, std::size_t Size)
{
    std::uint32_t Result = 0;
    for (std::size_t Index = Size; Index-- > 0 && Offset + Size <= Bytes.size();)
        Result = Result << 8U | static_cast<unsigned char>(Bytes[Offset + Index]);
    return Result;
}
} // namespace

bool IsDotNetAssembly(const std::string& FileName)
{
    constexpr std::size_t SignatureOffset = 0x3C;
    constexpr std::size_t OptionalHeader = 24;
    constexpr std::uint32_t Pe32 = 0x10B;
    constexpr std::uint32_t Pe32Plus = 0x20B;
    constexpr std::size_t DirectorySize = 8;
    constexpr std::size_t CliDirectory = 14;

    const TBytesOfFile File(FileName);
    const std::string Start = File.Read(0, SignatureOffset + 4);
    if (!Start.starts_with("MZ") || Start.size() < SignatureOffset + 4)
        return false;
    const std::string Header = File.Read(Number(Start, SignatureOffset, 4), 256);
    if (!Header.starts_with(std::string_view("PE\0\0", 4)))
        return false;
    const std::uint32_t Magic = Number(Header, OptionalHeader, 2);
    if (Magic != Pe32 && Magic != Pe32Plus)
        return false;
    const std::size_t Directories = OptionalHeader + (Magic == Pe32 ? 96 : 112);
    const std::size_t Entry = Directories + CliDirectory * DirectorySize;
    const bool HasEntry = Number(Header, Directories - 4, 4) > CliDirectory &&
                          OptionalHeader + Number(Header, 20, 2) >= Entry + DirectorySize;
    return HasEntry && Number(Header, Entry, 4) != 0 && Number(Header, Entry + 4, 4) != 0;
}
