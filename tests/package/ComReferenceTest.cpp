// Which version of a type library is the current one. What the action does is in data/comreferences.txt.
#include "package/sourceupdate/QXTypeLibrarySearch.h"

#include "tests/DataFile.h"

#include "gtest/gtest.h"

TEST(ComReference, TheCurrentVersionIsTheLargestDecimal)
{
    CheckTable(
        "versions", "current version of a type library",
        [](const TColumns& Row) {
            EXPECT_EQ(FindCurrentVersion({Row.begin() + 1, Row.end()}), Row[0]);
            return Row;
        },
        0);
}
