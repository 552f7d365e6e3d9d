#pragma once

#include "host/QXServices.h"
#include "runtime/OptionsFile.h"
#include "runtime/services/ClassPages.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

/// The registered options classes and their objects.
class TOptionsServices final : public IQXOptionsServices
{
public:
    /// BeforeLookUp is called before each look-up: it registers what is not yet registered. File gives the options
    /// file from which objects are loaded.
    TOptionsServices(std::function<void()> BeforeLookUp, std::function<TOptionsFile&()> File)
        : FBeforeLookUp(std::move(BeforeLookUp)), FFile(std::move(File))
    {}

    /// Throws std::logic_error for a class that is registered already.
    void RegisterOptions(TQXOptionsClass OptionsClass, std::string ImageName) override;
    void RegisterOptionsPages(std::string_view OptionsClassName, std::span<const TQXPageClass> Pages) override
    {
        FRegistered.Pages.Add(OptionsClassName, Pages);
    }
    [[nodiscard]] std::span<const TQXOptionsRegistration> Options() const override;
    [[nodiscard]] std::span<const TQXPageClass> OptionsPages(std::string_view OptionsClassName) const override;
    [[nodiscard]] TQXOptionsObject* GetOptions(std::string_view Category, std::string_view Name) override;
    /// Writes the settings of a registered object to the file's text.
    void Store(const TQXOptionsRegistration& Registration);

    /// All that packages have registered.
    struct TRegistered
    {
        std::vector<TQXOptionsRegistration> Options;
        TClassPages Pages;
    };
    [[nodiscard]] const TRegistered& Registered() const { return FRegistered; }
    void Restore(TRegistered Registered) { FRegistered = std::move(Registered); }

private:
    [[nodiscard]] TQXOptionsObject& Object(const TQXOptionsClass& Class);

    std::function<void()> FBeforeLookUp;
    std::function<TOptionsFile&()> FFile;
    TRegistered FRegistered;
    std::map<std::string, std::unique_ptr<TQXOptionsObject>, std::less<>> FObjects; // by option key
};
