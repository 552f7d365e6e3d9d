// What running processes needs of each operating system; private to the platform.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ProcessSystem
{
/// The arguments as libuv takes them: apart, or on Windows the text as it stands.
[[nodiscard]] std::vector<std::string> ArgumentList(std::string_view Arguments);
/// The file behind an executable's name, found in PATH if it has no folder.
struct TExecutable
{
    std::string Path;    ///< absolute
    std::string Problem; ///< why it cannot be started, as far as the file tells; empty when nothing speaks against it
};
[[nodiscard]] TExecutable FindExecutable(const std::string& Name);
/// Lets a pipe hold more, so that the tool waits for its reader less often.
void EnlargePipe(int Descriptor);
/// The name of a signal, "SIGKILL".
[[nodiscard]] std::string SignalName(int Signal);
/// Makes processes whose parent has ended stay descendants of this program. Once is enough.
void AdoptOrphans();

/// A started process with all that descends from it.
class TProcessTree
{
public:
    /// Now, before the process starts: orphans that are older do not belong to it.
    TProcessTree();
    void SetRoot(int Process) { FRoot = Process; }
    /// Asks every process of the tree to end.
    void Ask() const;
    /// Ends every process of the tree, also those that start meanwhile.
    void Kill() const;
    /// Whether one of them still runs. Orphans that have ended are taken note of, so that none stays a zombie.
    [[nodiscard]] bool IsAlive() const;
    /// The same for the process group of a process that has ended itself.
    void ReapGroup() const;

private:
    struct TMember
    {
        int Process = 0;
        int Parent = 0;
        bool IsZombie = false;
    };
    [[nodiscard]] std::vector<TMember> Members() const;

    std::uint64_t FBegin;
    int FRoot = 0;
};
} // namespace ProcessSystem

namespace ProcessLoop
{
/// Makes a running RunProcess look at what was requested. May be called from a signal handler.
void Wake();
} // namespace ProcessLoop
