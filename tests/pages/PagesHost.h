// What the tests of pages share.
#pragma once

#include "runtime/Packages.h"
#include "runtime/forms/PageDriver.h"
#include "tests/package/PackageTest.h"

#include <sstream>
#include <string>
#include <vector>

/// A host with the package as at design time.
class TPagesHost final : public TPackageHost
{
public:
    TPagesHost()
    {
        Runtime.SetPackageSource([] {
            QXRegister(true);
            LoadNamedPackages({QUEXLEY_BINARY_DIR "/lib/quexley/QX40Basics.so"}, true);
        });
    }

    /// Installs .NET versions of these names.
    void UseVersions(const std::string& Names)
    {
        std::vector<TFakeDotNetVersion> Versions;
        std::istringstream Words(Names);
        for (std::string Name; Words >> Name;)
            Versions.push_back({Name, Tools, Tools});
        SetDotNetVersions(std::move(Versions));
    }

    /// The answers to requests, one a line.
    std::vector<std::string> Drive(const std::string& ClassName, const std::string& Requests)
    {
        std::istringstream In(Requests);
        std::ostringstream Out;
        if (const TQXActionRegistration* Action = Runtime.ActionServices().FindAction(ClassName))
        {
            const auto Object = Action->ActionClass.Create();
            DrivePages(Runtime,
                       {*Object, Object.get(), nullptr, Runtime.ActionServices().ActionPages(ClassName),
                        Action->ActionClass.HelpTopicID},
                       In, Out);
        }
        else
            for (const TQXOptionsRegistration& Options : Runtime.OptionsServices().Options())
                if (Options.OptionsClass.ClassName == ClassName)
                {
                    const auto Object = Options.OptionsClass.Create();
                    DrivePages(Runtime,
                               {*Object, nullptr, Object.get(), Runtime.OptionsServices().OptionsPages(ClassName), 0},
                               In, Out);
                }
        return Lines(Out.str());
    }
};
