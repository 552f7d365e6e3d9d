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
#include <utility>
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

/// What a property's text is to its user.
enum class TQXTextKind {
    Text,       ///< taken as it stands
    Expression, ///< host variables in it are replaced when the action runs; so they are in the kinds below
    File,       ///< path of a file, or a mask
    Folder,     ///< path of a folder
    List        ///< several texts in one, parted by the property's separator
};

/// One published property of one object. Texts are literals: rows only refer to them.
struct TQXProperty
{
    std::string_view Name;
    std::string_view Meaning; ///< one line in plain words, without a full stop
    TQXPropertyType Type = TQXPropertyType::String;
    std::span<const std::string_view> Elements{}; ///< of an enumeration or a set
    const void* Member = nullptr;                 ///< the published member; null for accessors
    std::function<TQXPropertyValue()> Read;
    std::function<void(const TQXPropertyValue&)> Write{}; ///< empty: read-only, not persisted
    std::string_view AliasText{};                         ///< what pages call it, where its name does not say enough
    std::string_view HelpText{};                          ///< the long form of Meaning, where there is one
    std::string_view Example{};                           ///< of what validation asks for on a new object, else empty
    TQXTextKind Kind = TQXTextKind::Text;
    char Separator = '\0';             ///< of a list
    bool IsSecret = false;             ///< its value never reaches a log
    bool IsOrdinal = false;            ///< an option that is stored as the number of its element
    std::string_view StoredName{};     ///< of an option, where it is not Name
    std::function<bool()> MustStore{}; ///< whether a project stores it also where it is the default

    [[nodiscard]] bool IsPersisted() const { return static_cast<bool>(Write); }
    /// Whether validation asks for it on an object that has its defaults.
    [[nodiscard]] bool IsRequired() const { return !Example.empty(); }

    [[nodiscard]] bool IsAlwaysStored() const { return MustStore && MustStore(); }

    /// The name of an option in the options file.
    [[nodiscard]] std::string_view StoredUnder() const { return StoredName.empty() ? Name : StoredName; }

    // What rows say beside name, member and meaning.
    TQXProperty& Secret() { return Set(IsSecret, true); }
    TQXProperty& Expression() { return Set(Kind, TQXTextKind::Expression); }
    TQXProperty& File() { return Set(Kind, TQXTextKind::File); }
    TQXProperty& Folder() { return Set(Kind, TQXTextKind::Folder); }
    TQXProperty& List(char ASeparator) { return Set(Kind, TQXTextKind::List).Set(Separator, ASeparator); }
    TQXProperty& Alias(std::string_view AAlias) { return Set(AliasText, AAlias); }
    TQXProperty& StoredAs(std::string_view AName) { return Set(StoredName, AName); }
    TQXProperty& StoredAsOrdinal(std::string_view AName) { return StoredAs(AName).Set(IsOrdinal, true); }
    TQXProperty& StoredWhile(std::function<bool()> AMustStore) { return Set(MustStore, std::move(AMustStore)); }
    TQXProperty& Help(std::string_view AHelp) { return Set(HelpText, AHelp); }
    /// Validation asks for it on a new object; this value will do.
    TQXProperty& Required(std::string_view AExample) { return Set(Example, AExample); }

private:
    template <typename T> TQXProperty& Set(T& Field, T Value)
    {
        Field = std::move(Value);
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
    /// The property that publishes this member, or null.
    [[nodiscard]] const TQXProperty* FindMember(const void* Member) const;

protected:
    /// Adds a row for a member. Constructors call it, bases first; Name and Meaning are literals.
    template <typename T> TQXProperty& Publish(std::string_view Name, T& Member, std::string_view Meaning)
    {
        using TTraits = QXPropertyDetail::TTraits<T>;
        TQXProperty& Row = AddRow<T>(Name, Meaning, [&Member] { return TTraits::Get(Member); });
        Row.Member = &Member;
        Row.Write = [&Member](const TQXPropertyValue& Value) { TTraits::Set(Member, Value); };
        return Row;
    }

    /// Adds a row for a pair of accessors; without Setter the property is read-only and not persisted.
    template <typename T, typename TGetter>
    TQXProperty& PublishAccessors(std::string_view Name, std::string_view Meaning, TGetter Getter,
                                  std::function<void(const T&)> Setter = {})
    {
        using TTraits = QXPropertyDetail::TTraits<T>;
        TQXProperty& Row = AddRow<T>(Name, Meaning, [Getter] { return TTraits::Get(Getter()); });
        if (Setter)
            Row.Write = [Setter](const TQXPropertyValue& Value) {
                T Result{};
                TTraits::Set(Result, Value);
                Setter(Result);
            };
        return Row;
    }

    /// The row of a member that a base has published, to say more about it. Throws std::logic_error if there is none.
    template <typename T> TQXProperty& Published(const T& Member) { return RowOf(&Member); }

private:
    [[nodiscard]] TQXProperty& RowOf(const void* Member);
    template <typename T>
    TQXProperty& AddRow(std::string_view Name, std::string_view Meaning, std::function<TQXPropertyValue()> Read)
    {
        TQXProperty& Row = FProperties.emplace_back();
        Row.Name = Name;
        Row.Meaning = Meaning;
        Row.Type = QXPropertyDetail::TTraits<T>::Type;
        Row.Elements = QXPropertyDetail::Elements<T>();
        Row.Read = std::move(Read);
        return Row;
    }

    std::vector<TQXProperty> FProperties;
};
