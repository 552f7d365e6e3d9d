#pragma once

#include "host/QXServices.h"

/// Edits the project file of the C# project compiler; the editors of the other project compilers differ in
/// extension and filter.
class TQXCSharpProjectEditor : public TFileNameEdit
{
public:
    [[nodiscard]] std::string GetDefaultExtension() const override { return "csproj"; }
    [[nodiscard]] std::string GetFilter() const override { return "C# Projects (*.csproj)|*.csproj"; }
    [[nodiscard]] std::string GetDialogTitle() const override { return "Select Project File"; }
};

class TQXVBProjectEditor final : public TQXCSharpProjectEditor
{
public:
    [[nodiscard]] std::string GetDefaultExtension() const override { return "vbproj"; }
    [[nodiscard]] std::string GetFilter() const override { return "VB.NET Projects (*.vbproj)|*.vbproj"; }
};

class TQXJSharpProjectEditor final : public TQXCSharpProjectEditor
{
public:
    [[nodiscard]] std::string GetDefaultExtension() const override { return "vjsproj"; }
    [[nodiscard]] std::string GetFilter() const override { return "J# Projects (*.vjsproj)|*.vjsproj"; }
};

class TQXCSharpBuilderProjectEditor final : public TQXCSharpProjectEditor
{
public:
    [[nodiscard]] std::string GetDefaultExtension() const override { return "bdsproj"; }
    [[nodiscard]] std::string GetFilter() const override { return "C# Builder Projects (*.bdsproj)|*.bdsproj"; }
};
