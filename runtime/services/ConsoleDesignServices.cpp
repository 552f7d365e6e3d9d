#include "runtime/services/ConsoleDesignServices.h"

#include "runtime/Variables.h"

#include <stdexcept>

std::string TConsoleDesignServices::ExpandDesignTime(std::string_view Expression)
{
    TExpansion Expansion = TVariables().Expand(Expression);
    if (!Expansion.Succeeded)
        throw std::runtime_error(Expansion.Reason);
    return std::move(Expansion.Text);
}
