// What a .NET assembly tells of itself in its metadata.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Texts are as they stand in the assembly.
struct TAssemblyMetadata
{
    std::string Name;
    std::string Version;                 ///< four numbers with full stops between them
    std::string PublicKey;               ///< its bytes; empty: the assembly has no strong name
    std::string KeyFile;                 ///< that its sources name to be signed with; empty: none
    std::vector<std::string> References; ///< names of the assemblies that it needs
};

/// Reads the metadata of an assembly from all of its bytes; none for what is no assembly or is damaged.
[[nodiscard]] std::optional<TAssemblyMetadata> ReadAssemblyMetadata(std::string_view Bytes);
