#pragma once

#include "host/QXProperties.h"

#include <string>
#include <string_view>

/// Gives an options object its stored settings.
class IQXOptionsReader
{
public:
    virtual ~IQXOptionsReader() = default;
    /// The stored value, or Default when nothing is stored under Name.
    [[nodiscard]] virtual std::string ReadString(std::string_view Name, std::string_view Default) = 0;
    [[nodiscard]] virtual int ReadInteger(std::string_view Name, int Default) = 0;
};

/// Takes the settings of an options object.
class IQXOptionsWriter
{
public:
    virtual ~IQXOptionsWriter() = default;
    virtual void WriteString(std::string_view Name, std::string_view Value) = 0;
    virtual void WriteInteger(std::string_view Name, int Value) = 0;
};

/// A set of machine-wide settings. The host makes one object of each registered class when it is first
/// asked for, and loads it.
class TQXOptionsObject : public TQXPersistent
{
public:
    ~TQXOptionsObject() override;
    virtual void LoadOptions(IQXOptionsReader& Reader) = 0;
    virtual void SaveOptions(IQXOptionsWriter& Writer) const = 0;

    /// Whether a setting changed since it was loaded.
    [[nodiscard]] bool IsModified() const { return FModified; }
    void SetModified(bool Modified) { FModified = Modified; }

private:
    bool FModified = false;
};
