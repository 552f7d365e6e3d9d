// What the tests of the package share: a host that knows the package, stand-in tools and a folder to work in.
#pragma once

#include "gtest/gtest.h"

#include "package/plugin/QXDotNetReg.h"
#include "tests/runtime/TestHost.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

/// A folder that is the current one as long as the object lives.
class TWorkFolder
{
public:
    TWorkFolder();
    ~TWorkFolder();
    TWorkFolder(const TWorkFolder&) = delete;
    TWorkFolder& operator=(const TWorkFolder&) = delete;

    [[nodiscard]] const std::string& Path() const { return FPath; }
    /// Writes a file below the folder, with its folders; gives its full path.
    std::string Write(const std::string& Name, const std::string& Content = "") const;
    [[nodiscard]] std::string Read(const std::string& Name) const;
    [[nodiscard]] bool Exists(const std::string& Name) const { return std::filesystem::exists(FPath + '/' + Name); }

private:
    std::filesystem::path FOld;
    std::string FPath;
};

/// A host with the package, one .NET version "v2.0" and empty files for its tools.
class TPackageHost : public TTestHost
{
public:
    TPackageHost();
    /// Puts programs that do as they are told in the place of the tools that a project load runs.
    void UseStandInTools() const;
    /// A new object of a registered class.
    [[nodiscard]] std::unique_ptr<TCustomQXAction> Create(const std::string& ClassName);
    template <typename T> [[nodiscard]] std::unique_ptr<T> Create(const std::string& ClassName)
    {
        auto Action = Create(ClassName);
        return std::unique_ptr<T>(dynamic_cast<T*>(Action.release()));
    }

    TWorkFolder Folder;
    std::string Tools; ///< framework and SDK folder
};

/// Sets a property from its text in a project file; false for a property or a value that does not exist.
[[nodiscard]] bool SetProperty(TCustomQXAction& Action, const std::string& Name, const std::string& Value);
/// The lines of a text, without their CR LF.
[[nodiscard]] std::vector<std::string> Lines(const std::string& Text);
