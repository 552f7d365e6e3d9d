#include "apps/quexley/Syntax.h"

#include <algorithm>
#include <cstddef>

std::vector<std::string> TOptionSyntax::Choices() const
{
    const bool IsChoice = Form.find('|') != std::string::npos && std::all_of(Form.begin(), Form.end(), [](char Letter) {
                              return Letter == '|' || (Letter >= 'a' && Letter <= 'z');
                          });
    std::vector<std::string> Result;
    for (std::size_t Start = 0; IsChoice && Start <= Form.size();)
    {
        const std::size_t End = std::min(Form.find('|', Start), Form.size());
        Result.push_back(Form.substr(Start, End - Start));
        Start = End + 1;
    }
    return Result;
}
