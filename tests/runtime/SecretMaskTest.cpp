#include "gtest/gtest.h"

#include "runtime/log/SecretMask.h"

#include <chrono>

namespace
{
struct TCase
{
    std::vector<std::string> Secrets;
    std::string Text;
    std::string Shown;
};

const TCase Cases[] = {
    {{}, "any", "any"},
    {{"", " \r\n\t"}, "a b", "a b"},
    {{"pass", "password"}, "password passes sword", "*** ***es sword"},
    {{"abcd", "cdef"}, "xabcdefx abcd-cdef", "x***x ***-***"},
    {{"aab"}, "aaab aabaab", "a*** ******"},
    {{"ab", "b", "bcd"}, "abcd abc", "*** ***c"},
    {{"one\r\ntwo words \n\n"}, "one;two words", "***;***"},
    {{"first;2; third"}, "/a:first /b:2 /c:third", "/a:*** /b:2 /c:***"},
    {{"a, b;c"}, "a, b;c a;b;c a,b,c a b", "*** *** *** a b"},
    {{R"(C:\keys/my)"}, R"(C:\keys/my C:/keys/my C:\keys\my C:\\keys\\my)", "*** *** *** ***"},
    {{R"(x"y\)"}, R"("x\"y\\" {"x\"y\\"} "x""y\")", R"("***" {"***"} "***")"},
    {{R"("ab cd")"}, R"("ab cd" ab cd)", "*** ***"},
    {{"it's"}, "it''s it's", "*** ***"},
    {{"a\tb c"}, R"("a\tb c" a	b c)", R"("***" ***)"},
    {{"k\xC3\xA9y"}, "k\xC3\xA9y k\xE9y k\xEF\xBF\xBDy", "*** *** ***"},
    {{"k\xE9y"}, "k\xC3\xA9y k\xE9y k\xEF\xBF\xBDy", "*** *** ***"},
    {{"\xE4\xB8\xAD"
      "1"},
     "\xE4\xB8\xAD"
     "12",
     "***2"},
    {{"\"", ";"}, "a\"b\\\";", "a***b******"},
};

TEST(SecretMask, CoversSecretsInAllForms)
{
    for (const TCase& Case : Cases)
    {
        TSecretMask Mask;
        for (const std::string& Secret : Case.Secrets)
            Mask.Add(Secret);
        std::string Buffer;
        EXPECT_EQ(Mask.Apply(Case.Text, Buffer), Case.Shown);
        // Wherever a text is cut, its parts show no more.
        for (std::size_t Length = 1; Length < Case.Text.size(); ++Length)
        {
            const std::size_t Place = Mask.PlaceToCut(Case.Text, Length);
            std::string Head(Mask.Apply(std::string_view(Case.Text).substr(0, Place), Buffer));
            EXPECT_EQ(Head.append(Mask.Apply(std::string_view(Case.Text).substr(Place), Buffer)), Case.Shown) << Place;
        }
    }
}

TEST(SecretMask, TakesTimeAsItsTextsAreLong)
{
    const auto Start = std::chrono::steady_clock::now();
    TSecretMask Mask;
    std::string Lines;
    for (int Number = 100'000; Number < 200'000; ++Number)
    {
        Mask.Add("token-" + std::to_string(Number));
        Lines.append("line ").append(std::to_string(Number)).append("\n");
    }
    Mask.Add(Lines);
    Mask.Add(std::string(100'000, 'a') + 'b');
    const std::string Text(1'000'000, 'a');
    std::string Buffer;
    EXPECT_EQ(Mask.Apply(Text, Buffer), Text);
    EXPECT_EQ(Mask.Apply(Text + "b token-123456", Buffer).substr(900'000), "*** ***");
    EXPECT_LT(std::chrono::steady_clock::now() - Start, std::chrono::seconds(20));
}
} // namespace
