#pragma once

#include "host/QXProperties.h"

#include <optional>
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
    /// The stored value of a property, none when nothing is stored. Throws the host's error for a value that the
    /// property cannot hold.
    [[nodiscard]] virtual std::optional<TQXPropertyValue> ReadValue(const TQXProperty& Property) = 0;
};

/// Takes the settings of an options object.
class IQXOptionsWriter
{
public:
    virtual ~IQXOptionsWriter() = default;
    virtual void WriteString(std::string_view Name, std::string_view Value) = 0;
    virtual void WriteInteger(std::string_view Name, int Value) = 0;
    /// Writes the value that a property has.
    virtual void WriteValue(const TQXProperty& Property) = 0;
};

/// A set of machine-wide settings. The host makes one object of each registered class when it is first
/// asked for, and loads it.
class TQXOptionsObject : public TQXPersistent
{
public:
    ~TQXOptionsObject() override;
    /// Takes over what is stored of the published properties; the others stay as they are. The object counts as
    /// unmodified then. What an override does besides comes behind.
    virtual void LoadOptions(IQXOptionsReader& Reader);
    /// Writes all published properties.
    virtual void SaveOptions(IQXOptionsWriter& Writer) const;

    /// Whether a setting changed since it was loaded.
    [[nodiscard]] bool IsModified() const { return FModified; }
    void SetModified(bool Modified) { FModified = Modified; }

protected:
    /// As that of the base; a write that changes the value marks the object as modified.
    template <typename T> TQXProperty& Publish(std::string_view Name, T& Member, std::string_view Meaning)
    {
        TQXProperty& Row = TQXPersistent::Publish(Name, Member, Meaning);
        Row.Write = [this, &Member](const TQXPropertyValue& Value) {
            T Changed = Member;
            QXPropertyDetail::TTraits<T>::Set(Changed, Value);
            Change(Member, Changed);
        };
        return Row;
    }

    /// Gives a setting a value; another one than it had marks the object as modified. For setters.
    template <typename T, typename TValue> void Change(T& Member, const TValue& Value)
    {
        if (Member == Value)
            return;
        Member = Value;
        FModified = true;
    }

private:
    bool FModified = false;
};
