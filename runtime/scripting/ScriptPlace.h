#pragma once

/// Where a script is.
struct TScriptPlace
{
    int Line = 0;            ///< from 1; 0: in none
    bool IsInRegExp = false; ///< a regular expression is made or matched
};
