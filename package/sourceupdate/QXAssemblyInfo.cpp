#include "package/sourceupdate/QXAssemblyInfo.h"

#include "host/QXFiles.h"
#include "host/QXServices.h"
#include "host/QXUtilities.h"
#include "platform/Paths.h"
#include "platform/Text.h"

#include <algorithm>
#include <stdexcept>

namespace
{
/// Forgets something however the scope is left.
template <typename T> class TForgetAtEnd
{
public:
    explicit TForgetAtEnd(T& Object) : FObject(Object) {}
    ~TForgetAtEnd() { FObject.clear(); }
    TForgetAtEnd(const TForgetAtEnd&) = delete;
    TForgetAtEnd& operator=(const TForgetAtEnd&) = delete;

private:
    T& FObject;
};

/// Whether a declaration without quotes ends where its last parenthesis stands: Rest closes it or goes on in the next
/// line, and no parenthesis before it closes more than was opened.
bool IsClosedBehind(std::string_view Value, std::string_view Rest)
{
    int Depth = 0;
    for (const char Character : Value)
        if (Character == '(')
            ++Depth;
        else if (Character == ')' && --Depth < 0)
            return false;
    Rest = Texts::Trim(Rest);
    return Rest.empty() || Rest.starts_with(']') || Rest.starts_with('>') || Rest.starts_with("*/");
}

/// Whether a line begins like a declaration; most do not.
bool CanDeclare(std::string_view Line)
{
    const auto* First =
        std::find_if(Line.begin(), Line.end(), [](char Byte) { return static_cast<unsigned char>(Byte) > ' '; });
    return First != Line.end() && (*First == '<' || *First == '[' || *First == '/');
}
} // namespace

std::unique_ptr<IQXAssemblyInfoUpdater> NewAssemblyInfoUpdater(TAssemblyInfoMode Mode)
{
    return std::make_unique<TQXAssemblyInfo>(Mode);
}

void RegisterAssemblyInfoMethods()
{
    constexpr const char* ClassName = "TQXAssemblyInfo";
    using TArguments = std::span<const TQXVariant>;
    const auto Text = [](const TQXVariant& Argument) { return std::get<std::string>(Argument); };
    IQXScriptingServices& Services = QXScriptingServices();
    Services.RegisterMethod(QXScriptMethod<TQXAssemblyInfo>(
        ClassName, "AddEntry",
        {{"EntryName", TQXParamType::String},
         {"EntryValue", TQXParamType::String},
         {"IsQuoted", TQXParamType::Boolean}},
        [Text](TQXAssemblyInfo& Updater, TArguments Arguments) {
            Updater.AddScriptEntry(Text(Arguments[0]), Text(Arguments[1]), std::get<bool>(Arguments[2]));
            return TQXVariant();
        }));
    Services.RegisterMethod(QXScriptMethod<TQXAssemblyInfo>(ClassName, "RemoveEntry",
                                                            {{"EntryName", TQXParamType::String}},
                                                            [Text](TQXAssemblyInfo& Updater, TArguments Arguments) {
                                                                Updater.RemoveEntry(Text(Arguments[0]));
                                                                return TQXVariant();
                                                            }));
}

std::vector<TQXAssemblyInfo::TEntry>::iterator TQXAssemblyInfo::FindEntry(std::string_view Name)
{
    return std::find_if(Entries.begin(), Entries.end(),
                        [Name](const TEntry& Entry) { return Texts::Same(Entry.Name, Name); });
}

void TQXAssemblyInfo::AddEntry(const std::string& EntryName, const std::string& EntryValue, bool IsQuoted)
{
    const auto Found = EntryValue.empty() ? Entries.end() : FindEntry(EntryName);
    TEntry& Entry = Found == Entries.end() ? Entries.emplace_back() : *Found;
    Entry = {EntryName, EntryValue, IsQuoted};
}

void TQXAssemblyInfo::RemoveEntry(const std::string& EntryName)
{
    if (const auto Found = FindEntry(EntryName); Found != Entries.end())
        Entries.erase(Found);
}

void TQXAssemblyInfo::AddScriptEntry(const std::string& EntryName, const std::string& EntryValue, bool IsQuoted)
{
    AddEntry(EntryName, EntryValue, IsQuoted);
    if (Entries.size() <= MostEntries)
        return;
    Entries.pop_back();
    throw std::runtime_error("AddEntry adds no more than " + std::to_string(MostEntries) + " entries to a file");
}

