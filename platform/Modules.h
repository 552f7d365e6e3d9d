// Loadable libraries.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

/// A module cannot be loaded or lacks a symbol; the message names the file and the reason.
class EModuleError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// A module that was loaded. It stays until the program ends: objects of its classes may live that long.
class TModule
{
public:
    /// The file of the module of this name that is installed with the running program.
    [[nodiscard]] static std::string FileBesideProgram(const std::string& Name);
    /// The modules in the folder of this name that is installed with the running program's libraries, sorted. Throws
    /// EFileError.
    [[nodiscard]] static std::vector<std::string> FilesBesideProgram(const std::string& Folder);

    /// Loads the file, binding all of its symbols at once. Throws EModuleError.
    explicit TModule(const std::string& FileName);

    /// The function that it exports under this plain name. Throws EModuleError.
    template <typename TFunction> [[nodiscard]] TFunction* Function(const char* Name) const
    {
        return reinterpret_cast<TFunction*>(Symbol(Name));
    }

private:
    [[nodiscard]] void* Symbol(const char* Name) const;
    std::string FFileName;
    void* FHandle;
};
