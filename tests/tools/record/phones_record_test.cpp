#include "support/program.h"
#include "support/record_folder.h"

namespace program {

using PhonesRecord = Program;

TEST_F(PhonesRecord, IsLeftAloneUnlessARecordIsAskedFor) {
    const support::RecordFolder tFolder;
    if (!tFolder.IsWritable())
        GTEST_SKIP() << "the phone's folder cannot be made here";
    Render("--noise 2");
    const std::string strPair = "master.pgm slave.pgm";
    ASSERT_EQ(RunInShell("echo kept >/sdcard/AFProtect.txt").nExit, 0);
    EXPECT_EQ(Measure(strPair).nExit, 0);
    EXPECT_EQ(RunInShell("cat /sdcard/AFProtect.txt").strOut, "kept\n");
    EXPECT_EQ(Measure(strPair, "--record r").nExit, 0);
    EXPECT_EQ(Read("r").size(), 194u);
    EXPECT_EQ(RunInShell("wc -c </sdcard/AFProtect.txt").strOut, "194\n");
}

} // namespace program
