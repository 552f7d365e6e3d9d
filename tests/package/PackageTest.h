// What the tests of the package share: a host that knows the package, stand-in tools and a folder to work in.
#pragma once

#include "gtest/gtest.h"

#include "package/plugin/QXDotNetReg.h"
#include "tests/TempFolder.h"
#include "tests/runtime/PropertyTexts.h"
#include "tests/runtime/TestHost.h"

#include <memory>
#include <string>
#include <vector>

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

/// The lines of a text, without their CR LF.
[[nodiscard]] std::vector<std::string> Lines(const std::string& Text);