std::function<void()> TQXAssemblyInfo::RememberState()
{
    return [this, Before = Entries] { Entries = Before; };
}

std::size_t TQXAssemblyInfo::StateSize() const
{
    std::size_t Size = Entries.size() * sizeof(TEntry);
    for (const TEntry& Entry : Entries)
        Size += Entry.Name.size() + Entry.Value.size();
    return Size;
}

bool TQXAssemblyInfo::ProcessFile(const std::string& AFileName, bool Backup)
{
    const TForgetAtEnd Forget(Entries);
    InsertIndex.reset();
    FileName = AFileName;
    if (!Load())
        return false;
    SetLanguage();
    if (Backup && !Mode.DryRun)
        Source->Backup(FileName + ".bak");
    if (FileLines.IsEmpty())
        return false;
    CallBack->OnProcessFile(FileName, *this);
    ScanLines();
    if (!Mode.UpdateOnly && !Entries.empty())
        AddNewEntries();
    if (FileLines.IsChanged() && Mode.DryRun)
        QXFiles().WillMake(FileName, ChangedBytes());
    else if (FileLines.IsChanged())
        SaveToFile(FileName);
    return true;
}

/// Says why the current file is left alone.
bool TQXAssemblyInfo::Refuse(std::string_view Reason) const
{
    SendMessage("File : " + FileName + std::string(Reason));
    return false;
}

/// Forgets the last file but for the form of its declarations.
void TQXAssemblyInfo::Leave()
{
    if (LastDeclaration)
        DeclarationClose = FileLines.Decode(CloseOf(*LastDeclaration));
    LastDeclaration.reset();
    FileLines.SetBytes({});
    Source.reset();
}

bool TQXAssemblyInfo::Load()
{
    Leave();
    Source.emplace(FileName, Mode.ReadAhead, Mode.Batch);
    if (Mode.DryRun ? !QXFiles().FileExists(FileName) : Source->State() == TFileRewrite::TState::Missing)
        return Refuse("- does not exist!");
    if (Source->State() == TFileRewrite::TState::ReadOnly)
        return Refuse("- is read only!");
    if (Mode.DryRun)
        Planned = QXFiles().Read(FileName);
    const std::string_view Bytes = Mode.DryRun ? Planned : Source->Bytes();
    const std::string Foreign(Texts::ForeignEncoding(Bytes));
    if (!Foreign.empty())
        return Refuse("- holds " + Foreign + ", only UTF-8 and 8-bit text can be updated!");
    FileLines.SetBytes(Bytes);
    return true;
}

void TQXAssemblyInfo::SetLanguage()
{
    FileExt = Texts::Lower(Paths::Extension(FileName));
    Language = AssemblyInfoLanguage(FileExt);
    QuoteChar = AssemblyInfoForm(Language).QuoteChar;
}

void TQXAssemblyInfo::SaveToFile(const std::string& AFileName)
{
    if (Source && AFileName == FileName)
        Source->Replace(FileLines.Pieces());
    else
        Files::ReplaceContent(AFileName, ChangedBytes());
}

std::string TQXAssemblyInfo::ChangedBytes() const
{
    std::string Bytes;
    for (const std::string_view Piece : FileLines.Pieces())
        Bytes += Piece;
    return Bytes;
}

void TQXAssemblyInfo::ScanLines()
{
    const auto Scanner = CreateStringTokeniser("");
    while (FileLines.Next() && !IsEndOfScan())
    {
        if (!CanDeclare(FileLines.Line()))
            continue;
        Scanner->SetText(FileLines.Line());
        TDeclaration Declaration;
        if (ReadDeclaration(*Scanner, Declaration))
            UpdateDeclaration(Declaration);
    }
}

/// Whether the part of a Pascal file that is scanned ends at this line; new lines then go before it, and before an
/// attribute that belongs to it.
bool TQXAssemblyInfo::IsEndOfScan()
{
    const std::string_view EndWord = AssemblyInfoEndWord(FileExt);
    if (EndWord.empty() || !Texts::Same(Texts::Trim(FileLines.Line()), EndWord))
        return false;
    const bool HasAttribute = Texts::Trim(FileLines.PreviousLine()).starts_with('[');
    InsertIndex = FileLines.Place(HasAttribute ? FileLines.PreviousLine() : FileLines.Line());
    return true;
}

