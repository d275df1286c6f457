// The graph port on screen, offscreen: what it paints, its read-out box, its
// labels, its rubber band and the commands it sends up.

#include "gui/xRecordingPlatform.h"
#include "widgets/x2DGBars.h"
#include "widgets/x2DGLine.h"
#include "widgets/x2DGPort.h"
#include "x2DGRecorder.h"
#include "xCommandRecorder.h"

#include <QFontInfo>
#include <QLabel>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

#include <cstdlib>

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

    // Whether a pixel is mostly of the colour: smoothing blends the edges.
    static bool Near(const QImage& shot, int x, int y, QRgb colour)
    {
        const QColor c = shot.pixelColor(x, y);
        return std::abs(c.red() - qRed(colour)) < 80 && std::abs(c.green() - qGreen(colour)) < 80 &&
               std::abs(c.blue() - qBlue(colour)) < 80;
    }

    xRecordingPlatform platform;
    x2DGCommandLog up;
    QWidget window;
    x2DGPort* port = nullptr;
};

TEST_F(GraphPort, PaintsSmoothedCurvesWithBothEndsWholeAndTheBarsOnTwoLevels)
{
    // A transient waveform on a new port: the range comes from the data
    // without a margin, the flat top at the top of the frame, the off time
    // and the zero line at its bottom.
    port->drawZeroLine = true;
    auto* wave = new x2DGLine(port);
    wave->SetPen({0xff0000, 1});
    wave->UpdateFromTable(x2DGTable({{0, 0}, {20, 1}, {80, 1}, {90, 0}, {200, 0}}));
    auto* bars = new x2DGBars(port);
    bars->SetPen({0x0000ff, 1});
    bars->UpdateFromTable(x2DGTable({{20, 60}, {60, 100}}));
    ASSERT_EQ(port->yMin, 0.0f);
    const QImage shot = port->grab().toImage();
    std::vector<int> red;
    bool blended = false;   // the slopes are smoothed: pixels between red and white
    for (int y = 0; y < shot.height(); ++y)
        for (int x = 0; x < shot.width(); ++x) {
            const QColor c = shot.pixelColor(x, y);
            blended = blended || (x < 60 && c.red() > 200 && c.green() > 60 && c.green() < 200);
            if (Near(shot, x, y, 0xff0000) && (red.empty() || red.back() != y))
                red.push_back(y);
        }
    EXPECT_TRUE(blended);
    ASSERT_FALSE(red.empty());
    // Neither end on the edge of the port, and the off time drawn inside it.
    EXPECT_GE(red.front(), 3);
    EXPECT_LE(red.back(), shot.height() - 4);
    EXPECT_TRUE(Near(shot, 190, red.back(), 0xff0000));
    EXPECT_EQ(port->ZeroLinePixel(), red.back());
    EXPECT_TRUE(Near(shot, 40, 55, 0x0000ff));   // first window, lower
    EXPECT_TRUE(Near(shot, 80, 45, 0x0000ff));   // second, higher
}

TEST_F(GraphPort, ReadOutBoxShowsWhileTheButtonIsDownInAFixedPitchFont)
{
    (new x2DGLine(port))->UpdateFromTable(x2DGTable({{0, -1}, {10, 1}}));
    port->SetEndLabels(0, 200, "", "%.0f", false);
    QTest::mousePress(port, Qt::LeftButton, Qt::NoModifier, QPoint(100, 80));
    EXPECT_TRUE(port->ReadOutShown().isEmpty());   // off until enabled
    QTest::mouseRelease(port, Qt::LeftButton, Qt::NoModifier, QPoint(100, 80));
    port->EnableReadOut();
    QTest::mousePress(port, Qt::LeftButton, Qt::NoModifier, QPoint(100, 75));
    const float amplitude = port->PixelToY(75.0f - port->Frame().top);
    EXPECT_EQ(port->ReadOutShown(), QString(" FID :    100.00\n AMP : ") + QString::asprintf("%9.2f", amplitude));
    // Blanks pad the numbers: they line up only when all characters are as wide.
    EXPECT_TRUE(QFontInfo(port->ReadOutFont()).fixedPitch());
    const std::optional<x2DGRect> box = port->Series(0)->readOutBox;
    ASSERT_TRUE(box.has_value());
    EXPECT_EQ(std::make_pair(box->left, box->bottom), std::make_pair(100, 75 - 8));
    EXPECT_EQ(port->grab().toImage().pixelColor(box->left, box->top).rgb() & 0xffffff, 0u);   // its frame
    QTest::mouseRelease(port, Qt::LeftButton, Qt::NoModifier, QPoint(100, 75));
    EXPECT_TRUE(port->ReadOutShown().isEmpty());
}

