#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The lines of a source file and the changes to be made in them. What is not changed keeps its bytes, line ends and
/// an encoding mark at the start among them.
class TSourceLines
{
public:
    /// Begins anew with the bytes of a file, which must last as long as the lines.
    void SetBytes(std::string_view Bytes);
    [[nodiscard]] bool IsEmpty() const { return FNext == FBytes.size(); }

    /// Goes to the next line, at first to the first one; false behind the last one.
    bool Next();
    /// The current line without its end, and the one before it, which is empty at the first line.
    [[nodiscard]] std::string_view Line() const { return FLine; }
    [[nodiscard]] std::string_view PreviousLine() const { return FPrevious; }
    /// Counts from 1.
    [[nodiscard]] int Number() const { return FNumber; }
    /// The place of a line of this text, for Insert.
    [[nodiscard]] std::size_t Place(std::string_view Line) const
    {
        return static_cast<std::size_t>(Line.data() - FBytes.data());
    }

    /// Puts Text in the place of that many bytes at the start of the current line.
    void ReplaceStart(std::size_t Length, std::string Text);
    /// Inserts a line at a place, behind those inserted there before, or behind the last line. Its end is that of the
    /// line gone to last.
    void Insert(std::optional<std::size_t> Place, std::string_view Line);

    [[nodiscard]] bool IsChanged() const { return !FChanges.empty(); }
    /// The bytes with all changes made, to be written one behind the other.
    [[nodiscard]] std::vector<std::string_view> Pieces() const;

    /// Whether all bytes of the file are UTF-8.
    [[nodiscard]] bool IsUtf8() const;
    /// A text from the file in UTF-8, and back. Bytes that are no UTF-8 anywhere in the file make it Windows-1252.
    [[nodiscard]] std::string Decode(std::string_view Bytes) const;
    /// Whether bytes from the file stand for this text.
    [[nodiscard]] bool IsSame(std::string_view Bytes, std::string_view Text) const;
    /// None for a text that Windows-1252 cannot hold.
    [[nodiscard]] std::optional<std::string> Encode(const std::string& Text) const;

private:
    struct TChange
    {
        std::size_t Start;
        std::size_t Length; ///< of what goes
        std::string Text;
    };

    void Add(TChange Change);

    std::string_view FBytes;
    std::string_view FLine;
    std::string_view FPrevious;
    std::string_view FLineEnd;
    std::size_t FNext = 0; ///< where the next line begins
    std::size_t FFeed = 0; ///< the first line feed from there on, or the end
    int FNumber = 0;
    std::vector<TChange> FChanges; ///< by their starts
    mutable std::optional<bool> FIsUtf8;
};
