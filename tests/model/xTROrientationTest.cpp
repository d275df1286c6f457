#include "model/xTROrientation.h"

#include <gtest/gtest.h>

TEST(Orientation, NamesCodesComponentsAndColoursMapBothWays)
{
    EXPECT_EQ(CodeName(106), "TyRz");
    EXPECT_EQ(CodeName(110), "");
    for (int code = 101; code <= 109; ++code)
        EXPECT_EQ(NameToCode(CodeName(code)), code);
    EXPECT_EQ(NameToCode("tzrz"), 100);

    EXPECT_EQ(FindCodeName("                         + TyRx +"), "TyRx");
    // Table order, not order in the line, decides; "????" stands first.
    EXPECT_EQ(FindCodeName("TzRz TxRy"), "TxRy");
    EXPECT_EQ(FindCodeName("TzRz ????"), "????");
    EXPECT_EQ(FindCodeName("+ txrx +"), "");

    EXPECT_EQ(RxComponent(100), 4);
    // Stray codes count as y on both sides.
    EXPECT_EQ(TxComponent(110), 2);
    EXPECT_EQ(RxComponent(-5), 2);
    for (int code = 101; code <= 109; ++code)
        EXPECT_EQ(CodeFromComponents(TxComponent(code), RxComponent(code)), code);
    EXPECT_EQ(CodeFromComponents(4, 1), 100);

    EXPECT_EQ(OrientationColour(109), 0x0000FFu);
    EXPECT_EQ(OrientationColour(250), 0xBFFFFFFu);
    EXPECT_EQ(ComponentName(0), "undefined");
    EXPECT_EQ(ComponentName(5), "");
    EXPECT_EQ(ComponentIndex("y"), 2);
    EXPECT_EQ(ComponentIndex("X"), 0);
}
