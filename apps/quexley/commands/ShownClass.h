// The classes that `show` knows, by their names.
#pragma once

#include "host/QXServices.h"

#include <memory>
#include <string>
#include <string_view>

class TQXRuntime;

/// A new object of a registered class, and what its class is called.
struct TShownClass
{
    std::string ClassName;
    std::string Title;
    std::string QuickHelpFilename; ///< of an action
    std::unique_ptr<TQXPersistent> Object;
    TCustomQXAction* Action = nullptr; ///< the object, if it is an action
    TStringList Hidden;                ///< properties that the designer does not list

    [[nodiscard]] bool IsHidden(std::string_view Name) const;
};

/// The class of this class name, or of this registered name, an action's before that of options; case counts only
/// between classes that nothing else tells apart. Throws EUsageError with the nearest name, or the names that fit.
[[nodiscard]] TShownClass FindShownClass(TQXRuntime& Runtime, const std::string& Name);

/// A table for a project file that validates, with what an action requires.
[[nodiscard]] std::string ExampleBlock(const TShownClass& Action);
