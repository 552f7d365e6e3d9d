#pragma once

#include "host/QXAction.h"

#include <string>
#include <string_view>

/// Puts GUID and version of the type library that a COM class has on this machine into a reference of a project file.
class TQXDotNetComReferenceFixAction final : public TQXAction
{
public:
    TQXDotNetComReferenceFixAction();

    static std::string GetActionName() { return "Fix TlbImp Project Reference"; }
    static int GetHelpTopicID() { return 4220; }
    static std::string GetQuickHelpFilename() { return "Plugins\\ComRefAction.html"; }

    [[nodiscard]] bool Execute() override;

    std::string ProgID;
    std::string ReferenceName;
    std::string ProjectFile;

private:
    [[nodiscard]] bool CheckProjectFile(const std::string& FileName) const;
};

/// The path of the elements that a project of this file's kind holds for wrapped type libraries, with %s for the
/// reference's name; empty for files of other kinds.
[[nodiscard]] std::string ProjectTypeFromFileExt(std::string_view FileName);
