#include "model/xTRClasf.h"

#include "gui/xRecordingPlatform.h"

#include "xStreamText.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

const char* const kNamesLine = "  TxRx  TxRy  TxRz  TyRx  TyRy  TyRz  TzRx  TzRy  TzRz\n";

// A table holding just the given counts.
xTRClasf Table(std::initializer_list<std::pair<int, int32_t>> counts)
{
    xTRClasf clasf;
    clasf = 0;
    for (const auto& entry : counts)
        clasf[entry.first] = entry.second;
    return clasf;
}

} // namespace

TEST(TRClasf, NewTableNamesTzRzOnlyAndTheWalkKeepsItsPlace)
{
    xTRClasf clasf;
    EXPECT_EQ(clasf.Count(), 1);
    int code = 0;
    ASSERT_TRUE(clasf.NextSet(code));
    EXPECT_EQ(code, 109);
    EXPECT_FALSE(clasf.NextSet(code));
    EXPECT_EQ(code, 109);
    // The walk stays at its end until rewound, and a copy keeps the cursor.
    clasf[101] = 3;
    xTRClasf copy(clasf);
    EXPECT_FALSE(copy.NextSet(code));
    copy.Rewind();
    ASSERT_TRUE(copy.NextSet(code));
    EXPECT_EQ(code, 101);

    clasf = 0;
    // Element 100 is walked and counted but never named.
    clasf[100] = 2;
    clasf.Rewind();
    ASSERT_TRUE(clasf.NextSet(code));
    EXPECT_EQ(code, 100);
    EXPECT_EQ(clasf.Count(), 1);
    EXPECT_TRUE(clasf.SetNames().empty());
    EXPECT_EQ(clasf.OtherSet(105), 100);
}

TEST(TRClasf, QueriesOverTheSetCodes)
{
    xTRClasf clasf = Table({{103, 4}, {105, 1}, {109, 2}});
    EXPECT_EQ(clasf.Ordinal(104), -1);
    EXPECT_EQ(clasf.OtherSet(103), 105);
    EXPECT_EQ(clasf.HasRxComponent(1), 0);
    // Contains and the walk see the low 16 bits of a count; the other
    // queries see any non-zero count as set, as Count does.
    clasf[107] = 65536;
    EXPECT_FALSE(clasf.Contains(107));
    EXPECT_EQ(clasf.Count(), 4);
    EXPECT_EQ(clasf.HasRxComponent(1), 1);
    EXPECT_EQ(clasf.Ordinal(109), 3);
    EXPECT_EQ(clasf.SetNames(), (std::vector<std::string>{"TxRz", "TyRy", "TzRx", "TzRz"}));
    EXPECT_EQ(Table({{107, 65536}}).OtherSet(101), 107);
}

TEST(TRClasf, UnknownComponentsAndSizesWarn)
{
    xRecordingPlatform platform;
    xTRClasf clasf;
    EXPECT_EQ(clasf.HasRxComponent(5), 0);
    EXPECT_EQ(clasf.HasTxComponent(0), 0);
    EXPECT_EQ(platform.Texts(xPlatform::kWarning),
              (std::vector<std::string>{"xTRClasf::HasRxComponent()  Unknown component.",
                                        "xTRClasf::HasTxComponent()  Unknown component."}));
    platform.Clear();

    LongArray three(3);
    three = 5;
    xTRClasf fromShort(three);
    EXPECT_EQ(platform.Texts(xPlatform::kWarning),
              std::vector<std::string>{"xTRClasf:: Attempt to initialize using incompatible array size."});
    EXPECT_EQ(fromShort[102], 5);
    EXPECT_EQ(fromShort[103], 0);
}

TEST(TRClasf, FileFormHasNineCountsAndTheMemberFormTen)
{
    // A count that fills its field keeps a blank before it, so that it reads back.
    xTRClasf clasf = Table({{100, 8}, {101, 12}, {108, -12345}, {109, 123456}});
    EXPECT_EQ(Written(clasf), std::string(kNamesLine) + "    12     0     0     0     0     0     0 -12345 123456\n");
    xTRClasf reread;
    std::istringstream written(Written(clasf));
    written >> reread;
    clasf[100] = reread[100];
    EXPECT_EQ(reread, clasf);

    xTRClasf back;
    back[100] = 3;
    std::istringstream in("names are not compared\r\n 1 2 3 4 5 6 7 8 9 trailing\r\nnext");
    in >> back;
    EXPECT_EQ(back[100], 3);
    for (int code = 101; code <= 109; ++code)
        EXPECT_EQ(back[code], code - 100);
    EXPECT_EQ(in.get(), 'n');

    // The member form carries element 100; the file reader takes its first
    // nine values by place.
    xTRClasf member;
    member[100] = 5;
    std::ostringstream memberOut;
    member.WriteAll(memberOut);
    EXPECT_EQ(memberOut.str(), std::string(kNamesLine) + "     5     0     0     0     0     0     0     0     0     1\n");
    std::istringstream memberIn(memberOut.str());
    back.ReadAll(memberIn);
    EXPECT_EQ(back, member);
    xTRClasf shifted;
    std::istringstream other(memberOut.str());
    other >> shifted;
    EXPECT_EQ(shifted[101], 5);
}
