// Images and files that are installed with the program.
#pragma once

#include <QIcon>
#include <QString>

#include <string_view>

namespace Images
{
/// The image of this registered name; a plain one if there is none.
[[nodiscard]] QIcon Find(std::string_view Name);
/// A file that is installed for the programs to read, as "help/Plugins/X.html"; found ignoring case.
[[nodiscard]] QString SharedFile(const QString& Name);
} // namespace Images
