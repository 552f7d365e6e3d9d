// Published properties: each class names its persisted properties once, in order. Loading, saving,
// listing, schema, scripts and type checks all work from that table.
#pragma once

#include "host/QXStringList.h"

#include <array>
#include <bitset>
#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

/// What kind of value a property holds, and so how a project file writes it.
enum class TQXPropertyType { String, Boolean, Integer, Enumeration, Set, StringList };

/// A property's value in transit: an enumeration is its element's name, a set the names of its elements,
/// a string list its lines.
using TQXPropertyValue = std::variant<std::string, bool, int, std::vector<std::string>>;

/// An enumeration whose element names are declared beside it, as
///     constexpr auto QXElements(TColour) { return std::array<std::string_view, 2>{"Red", "Green"}; }
/// in the order of the elements, which count from 0.
template <typename T>
concept TQXEnumeration = std::is_enum_v<T> && requires(T Element)
{
    QXElements(Element).size();
};

/// The element names of an enumeration, alive as long as the program.
template <TQXEnumeration T> std::span<const std::string_view> QXElementNames()
{
    static constexpr auto Names = QXElements(T{});
    return Names;
}

/// The name of an element.
template <TQXEnumeration T> std::string_view QXElementName(T Element)
{
    return QXElementNames<T>()[static_cast<std::size_t>(Element)];
}

/// A set of elements of an enumeration.
template <TQXEnumeration T> class TQXSet
{
public:
    [[nodiscard]] bool Contains(T Element) const { return FBits.test(static_cast<std::size_t>(Element)); }
    void Include(T Element) { FBits.set(static_cast<std::size_t>(Element)); }
    void Exclude(T Element) { FBits.reset(static_cast<std::size_t>(Element)); }
    void Clear() { FBits.reset(); }
    [[nodiscard]] bool IsEmpty() const { return FBits.none(); }
    bool operator==(const TQXSet&) const = default;

private:
    std::bitset<QXElements(T{}).size()> FBits;
};

/// One published property of one object.
struct TQXProperty
{
    std::string_view Name;
    TQXPropertyType Type = TQXPropertyType::String;
    std::span<const std::string_view> Elements{}; ///< of an enumeration or a set
    std::function<TQXPropertyValue()> Read;
    std::function<void(const TQXPropertyValue&)> Write; ///< empty: read-only, not persisted
    bool IsSecret = false;                              ///< its value never reaches a log

    [[nodiscard]] bool IsPersisted() const { return static_cast<bool>(Write); }
    TQXProperty& Secret()
    {
        IsSecret = true;
        return *this;
    }
};

