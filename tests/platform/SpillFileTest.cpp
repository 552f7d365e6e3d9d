#include "platform/SpillFile.h"

#include "platform/Files.h"
#include "tests/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

TEST(SpillFile, IsReadBackAndLeavesNoNameAndNoDescriptorToChildren)
{
    const TTempFolder Folder;
    const int Next = ::dup(0); // the number that the next file gets
    ::close(Next);
    ::setenv("TMPDIR", Folder.Path().c_str(), 1);
    TSpillFile File;
    EXPECT_FALSE(File.Create());
    ::unsetenv("TMPDIR");
    EXPECT_EQ(::fcntl(Next, F_GETFD), FD_CLOEXEC);
    EXPECT_TRUE(Files::Enumerate(Folder.Path(), "*", Files::TEntryKind::Files).empty());

    std::string Buffer(4, '\0');
    EXPECT_FALSE(File.Write("abc") || File.Write("de"));
    File.Rewind();
    EXPECT_EQ(File.Read(Buffer.data(), Buffer.size()), 4U);
    EXPECT_EQ(Buffer, "abcd");
    EXPECT_EQ(File.Read(Buffer.data(), Buffer.size()), 1U);
    EXPECT_EQ(File.Read(Buffer.data(), Buffer.size()), 0U);
}
