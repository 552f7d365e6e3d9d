#pragma once

#include "package/compiler/QXProjectMapping.h"
#include "platform/Xml.h"

#include <string>
#include <string_view>
#include <vector>

class TQXReferenceResolver;
class TQXResourceProcessor;

/// What one load of a project works with. Folders end in a delimiter. A script that the load calls may change the
/// action, so what was read of that is kept here and not read again.
struct TProjectLoad
{
    const TQXProjectMapping& Mapping;
    std::string FileName{};         ///< absolute
    std::string Folder{};           ///< of the project file
    std::string ConfigName{};       ///< expanded
    std::string OutputFolder{};     ///< of the configuration
    std::string ObjectFolder{};     ///< for compiled resources
    std::string AssemblyFileName{}; ///< without folder
    std::string KeyFile{};          ///< that signs wrapper assemblies, or empty
    std::string PlatformName{};     ///< empty: references of every platform count
    std::string RootNameSpace{};    ///< that the project names
    bool IsCompact = false;
    bool FollowsIDE = false;           ///< where the action's own way and that of the IDE differ, the IDE's holds
    std::string SDKFolder{};           ///< empty: there is none
    std::string CompactCompiler{};     ///< of a compact project's resources, as the action has it
    std::string ConfigFolder{};        ///< the configuration's part of the object folder
    std::string CompactSystemFolder{}; ///< where a compact project's system assemblies lie, or empty
};

/// What the loaders of both project formats share: fills an action's settings from a project file.
class TQXProjectLoader
{
public:
    TQXProjectLoader(TQXManagedCompilerAction& Action, TQXProjectMapping& Mapping, std::string FileName);

protected:
    ~TQXProjectLoader() = default;

    /// Reads what the load needs of the action.
    [[nodiscard]] bool Begin();
    /// Forgets the load before.
    void Reset();
    void Log(std::string_view Message) const { FAction.SendMessage(Message); }
    /// Makes a folder, or finds it in its spelling on disk. Whether it could be made shows when a tool needs it.
    [[nodiscard]] static std::string MakeFolder(std::string_view Path, std::string_view Base);
    /// Logs the message; false, for steps to end with.
    [[nodiscard]] bool Fail(const std::string& Message) const;
    [[nodiscard]] bool FailParsing(const TXmlParseError& Error) const;
    /// The first with the name of the wanted configuration, or null.
    [[nodiscard]] const TXmlElement* FindConfiguration(const std::vector<TXmlElement>& Configurations) const;
    /// Tells that the wanted configuration is not there, by what the format calls it, and which are; false.
    [[nodiscard]] bool FailConfiguration(const std::string& Kind, const std::vector<TXmlElement>& Configurations) const;
    /// Gives the output file its folder, which is made, the extension of its target and, if need be, the project's
    /// name. Property: where the project names the file. False: the log tells why.
    [[nodiscard]] bool CompleteOutputFile(std::string_view Property);
    /// Takes back that warnings are errors where the IDE's compiler would not have warned.
    void FollowCompiler(std::string_view ProjectVersion);
    /// Makes the folder of the documentation, which the compiler does not.
    [[nodiscard]] bool PrepareDocumentation();
    /// Whether the SDK and its resource compiler are there, which even a project without resources needs.
    [[nodiscard]] bool CheckResourceCompiler() const;
    void AddSource(const std::string& Path);
    /// Lets the action's lists show what was loaded.
    void ShowFiles();

    TQXManagedCompilerAction& FAction;
    TQXProjectMapping& FMapping;
    TProjectLoad FLoad;
};

/// Loads the project files of Visual Studio .NET 2002 and 2003.
class TQXVisualStudioProjectLoader final : TQXProjectLoader
{
public:
    using TQXProjectLoader::TQXProjectLoader;
    /// False: the log tells why.
    [[nodiscard]] bool Load();

private:
    [[nodiscard]] bool LoadDocument(const TXmlElement& Root);
    [[nodiscard]] bool CheckVersion(const TXmlElement& Root) const;
    [[nodiscard]] bool LoadSettings(const TXmlElement& Root);
    [[nodiscard]] bool SelectConfiguration(const TXmlElement& Settings);
    [[nodiscard]] bool LoadFiles(const TXmlElement& Root);
    void CopyConfigurationFiles() const;
    /// A path of elements below the language's own.
    [[nodiscard]] std::string LanguagePath(std::string_view Path) const;
};

/// Loads the project files of C# Builder.
class TQXBorlandProjectLoader final : TQXProjectLoader
{
public:
    using TQXProjectLoader::TQXProjectLoader;
    /// False: the log tells why.
    [[nodiscard]] bool Load();

private:
    [[nodiscard]] bool LoadDocument(const TXmlElement& Root);
    [[nodiscard]] bool SelectOptionsSet(const TXmlElement& Options);
    [[nodiscard]] bool LoadFile(const TXmlElement& File, const TQXResourceProcessor& Resources,
                                TQXReferenceResolver& References);
};
