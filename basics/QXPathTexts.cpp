#include "QXPathTexts.h"

#include <algorithm>

std::string FolderOfPath(std::string_view Path)
{
    const std::size_t Last = Path.find_last_of("/\\");
    return std::string(Last == std::string_view::npos ? std::string_view() : Path.substr(0, Last + 1));
}

std::string JoinPath(std::string_view Folder, std::string_view Path)
{
    std::string Result(Folder);
    if (!Result.empty() && !IsDelimiter(Result.back()))
        Result += '/';
    return Result.append(Path);
}

std::vector<std::string> PathParts(std::string_view Path)
{
    std::vector<std::string> Result;
    const std::size_t Root = std::min(Path.find_first_not_of("/\\"), Path.size());
    for (std::size_t Begin = 0, End = Root; Begin < Path.size(); Begin = End + 1)
    {
        End = std::min(Path.find_first_of("/\\", std::max(End, Begin)), Path.size());
        if (End > Begin)
            Result.emplace_back(Path.substr(Begin, End - Begin));
    }
    return Result;
}

bool IsInFolder(std::string_view Path, std::string_view Folder)
{
    if (!Path.starts_with(Folder))
        return false;
    return Path.size() == Folder.size() || IsDelimiter(Folder.back()) || IsDelimiter(Path[Folder.size()]);
}

std::string LowerCase(std::string_view Text)
{
    std::string Result(Text);
    std::transform(Result.begin(), Result.end(), Result.begin(), [](char Character) {
        return Character >= 'A' && Character <= 'Z' ? static_cast<char>(Character - 'A' + 'a') : Character;
    });
    return Result;
}