TEST_F(GraphPort, EndLabelsStandUnderTheDrawingAboveTheScrollBarAndFollowScrolling)
{
    port->SetEndLabels(1, 5, "FID ", "%.1f", true);
    ASSERT_NE(port->startLabel, nullptr);
    EXPECT_EQ(port->startLabel->text(), QString("FID 1.0"));
    EXPECT_EQ(port->startLabel->geometry().bottom(), 99);
    EXPECT_EQ(port->endLabel->geometry().right(), 199);
    // The labels took the lowest strip from the drawing.
    EXPECT_EQ(port->Paper().bottom, 100 - port->startLabel->height());

    // Zoomed, the scroll bar comes under the labels, which stay out of the
    // drawing and are filled, so that no trace runs through them.
    (new x2DGLine(port))->UpdateFromTable(x2DGTable({{0, 0}, {1, 1}}));
    const float scale = 1.0f;
    port->DoCommand(x2DGPlot::kHorizontalScale, const_cast<float*>(&scale));
    QScrollBar* bar = port->findChild<QScrollBar*>();
    ASSERT_TRUE(bar && bar->isVisible());
    EXPECT_LT(port->startLabel->geometry().bottom(), bar->y());
    EXPECT_LE(port->Paper().bottom, port->startLabel->y());
    EXPECT_TRUE(port->startLabel->autoFillBackground());
    bar->setValue(bar->maximum());
    EXPECT_EQ(port->ScrollPosition(), port->Frame().Width() - port->VirtualWidth());
    EXPECT_EQ(port->endLabel->text(), QString("5.0"));
    EXPECT_NE(port->startLabel->text(), QString("FID 1.0"));
}

TEST_F(GraphPort, ResizeKeepsTheVirtualSizeAndRecomputes)
{
    // Showing is no change of the frame: a port built wider keeps its width.
    auto* wide = new x2DGPort(&window, QRect(0, 150, 200, 100), 1000, 100);
    wide->show();
    EXPECT_EQ(wide->VirtualWidth(), 1000);

    auto* wave = new x2DGLine(port);
    wave->UpdateFromTable(x2DGTable({{0, 0}, {1, 1}}));
    port->SetHorizontalScale(1);
    port->resize(128, 64);
    const int margin = x2DGPort::Margin();
    EXPECT_EQ(port->VirtualWidth(), 128 - 2 * margin);
    EXPECT_EQ(port->ScrollPosition(), 0);
    EXPECT_EQ(wave->pixels[1].h, 128 - margin);
    EXPECT_EQ(wave->pixels[0].v, 64 - margin);
}

TEST_F(GraphPort, RubberBandSendsItsCommandUpWithThePortAndTheCursorFollowsTheReadOut)
{
    port->xMax = 20;
    port->yMax = 1;
    port->AddSketchPad(6001);
    QTest::mousePress(port, Qt::LeftButton, Qt::NoModifier, QPoint(50, 100));
    QTest::mouseMove(port, QPoint(100, 50));
    QTest::mouseRelease(port, Qt::LeftButton, Qt::NoModifier, QPoint(150, 0));
    EXPECT_EQ(up.received, (std::vector<std::pair<long, void*>>{{6001L, static_cast<x2DGPlot*>(port)}}));
    // The mouse's pixels, not the last move's, from the frame's corner.
    EXPECT_FLOAT_EQ(port->GetWStartPoint().x, port->PixelToX(50.0f - port->Frame().left));
    EXPECT_FLOAT_EQ(port->GetWStartPoint().y, port->PixelToY(100.0f - port->Frame().top));
    EXPECT_FLOAT_EQ(port->GetWEndPoint().x, port->PixelToX(150.0f - port->Frame().left));

    port->DoCommand(x2DGPlot::kCrossHairCursor, nullptr);
    EXPECT_EQ(port->cursor().shape(), Qt::ArrowCursor);   // no read-out, no cross
    port->EnableReadOut();
    port->DoCommand(x2DGPlot::kCrossHairCursor, nullptr);
    EXPECT_EQ(port->cursor().shape(), Qt::CrossCursor);
    port->DoCommand(x2DGPlot::kArrowCursor, nullptr);
    EXPECT_EQ(port->cursor().shape(), Qt::ArrowCursor);

    // Without a next target, commands go to the card above.
    xCommandRecorder card;
    port = new x2DGPort(&card, QRect(0, 0, 100, 50));
    port->AddSketchPad(6002);
    QTest::mousePress(port, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    QTest::mouseRelease(port, Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    port->DoCommand(x2DGPlot::kShiftYUp, nullptr);
    EXPECT_EQ(card.Commands(), std::vector<long>{6002});
}

}   // namespace
