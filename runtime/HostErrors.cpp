#include "runtime/HostErrors.h"

namespace
{
std::string Join(const std::vector<THostFinding>& Findings)
{
    std::string Result;
    for (const THostFinding& Finding : Findings)
        Result += (Result.empty() ? "" : "\n") + Finding.Text();
    return Result;
}
} // namespace

std::string THostFinding::Text() const
{
    std::string Place = File;
    for (const int Number : {Line, Column})
        if (Number > 0)
            Place += ":" + std::to_string(Number);
    return Place.empty() ? Message : Place + ": " + Message;
}

EHostFileError::EHostFileError(std::vector<THostFinding> Findings)
    : std::runtime_error(Join(Findings)),
      FFindings(std::make_shared<const std::vector<THostFinding>>(std::move(Findings)))
{}
