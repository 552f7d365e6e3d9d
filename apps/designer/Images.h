// Images and files that are installed with the program.
#pragma once

#include <QIcon>
#include <QString>

#include <string_view>

namespace Images
{
/// The image of this registered name; a plain one if there is none.
[[nodiscard]] QIcon Find(std::string_view Name);
/// What is installed for all systems: "help/Plugins/X.html".
[[nodiscard]] QString SharedFile(const QString& Name);
} // namespace Images
