#include "runtime/services/OptionsServices.h"

#include <stdexcept>

namespace
{
class TFileReader final : public IQXOptionsReader
{
public:
    TFileReader(const TOptionsFile& File, std::string_view Key) : FFile(File), FKey(Key) {}
    std::string ReadString(std::string_view Name, std::string_view Default) override
    {
        return FFile.ReadString(FKey, Name).value_or(std::string(Default));
    }
    int ReadInteger(std::string_view Name, int Default) override
    {
        return FFile.ReadInteger(FKey, Name).value_or(Default);
    }
    std::optional<TQXPropertyValue> ReadValue(const TQXProperty& Property) override
    {
        return FFile.Read(FKey, Property);
    }

private:
    const TOptionsFile& FFile;
    std::string_view FKey;
};

class TFileWriter final : public IQXOptionsWriter
{
public:
    TFileWriter(TOptionsFile& File, std::string_view Key) : FFile(File), FKey(Key) {}
    void WriteString(std::string_view Name, std::string_view Value) override { FFile.WriteString(FKey, Name, Value); }
    void WriteInteger(std::string_view Name, int Value) override { FFile.WriteInteger(FKey, Name, Value); }
    void WriteValue(const TQXProperty& Property) override { FFile.Write(FKey, Property, Property.Read()); }

private:
    TOptionsFile& FFile;
    std::string_view FKey;
};
} // namespace

void TOptionsServices::RegisterOptions(TQXOptionsClass OptionsClass, std::string ImageName)
{
    for (const TQXOptionsRegistration& Registration : FRegistered.Options)
        if (Registration.OptionsClass.OptionKey == OptionsClass.OptionKey)
            throw std::logic_error("The options " + OptionsClass.OptionKey + " are registered twice");
    FRegistered.Options.push_back({std::move(OptionsClass), std::move(ImageName)});
}

std::span<const TQXOptionsRegistration> TOptionsServices::Options() const
{
    FBeforeLookUp();
    return FRegistered.Options;
}

std::span<const TQXPageClass> TOptionsServices::OptionsPages(std::string_view OptionsClassName) const
{
    FBeforeLookUp();
    return FRegistered.Pages.Of(OptionsClassName);
}

TQXOptionsObject* TOptionsServices::GetOptions(std::string_view Category, std::string_view Name)
{
    for (const TQXOptionsRegistration& Registration : Options())
        if (Registration.OptionsClass.Category == Category && Registration.OptionsClass.Name == Name)
            return &Object(Registration.OptionsClass);
    return nullptr;
}

TQXOptionsObject& TOptionsServices::Object(const TQXOptionsClass& Class)
{
    if (const auto Found = FObjects.find(Class.OptionKey); Found != FObjects.end())
        return *Found->second;
    auto Made = Class.Create();
    TFileReader Reader(FFile(), Class.OptionKey);
    Made->LoadOptions(Reader);
    return *FObjects.emplace(Class.OptionKey, std::move(Made)).first->second;
}

void TOptionsServices::Store(const TQXOptionsRegistration& Registration)
{
    TQXOptionsObject& Options = Object(Registration.OptionsClass);
    TFileWriter Writer(FFile(), Registration.OptionsClass.OptionKey);
    Options.SaveOptions(Writer);
    Options.SetModified(false);
}
