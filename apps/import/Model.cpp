#include "apps/import/Model.h"

#include "platform/Paths.h"
#include "platform/Text.h"

#include <algorithm>

std::string TConfigurationText::With(std::string_view Value) const
{
    return HasVariable ? Before + std::string(Value) + After : Before;
}

std::string TConfigurationText::Expression() const
{
    return EscapeExpression(Before) + (HasVariable ? "%Config%" : "") + EscapeExpression(After);
}

std::string TImportModel::Relative(const std::string& Path) const
{
    return RelativePath(Path, BaseFolder);
}

std::string RelativePath(const std::string& Path, const std::string& Folder)
{
    const std::string Result = Paths::RelativeTo(Path, Folder);
    return NativePathStyle == TPathStyle::Windows ? Texts::Replace(Result, "\\", "/") : Result;
}

std::string OneLine(std::string_view Text)
{
    std::string Line = Texts::MakeValidUtf8(Text);
    std::replace_if(
        Line.begin(), Line.end(),
        [](char Character) { return static_cast<unsigned char>(Character) < 0x20 || Character == 0x7F; }, ' ');
    return Line;
}

std::string EscapeExpression(std::string_view Text)
{
    return Texts::Replace(Text, "%", "%%");
}
