// The program's standard streams.
#pragma once

#include <string>
#include <string_view>
#include <system_error>

/// A place for bytes that may keep its writer waiting. Such a wait looks after a running process, whose time may be
/// up, and ends some time after termination was requested.
class TByteOutput
{
public:
    static TByteOutput StandardOutput();
    /// A file that is replaced. Throws EFileError.
    static TByteOutput File(const std::string& FileName);
    ~TByteOutput();
    TByteOutput(TByteOutput&& Other) noexcept;
    TByteOutput& operator=(TByteOutput&&) = delete;

    /// Writes all bytes. std::errc::broken_pipe: nobody reads them any longer; not_connected: the terminal was closed;
    /// operation_canceled: nobody read them in time after a request to end.
    [[nodiscard]] std::error_code Write(std::string_view Bytes);

private:
    enum class TKind { Direct, NonBlocking, Socket, Shared };
    TByteOutput(int Descriptor, TKind Kind, bool IsOwn);
    [[nodiscard]] long WriteSome(std::string_view Bytes) const;
    [[nodiscard]] bool Wait() const;

    int FDescriptor;
    TKind FKind;
    bool FIsOwn;
};

namespace Console
{
/// Puts nothing's device in place of standard streams that the program was started without: the next file to be
/// opened would take their place.
void OpenMissingStreams();
/// Whether standard output is a terminal.
[[nodiscard]] bool IsTerminal();
/// How many columns it has; 80 when that is not known.
[[nodiscard]] int Width();
/// Writes all bytes to standard output, as TByteOutput does.
[[nodiscard]] std::error_code Write(std::string_view Bytes);
/// Ends the program as one that wrote to a closed pipe ends.
[[noreturn]] void EndByClosedPipe();
} // namespace Console
