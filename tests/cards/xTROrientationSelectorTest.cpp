#include "cards/xTROrientationSelector.h"

#include "../widgets/xCommandRecorder.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

TEST(OrientationSelector, ButtonsStepAndSendTheNewCode)
{
    xCommandRecorder card;
    xTRClasf clasf;
    clasf = 0;
    clasf[103] = 2;
    clasf[109] = 2;
    auto* selector = new xTROrientationSelector(&card, clasf);
    card.show();
    EXPECT_EQ(selector->GetId(), 20012);
    EXPECT_EQ(selector->TxLabel()->text(), "Tx");
    EXPECT_EQ(selector->RxLabel()->text(), "Rz");
    EXPECT_NE(selector->TxLabel()->styleSheet().indexOf("#ff0000"), -1);
    EXPECT_NE(selector->RxLabel()->styleSheet().indexOf("#0000ff"), -1);

    QTest::mouseClick(selector->NextButton(), Qt::LeftButton);
    ASSERT_EQ(card.Commands(), std::vector<long>({3410}));
    EXPECT_EQ(*static_cast<int32_t*>(card.DataOf(3410)), 109);
    EXPECT_EQ(selector->TxLabel()->text(), "Tz");

    QTest::mouseClick(selector->PreviousButton(), Qt::LeftButton);
    EXPECT_EQ(*static_cast<int32_t*>(card.DataOf(3410)), 103);

    // Told from outside, the selector follows without a word.
    selector->SetCode(109);
    selector->RemoveOrientation(109, 103);
    EXPECT_EQ(selector->Code(), 103);
    EXPECT_EQ(selector->TxLabel()->text(), "Tx");
    QTest::mouseClick(selector->NextButton(), Qt::LeftButton);
    EXPECT_EQ(card.Commands().size(), 2u);
}
