#include "host/QXOptions.h"
#include "host/QXProperties.h"

#include <stdexcept>

TQXPersistent::~TQXPersistent() = default;
TQXOptionsObject::~TQXOptionsObject() = default;

void TQXOptionsObject::LoadOptions(IQXOptionsReader& Reader)
{
    for (const TQXProperty& Property : Properties())
        if (Property.IsPersisted())
            if (const auto Value = Reader.ReadValue(Property))
                Property.Write(*Value);
    SetModified(false);
}

void TQXOptionsObject::SaveOptions(IQXOptionsWriter& Writer) const
{
    for (const TQXProperty& Property : Properties())
        if (Property.IsPersisted())
            Writer.WriteValue(Property);
}

const TQXProperty* TQXPersistent::FindProperty(std::string_view Name) const
{
    for (const TQXProperty& Property : FProperties)
        if (Property.Name == Name)
            return &Property;
    return nullptr;
}

const TQXProperty* TQXPersistent::FindMember(const void* Member) const
{
    for (const TQXProperty& Property : FProperties)
        if (Member && Property.Member == Member)
            return &Property;
    return nullptr;
}

TQXProperty& TQXPersistent::RowOf(const void* Member)
{
    for (TQXProperty& Property : FProperties)
        if (Property.Member == Member)
            return Property;
    throw std::logic_error("The member is not published");
}
