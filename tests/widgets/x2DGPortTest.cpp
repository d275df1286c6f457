// The graph port on screen, offscreen: what it paints, its read-out box, its
// labels, its rubber band and the commands it sends up.

#include "gui/xRecordingPlatform.h"
#include "widgets/x2DGBars.h"
#include "widgets/x2DGLine.h"
#include "widgets/x2DGPort.h"
#include "x2DGRecorder.h"
#include "xCommandRecorder.h"

#include <QImage>
#include <QLabel>
#include <QScrollBar>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

namespace {

class GraphPort : public ::testing::Test {
protected:
    GraphPort()
    {
        window.resize(400, 300);
        port = new x2DGPort(&window, QRect(10, 10, 200, 100), 0, 0, &up);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    }

    QImage Shot() { return port->grab().toImage(); }

    xRecordingPlatform platform;
    x2DGCommandLog up;
    QWidget window;
    x2DGPort* port = nullptr;
};

TEST_F(GraphPort, PaintsTheCurveInItsPenAndTheBarsOnTwoLevels)
{
    auto* wave = new x2DGLine(port);
    wave->SetPen({0xff0000, 1});
    wave->UpdateFromTable(x2DGTable({{0, 0}, {200, 1}}));
    auto* bars = new x2DGBars(port);
    bars->SetPen({0x0000ff, 1});
    bars->UpdateFromTable(x2DGTable({{20, 60}, {60, 100}}));

    const QImage shot = Shot();
    EXPECT_EQ(port->VirtualWidth(), 200);
    EXPECT_EQ(shot.pixelColor(100, 50).rgb() & 0xffffff, 0xff0000u);   // the diagonal
    EXPECT_EQ(shot.pixelColor(40, 55).rgb() & 0xffffff, 0x0000ffu);         // first window, lower
    EXPECT_EQ(shot.pixelColor(80, 45).rgb() & 0xffffff, 0x0000ffu);         // second, higher
    EXPECT_EQ(shot.pixelColor(80, 55).rgb() & 0xffffff, 0xffffffu);
    EXPECT_EQ(shot.pixelColor(150, 20).rgb() & 0xffffff, 0xffffffu);
}

TEST_F(GraphPort, ReadOutBoxShowsWhileTheButtonIsDown)
{
    (new x2DGLine(port))->UpdateFromTable(x2DGTable({{0, -1}, {10, 1}}));
    port->SetEndLabels(0, 200, "", "%.0f", false);
    QTest::mousePress(port, Qt::LeftButton, Qt::NoModifier, QPoint(100, 80));
    EXPECT_TRUE(port->ReadOutShown().isEmpty());   // off until enabled
    QTest::mouseRelease(port, Qt::LeftButton, Qt::NoModifier, QPoint(100, 80));

    port->EnableReadOut();
    QTest::mousePress(port, Qt::LeftButton, Qt::NoModifier, QPoint(100, 75));
    EXPECT_EQ(port->ReadOutShown(), QString(" FID :    100.00\n AMP :     -0.50"));
    const std::optional<x2DGRect> box = port->Series(0)->readOutBox;
    ASSERT_TRUE(box.has_value());
    EXPECT_EQ(box->left, 100);
    EXPECT_EQ(box->bottom, 75 - 8);
    EXPECT_GT(box->Width(), 20);
    const QImage shot = Shot();
    EXPECT_EQ(shot.pixelColor(box->left, box->top).rgb() & 0xffffff, 0u);   // its frame
    QTest::mouseRelease(port, Qt::LeftButton, Qt::NoModifier, QPoint(100, 75));
    EXPECT_TRUE(port->ReadOutShown().isEmpty());
    EXPECT_FALSE(port->Series(0)->readOutBox.has_value());
}

TEST_F(GraphPort, EndLabelsStandAtTheLowerCornersAndFollowScrolling)
{
    port->SetEndLabels(1, 5, "FID ", "%.1f", true);
    ASSERT_NE(port->startLabel, nullptr);
    EXPECT_EQ(port->startLabel->text(), QString("FID 1.0"));
    EXPECT_EQ(port->endLabel->text(), QString("5.0"));
    EXPECT_EQ(port->startLabel->geometry().bottom(), 99);
    EXPECT_EQ(port->endLabel->geometry().right(), 199);
    EXPECT_EQ(port->startLabel->width(), 200 / 3);
    // The labels took the lowest strip from the drawing.
    EXPECT_EQ(port->Frame().bottom, 100 - port->startLabel->height());

    port->xMax = 1;
    const float scale = 1.0f;
    port->DoCommand(x2DGPlot::kHorizontalScale, const_cast<float*>(&scale));
    QScrollBar* bar = port->findChild<QScrollBar*>();
    ASSERT_NE(bar, nullptr);
    EXPECT_TRUE(bar->isVisible());
    bar->setValue(bar->maximum());
    EXPECT_EQ(port->ScrollPosition(), 200 - port->VirtualWidth());
    EXPECT_EQ(port->endLabel->text(), QString("5.0"));
    EXPECT_NE(port->startLabel->text(), QString("FID 1.0"));
}

TEST_F(GraphPort, ResizeKeepsTheVirtualSizeAndRecomputes)
{
    // Showing is no change of the frame: a port built wider keeps its width
    // and can be scrolled.
    auto* wide = new x2DGPort(&window, QRect(0, 150, 200, 100), 1000, 100);
    wide->show();
    EXPECT_EQ(wide->VirtualWidth(), 1000);
    EXPECT_TRUE(wide->findChild<QScrollBar*>()->isVisible());

    auto* wave = new x2DGLine(port);
    wave->UpdateFromTable(x2DGTable({{0, 0}, {1, 1}}));
    port->xMax = 1;
    port->SetHorizontalScale(1);
    EXPECT_GT(port->VirtualWidth(), 200);
    port->resize(128, 64);
    EXPECT_EQ(port->VirtualWidth(), 128);
    EXPECT_EQ(port->VirtualHeight(), 64);
    EXPECT_EQ(port->ScrollPosition(), 0);
    EXPECT_EQ(wave->pixels[1].h, 128);
    EXPECT_EQ(wave->pixels[0].v, 64);
}

TEST_F(GraphPort, RubberBandSendsItsCommandUpWithThePortAndTheCursorFollowsTheReadOut)
{
    port->xMax = 20;
    port->yMax = 1;
    port->AddSketchPad(6001);
    QTest::mousePress(port, Qt::LeftButton, Qt::NoModifier, QPoint(50, 100));
    QTest::mouseMove(port, QPoint(100, 50));
    QTest::mouseRelease(port, Qt::LeftButton, Qt::NoModifier, QPoint(150, 0));
    ASSERT_EQ(up.received.size(), 1u);
    EXPECT_EQ(up.received[0].first, 6001);
    EXPECT_EQ(static_cast<x2DGPlot*>(up.received[0].second), static_cast<x2DGPlot*>(port));
    EXPECT_FLOAT_EQ(port->GetWStartPoint().x, 5.0f);   // the mouse's pixels, not the last move's
    EXPECT_FLOAT_EQ(port->GetWEndPoint().x, 15.0f);

    port->DoCommand(x2DGPlot::kCrossHairCursor, nullptr);
    EXPECT_EQ(port->cursor().shape(), Qt::ArrowCursor);
    port->EnableReadOut();
    port->DoCommand(x2DGPlot::kCrossHairCursor, nullptr);
    EXPECT_EQ(port->cursor().shape(), Qt::CrossCursor);
    port->DoCommand(x2DGPlot::kArrowCursor, nullptr);
    EXPECT_EQ(port->cursor().shape(), Qt::ArrowCursor);
}

TEST(GraphPortChain, WithoutANextTargetCommandsGoToTheCardAbove)
{
    xCommandRecorder card;
    auto* port = new x2DGPort(&card, QRect(0, 0, 100, 50));
    port->AddSketchPad(6002);
    QTest::mousePress(port, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    QTest::mouseRelease(port, Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    port->DoCommand(x2DGPlot::kShiftYUp, nullptr);
    EXPECT_EQ(card.Commands(), std::vector<long>{6002});
}

}   // namespace