bool TQXAssemblyInfo::ReadDeclaration(IStringTokeniser& Scanner, TDeclaration& Declaration)
{
    if (!ReadOpening(Scanner))
        return false;
    Scanner.Next();
    Declaration.Name = Scanner.ReadUntilChar('(');
    Scanner.Next();
    Scanner.SkipWhiteSpace();
    Declaration.IsVerbatim = Scanner.Current() == '@';
    if (Declaration.IsVerbatim)
        Scanner.Next();
    ValueQuoted = Scanner.Current() == QuoteChar;
    if (ValueQuoted)
        ReadQuotedValue(Scanner, Declaration);
    else
        ReadPlainValue(Scanner, Declaration);
    LastDeclaration = Declaration;
    return true;
}

bool TQXAssemblyInfo::ReadOpening(IStringTokeniser& Scanner)
{
    Scanner.SkipWhiteSpace();
    return Scanner.Current() == '/' ? ReadComment(Scanner) : ReadBracket(Scanner);
}

bool TQXAssemblyInfo::ReadBracket(IStringTokeniser& Scanner)
{
    const char Open = Scanner.Current();
    Scanner.Next();
    const std::string_view Word = Texts::Trim(Scanner.ReadUntilAny(": "));
    Scanner.SkipWhiteSpace();
    if (Scanner.Current() != ':' || !Texts::Same(Word, "assembly"))
        return false;
    DeclarationOpen = Open;
    DeclarationPrefix = std::string(Word) + ':';
    return true;
}

bool TQXAssemblyInfo::ReadComment(IStringTokeniser& Scanner)
{
    if (Scanner.Next() != '*' || Scanner.Next() != '*')
        return false;
    Scanner.Next();
    Scanner.SkipWhiteSpace();
    const std::string_view Word = Texts::Trim(Scanner.ReadUntilChar(' '));
    if (!Texts::Same(Word, "@assembly"))
        return false;
    DeclarationOpen = "/** ";
    DeclarationPrefix = Word;
    return true;
}

void TQXAssemblyInfo::ReadQuotedValue(IStringTokeniser& Scanner, TDeclaration& Declaration) const
{
    Scanner.Next();
    Declaration.Value = Scanner.ReadUntilChar(QuoteChar);
    Scanner.Next();
    Scanner.SkipWhiteSpace();
    Declaration.IsClosed = Scanner.Current() == ')';
    Scanner.Next();
    // What stands there instead of a parenthesis may be more than a byte.
    while (Texts::IsTrailByte(Scanner.Current()) && FileLines.IsUtf8())
        Scanner.Next();
    if (Scanner.Current() == ' ')
        Declaration.CloseBlank = " ";
    Declaration.Rest = Scanner.ReadRest();
}

/// The last parenthesis of the line closes a declaration without quotes.
void TQXAssemblyInfo::ReadPlainValue(IStringTokeniser& Scanner, TDeclaration& Declaration)
{
    const std::string_view Line = Scanner.ReadRest();
    const std::size_t Close = Line.rfind(')');
    const bool HasClose = Close != std::string_view::npos;
    Declaration.Value = HasClose ? Line.substr(0, Close) : std::string_view();
    Declaration.Rest = HasClose ? Line.substr(Close + 1) : Line;
    Declaration.IsClosed = HasClose && IsClosedBehind(Declaration.Value, Declaration.Rest);
}

void TQXAssemblyInfo::UpdateDeclaration(const TDeclaration& Declaration)
{
    const std::string Name = FileLines.Decode(Declaration.Name);
    std::string Value = FileLines.Decode(Declaration.Value);
    if (!ProcessEntry(Name, Declaration.Value, Value))
        return;
    std::string Text = DeclarationOpen + DeclarationPrefix + ' ';
    Text.append(Declaration.Name).append("(");
    if (ValueQuoted && Declaration.IsVerbatim)
        Text += '@';
    Text.append(Quoted(Encoded(Value, Name), ValueQuoted)).append(")").append(Declaration.CloseBlank);
    const std::size_t Length = FileLines.Line().size() - Declaration.Rest.size();
    if (!Mode.DryRun || FileLines.Line().substr(0, Length) != Text)
        ReportSetting(Name, Declaration.Value, Value);
    if (!Declaration.IsClosed)
        SendMessage("Warning - " + Name + " in line " + std::to_string(FileLines.Number()) +
                    " has no parenthesis behind its value, see whether the line still is right");
    FileLines.ReplaceStart(Length, std::move(Text));
}