namespace QXPropertyDetail
{
/// The value in transit for each type of member: its kind, and the way there and back.
template <typename T> struct TTraits;

template <> struct TTraits<std::string>
{
    static constexpr auto Type = TQXPropertyType::String;
    static TQXPropertyValue Get(const std::string& Member) { return Member; }
    static void Set(std::string& Member, const TQXPropertyValue& Value) { Member = std::get<std::string>(Value); }
};

template <> struct TTraits<bool>
{
    static constexpr auto Type = TQXPropertyType::Boolean;
    static TQXPropertyValue Get(bool Member) { return Member; }
    static void Set(bool& Member, const TQXPropertyValue& Value) { Member = std::get<bool>(Value); }
};

template <> struct TTraits<int>
{
    static constexpr auto Type = TQXPropertyType::Integer;
    static TQXPropertyValue Get(int Member) { return Member; }
    static void Set(int& Member, const TQXPropertyValue& Value) { Member = std::get<int>(Value); }
};

template <> struct TTraits<TStringList>
{
    static constexpr auto Type = TQXPropertyType::StringList;
    static TQXPropertyValue Get(const TStringList& Member) { return Member.Items(); }
    static void Set(TStringList& Member, const TQXPropertyValue& Value)
    {
        Member = TStringList(std::get<std::vector<std::string>>(Value));
    }
};

/// An unknown name leaves the member as it is: whoever writes has checked the name against Elements.
template <TQXEnumeration T> bool FindElement(std::string_view Name, T& Element)
{
    const auto Names = QXElementNames<T>();
    for (std::size_t Index = 0; Index < Names.size(); ++Index)
        if (Names[Index] == Name)
        {
            Element = static_cast<T>(Index);
            return true;
        }
    return false;
}

template <TQXEnumeration T> struct TTraits<T>
{
    static constexpr auto Type = TQXPropertyType::Enumeration;
    static TQXPropertyValue Get(T Member) { return std::string(QXElementName(Member)); }
    static void Set(T& Member, const TQXPropertyValue& Value) { FindElement(std::get<std::string>(Value), Member); }
};

template <TQXEnumeration T> struct TTraits<TQXSet<T>>
{
    static constexpr auto Type = TQXPropertyType::Set;
    static TQXPropertyValue Get(const TQXSet<T>& Member)
    {
        std::vector<std::string> Names;
        for (std::size_t Index = 0; Index < QXElementNames<T>().size(); ++Index)
            if (Member.Contains(static_cast<T>(Index)))
                Names.emplace_back(QXElementNames<T>()[Index]);
        return Names;
    }
    static void Set(TQXSet<T>& Member, const TQXPropertyValue& Value)
    {
        Member.Clear();
        for (const std::string& Name : std::get<std::vector<std::string>>(Value))
            if (T Element{}; FindElement(Name, Element))
                Member.Include(Element);
    }
};

template <typename T> std::span<const std::string_view> Elements()
{
    return {};
}
template <TQXEnumeration T> std::span<const std::string_view> Elements()
{
    return QXElementNames<T>();
}
template <typename T>
requires requires(T Set)
{
    []<typename E>(const TQXSet<E>&) {}(Set);
}
std::span<const std::string_view> Elements()
{
    return []<typename E>(const TQXSet<E>&) { return QXElementNames<E>(); }(T{});
}
} // namespace QXPropertyDetail

/// Base of every object whose properties are stored: actions and options objects.
class TQXPersistent
{
public:
    TQXPersistent() = default;
    virtual ~TQXPersistent();
    TQXPersistent(const TQXPersistent&) = delete;
    TQXPersistent& operator=(const TQXPersistent&) = delete;

    /// The table, in the order of declaration, in which properties are restored and saved.
    [[nodiscard]] const std::vector<TQXProperty>& Properties() const { return FProperties; }
    /// The property of exactly this name, or null.
    [[nodiscard]] const TQXProperty* FindProperty(std::string_view Name) const;

protected:
    /// Adds a row for a member. Constructors call it, bases first; Name is a literal.
    template <typename T> TQXProperty& Publish(std::string_view Name, T& Member)
    {
        using TTraits = QXPropertyDetail::TTraits<T>;
        return FProperties.emplace_back(TQXProperty{
            Name, TTraits::Type, QXPropertyDetail::Elements<T>(), [&Member] { return TTraits::Get(Member); },
            [&Member](const TQXPropertyValue& Value) { TTraits::Set(Member, Value); }});
    }

    /// Adds a row for a pair of accessors; without Setter the property is read-only and not persisted.
    template <typename T, typename TGetter>
    TQXProperty& PublishAccessors(std::string_view Name, TGetter Getter, std::function<void(const T&)> Setter = {})
    {
        using TTraits = QXPropertyDetail::TTraits<T>;
        std::function<void(const TQXPropertyValue&)> Write;
        if (Setter)
            Write = [Setter](const TQXPropertyValue& Value) {
                T Result{};
                TTraits::Set(Result, Value);
                Setter(Result);
            };
        return FProperties.emplace_back(TQXProperty{Name, TTraits::Type, QXPropertyDetail::Elements<T>(),
                                                    [Getter] { return TTraits::Get(Getter()); }, std::move(Write)});
    }

private:
    std::vector<TQXProperty> FProperties;
};
