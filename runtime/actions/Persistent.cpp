#include "host/QXOptions.h"
#include "host/QXProperties.h"

TQXPersistent::~TQXPersistent() = default;
TQXOptionsObject::~TQXOptionsObject() = default;

const TQXProperty* TQXPersistent::FindProperty(std::string_view Name) const
{
    for (const TQXProperty& Property : FProperties)
        if (Property.Name == Name)
            return &Property;
    return nullptr;
}