/// Finds the value that a declaration is to have; true if it counts as changed, as it always does with an entry.
bool TQXAssemblyInfo::ProcessEntry(const std::string& Name, std::string_view OldValue, std::string& Value)
{
    const auto Found = FindEntry(Name);
    const bool HasEntry = Found != Entries.end();
    if (HasEntry)
    {
        Value = std::move(Found->Value);
        Entries.erase(Found);
    }
    CallBack->AssemblyInfoProcessEntry(FileName, Name, Value);
    return HasEntry || !FileLines.IsSame(OldValue, Value);
}

void TQXAssemblyInfo::ReportSetting(const std::string& Name, std::string_view OldValue, const std::string& Value) const
{
    const std::string New = Quoted(Value, ValueQuoted);
    if (!Mode.DryRun)
        SendMessage("Setting Attribute : " + Name + " Value : " + New);
    else if (FileLines.IsSame(OldValue, Value))
        SendMessage("Would change the layout of Attribute : " + Name + " Value : " + New);
    else
        SendMessage("Would set Attribute : " + Name + " Value : " + Quoted(FileLines.Decode(OldValue), ValueQuoted) +
                    " -> " + New);
}

void TQXAssemblyInfo::AddNewEntries()
{
    SendMessage("Processing new Attributes...");
    const TAssemblyInfoForm& Form = AssemblyInfoForm(Language);
    InsertLine(Form.BlockOpen);
    for (const TEntry& Entry : Entries)
        InsertLine(NewEntry(Entry));
    Entries.clear();
    InsertLine(Form.BlockClose);
}

void TQXAssemblyInfo::InsertLine(std::string_view Line)
{
    if (!Line.empty())
        FileLines.Insert(InsertIndex, Line);
}

/// New declarations look like the last one that was met, in this file or an earlier one.
std::string TQXAssemblyInfo::NewEntryStart() const
{
    const TAssemblyInfoForm& Form = AssemblyInfoForm(Language);
    if (DeclarationPrefix.empty())
        return std::string(Form.Open).append(Form.Prefix).append(" ");
    return DeclarationOpen + DeclarationPrefix + ' ';
}

std::string TQXAssemblyInfo::NewEntryClose() const
{
    if (DeclarationPrefix.empty())
        return std::string(AssemblyInfoForm(Language).Close);
    const std::optional<std::string> Close =
        LastDeclaration ? CloseOf(*LastDeclaration) : FileLines.Encode(DeclarationClose);
    if (Close && !Close->empty())
        return *Close;
    // The last declaration goes on in its next line, or was followed by letters that this file cannot hold.
    return DeclarationOpen == "<" ? ">" : DeclarationOpen == "[" ? "]" : " */";
}

/// What stands behind a declaration's closing parenthesis.
std::string TQXAssemblyInfo::CloseOf(const TDeclaration& Declaration)
{
    return std::string(Declaration.CloseBlank).append(Declaration.Rest);
}

std::string TQXAssemblyInfo::NewEntry(const TEntry& Entry) const
{
    SendMessage((Mode.DryRun ? "Would add Entry : " : "Adding Entry : ") + Entry.Name +
                " Value : " + Quoted(Entry.Value, Entry.IsQuoted));
    std::string Line = NewEntryStart() + Encoded(Entry.Name, Entry.Name);
    if (Language == TQXAssemblyInfoLanguage::alCPP)
        Line += "Attribute";
    return Line + '(' + Quoted(Encoded(Entry.Value, Entry.Name), Entry.IsQuoted) + ')' + NewEntryClose();
}

std::string TQXAssemblyInfo::Quoted(std::string_view Value, bool IsQuoted) const
{
    const std::string Quote(IsQuoted ? 1 : 0, QuoteChar);
    return std::string(Quote).append(Value).append(Quote);
}

/// A text of an entry as the file is to hold it.
std::string TQXAssemblyInfo::Encoded(const std::string& Text, const std::string& EntryName) const
{
    constexpr std::string_view Nul("\0", 1);
    if (Text.find_first_of("\r\n") != std::string::npos || Text.find(Nul) != std::string::npos)
        throw EFileError(FileName, Texts::Replace(EntryName, Nul, "?") +
                                       " is to hold a line end or a NUL character, which no declaration can");
    std::optional<std::string> Bytes = FileLines.Encode(Text);
    if (!Bytes)
        throw EFileError(FileName, EntryName + " is to hold characters that Windows-1252, in which the file counts as "
                                               "written, does not have");
    return *std::move(Bytes);
}
