// Which version of a type library is the current one. What the action does is in data/comreferences.txt.
#include "package/sourceupdate/QXTypeLibrarySearch.h"

#include "gtest/gtest.h"

TEST(ComReference, TheCurrentVersionIsTheLargestDecimal)
{
    const std::pair<std::vector<std::string>, std::string> Cases[] = {
        {{"1.0", "2.0"}, "2.0"},
        {{"1.9", "1.a"}, "1.9"},
        {{"1.1", "1.a", "1.64"}, "1.1"},
        {{"9.0", "a.0", "A.0"}, "a.0"},
        {{"Help", "3", ""}, ""},
        {{"0.0", ".", "x.y"}, ""},
        {{"0.0", "0.1"}, "0.1"},
        {{"1.0", "2.z", "3 .0", "+3.0", "-1.0", "0x3.0", "$3.0"}, "2.z"},
        {{"1.5", "1.6.7"}, "1.5"},
        {{"1.0", "fffffffff.0", "ffffffffffffffffffffffff.ffffffffffffffffffffffff"}, "1.0"},
        {{"1.0", "ffffffff.ffffffff"}, "ffffffff.ffffffff"},
    };
    for (const auto& [Names, Current] : Cases)
        EXPECT_EQ(FindCurrentVersion(Names), Current) << testing::PrintToString(Names);
}
