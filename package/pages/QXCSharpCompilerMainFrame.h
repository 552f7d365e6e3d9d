#pragma once

#include "package/pages/QXFileFilters.h"
#include "package/pages/QXListCompilerFrames.h"

class TCSharpCompilerMainFrame final : public TListCompilerMainFrame
{
public:
    TCSharpCompilerMainFrame();

    TEdit txtDoco{*this, "txtDoco", "Documentation Comments to XML file:"};
    TOutputGroup Output{*this, FileFilters::TextFiles};
    TSearchGroup Search{*this, "Optional - Blank = All Subdirectories", "cs"};
};
