#include "host/QXUtilities.h"

#include <algorithm>

namespace
{
class TStringTokeniser final : public IStringTokeniser
{
public:
    explicit TStringTokeniser(std::string_view Text) : FText(Text) {}

    void SetText(std::string_view Line) override
    {
        FText = Line;
        FPosition = 0;
    }

    void SkipWhiteSpace() override
    {
        while (FPosition < FText.size() && static_cast<unsigned char>(FText[FPosition]) <= ' ')
            ++FPosition;
    }

    std::string_view ReadUntilChar(char Delimiter) override { return ReadUntilAny({&Delimiter, 1}); }

    std::string_view ReadUntilAny(std::string_view Delimiters) override
    {
        SkipWhiteSpace();
        const std::size_t Start = FPosition;
        FPosition = std::min(FText.find_first_of(Delimiters, Start), FText.size());
        return FText.substr(Start, FPosition - Start);
    }

    std::string_view ReadRest() override { return ReadUntilAny({}); }

    char Next() override
    {
        FPosition = std::min(FPosition + 1, FText.size());
        return Current();
    }

    char Current() const override { return FPosition < FText.size() ? FText[FPosition] : '\0'; }

private:
    std::string_view FText;
    std::size_t FPosition = 0;
};
} // namespace

std::unique_ptr<IStringTokeniser> CreateStringTokeniser(std::string_view Text)
{
    return std::make_unique<TStringTokeniser>(Text);
}
