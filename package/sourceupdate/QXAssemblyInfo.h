#pragma once

#include "host/QXScript.h"
#include "package/sourceupdate/QXAssemblyInfoLanguage.h"
#include "package/sourceupdate/QXAssemblyInfoUpdater.h"
#include "package/sourceupdate/QXSourceLines.h"
#include "platform/FileRewrite.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class IStringTokeniser;

/// The updater, a scanner that sees one line at a time and leaves alone what it does not recognise.
class TQXAssemblyInfo final : public TQXPersistent, public IQXAssemblyInfoUpdater, public IQXScriptTarget
{
public:
    /// To which a script can bring the entries of a file.
    static constexpr std::size_t MostEntries = 10000;

    explicit TQXAssemblyInfo(TAssemblyInfoMode AMode) : Mode(AMode) {}

    void SaveToFile(const std::string& FileName) override;
    void SetCallBack(IQXAssemblyInfoCallBack& ACallBack) override { CallBack = &ACallBack; }
    void AddEntry(const std::string& EntryName, const std::string& EntryValue, bool IsQuoted) override;
    void RemoveEntry(const std::string& EntryName) override;
    [[nodiscard]] TQXPersistent& GetImplementation() override { return *this; }
    [[nodiscard]] bool ProcessFile(const std::string& AFileName, bool Backup) override;
    [[nodiscard]] std::function<void()> RememberState() override;
    [[nodiscard]] std::size_t StateSize() const override;
    /// As AddEntry; throws std::runtime_error when there are too many.
    void AddScriptEntry(const std::string& EntryName, const std::string& EntryValue, bool IsQuoted);

private:
    struct TEntry
    {
        std::string Name;
        std::string Value;
        bool IsQuoted;
    };

    /// A declaration as it stands in its line.
    struct TDeclaration
    {
        std::string_view Name;
        std::string_view Value;
        bool IsVerbatim = false;
        bool IsClosed = true;        ///< a parenthesis follows the value
        std::string_view CloseBlank; ///< stands for the blanks before the rest
        std::string_view Rest;       ///< what stays as it is
    };

    [[nodiscard]] std::vector<TEntry>::iterator FindEntry(std::string_view Name);
    [[nodiscard]] bool Refuse(std::string_view Reason) const;
    [[nodiscard]] bool Load();
    void Leave();
    void SetLanguage();
    void ScanLines();
    [[nodiscard]] bool IsEndOfScan();

    [[nodiscard]] bool ReadDeclaration(IStringTokeniser& Scanner, TDeclaration& Declaration);
    [[nodiscard]] bool ReadOpening(IStringTokeniser& Scanner);
    [[nodiscard]] bool ReadBracket(IStringTokeniser& Scanner);
    [[nodiscard]] bool ReadComment(IStringTokeniser& Scanner);
    void ReadQuotedValue(IStringTokeniser& Scanner, TDeclaration& Declaration) const;
    static void ReadPlainValue(IStringTokeniser& Scanner, TDeclaration& Declaration);

    /// The current file with its changes.
    [[nodiscard]] std::string ChangedBytes() const;
    void UpdateDeclaration(const TDeclaration& Declaration);
    [[nodiscard]] bool ProcessEntry(const std::string& Name, std::string_view OldValue, std::string& Value);
    void ReportSetting(const std::string& Name, std::string_view OldValue, const std::string& Value) const;

    void AddNewEntries();
    [[nodiscard]] std::string NewEntryStart() const;
    [[nodiscard]] std::string NewEntryClose() const;
    [[nodiscard]] static std::string CloseOf(const TDeclaration& Declaration);
    [[nodiscard]] std::string NewEntry(const TEntry& Entry) const;
    void InsertLine(std::string_view Line);

    void SendMessage(const std::string& Message) const { CallBack->AssemblyInfoProcessMessage(Message); }
    [[nodiscard]] std::string Quoted(std::string_view Value, bool IsQuoted) const;
    [[nodiscard]] std::string Encoded(const std::string& Text, const std::string& EntryName) const;

    TSourceLines FileLines; ///< of Source
    std::string FileName;
    std::string FileExt;
    IQXAssemblyInfoCallBack* CallBack = nullptr;
    std::string DeclarationPrefix;
    std::string DeclarationOpen;
    std::string DeclarationClose = " ]";         ///< of the files before this one
    std::optional<TDeclaration> LastDeclaration; ///< of this one
    bool ValueQuoted = false;
    std::vector<TEntry> Entries;
    std::optional<std::size_t> InsertIndex; ///< the place of new lines; none: behind the last one
    char QuoteChar = '"';
    TQXAssemblyInfoLanguage Language = TQXAssemblyInfoLanguage::alOther;
    TAssemblyInfoMode Mode;
    std::optional<TFileRewrite> Source; ///< the current file
    std::string Planned;                ///< in a dry run what the file would hold by now
};
