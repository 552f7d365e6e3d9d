// What the command line takes, as values: completions and the manual are made from it, so that neither can drift.
#pragma once

#include <span>
#include <string>
#include <vector>

struct TCommand;

/// An option, or an operand, which has a form alone.
struct TOptionSyntax
{
    std::string Long;  ///< with its dashes
    std::string Short; ///< the same, or empty
    std::string Form;  ///< what its value looks like, empty for a flag; words parted by "|" are all that it may be
    std::string Description;

    /// The words that its value may be; empty where it may be anything.
    [[nodiscard]] std::vector<std::string> Choices() const;
};

/// A command, or the program without one.
struct TCommandSyntax
{
    std::string Name;
    std::string Description;
    std::vector<TOptionSyntax> Options;
    std::vector<TOptionSyntax> Operands;
};

/// The program itself, then its commands in their order.
[[nodiscard]] std::vector<TCommandSyntax> DescribeCommandLine(std::span<const TCommand> Commands);
