// The graph arithmetic without a screen: ranges, the pixel cache, drawing
// through a recorded surface, conversions, scale, commands and the band.

#include "gui/xRecordingPlatform.h"
#include "tests/numeric/NumericTestKit.h"
#include "widgets/x2DGBars.h"
#include "widgets/x2DGLine.h"
#include "x2DGRecorder.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using Calls = std::vector<std::string>;

class GraphPlot : public ::testing::Test {
protected:
    xRecordingPlatform platform;
    x2DGCommandLog up;
    x2DGCountingPlot plot{&up, x2DGRect{0, 0, 100, 100}, 0, 0};
};

TEST_F(GraphPlot, FirstRangeComesFromTheFirstSeriesAndTheMarginWithTheNextData)
{
    // A constant series leaves the ranges and draws nothing.
    auto* flat = new x2DGLine(&plot);
    flat->UpdateFromTable(x2DGTable({{0, 3}, {1, 3}, {2, 3}}));
    EXPECT_EQ(plot.yMax, 0.0f);
    x2DGRecordingSurface surface;
    plot.DrawContents(surface);
    EXPECT_TRUE(surface.calls.empty());
    plot.SetYRange(3, 1);   // ends out of order: refused
    EXPECT_EQ(plot.yMax, 0.0f);
    delete flat;

    auto* wave = new x2DGLine(&plot);
    const FloatMatrix table = x2DGTable({{0, -1}, {1, 0}, {2, 1}});
    wave->UpdateFromTable(table);
    EXPECT_FLOAT_EQ(plot.yMax, 1.0f);
    wave->SetData(table);
    EXPECT_FLOAT_EQ(plot.yMin, -1.4f);
    EXPECT_FLOAT_EQ(plot.yMax, 1.4f);

    // A second series is drawn on those ranges and never changes them.
    auto* other = new x2DGLine(&plot);
    other->UpdateFromTable(x2DGTable({{-50, -9}, {70, 9}}));
    EXPECT_FLOAT_EQ(plot.yMax, 1.4f);
    EXPECT_EQ(other->PixelCount(), 2);
}

TEST_F(GraphPlot, PixelsMapFromTheFrameCornerAndTruncateTowardZero)
{
    x2DGPlot framed(nullptr, x2DGRect{10, 20, 110, 120}, 0, 0);
    (new x2DGLine(&framed))->UpdateFromTable(x2DGTable({{0, 0}, {100, 100}}));   // sets the ranges
    auto* line = new x2DGLine(&framed);
    line->UpdateFromTable(x2DGTable({{50, 25}, {-10.5f, 0.5f}, {0, 0}}));
    // (-0.5, 119.5) goes to (0, 119), not to -1 or 120.
    EXPECT_EQ(x2DGPairs(line->pixels), (std::vector<std::pair<int, int>>{{60, 95}, {0, 119}, {10, 120}}));

    // Out of the 16-bit range and NaN stay in it.
    line->UpdateFromTable(x2DGTable({{1e9f, -1e9f}, {std::nanf(""), 0}}));
    EXPECT_EQ(x2DGPairs(line->pixels)[0], std::make_pair(32767, 32767));
    EXPECT_EQ(line->pixels[1].h, -32768);
    FloatArray three(1, 3);   // arrays of unequal length keep the last pixels
    line->SetY(three, true);
    line->ComputePixels();
    EXPECT_EQ(line->pixels[0].h, 32767);
}

TEST_F(GraphPlot, RedrawIsOnePolylineFromTheCacheAndPointsStopAtTheRightEdge)
{
    auto* line = new x2DGLine(&plot);
    line->SetPen({0xff0000, 2});
    line->UpdateFromTable(x2DGTable({{0, 0}, {1, 1}, {2, 0}}));
    const std::vector<x2DGPixel> cached = line->pixels;
    plot.xMax = 50;   // no recompute: the drawing must not notice
    x2DGRecordingSurface surface;
    plot.DrawContents(surface);
    EXPECT_EQ(surface.calls, (Calls{"pen ff0000 2", "clip 0,0,100,100", "polyline 3", "clip none"}));
    EXPECT_EQ(x2DGPairs(surface.polyline), x2DGPairs(cached));

    // Points skip what lies left of the frame and stop at the first beyond it.
    plot.xMax = 25, plot.yMax = 25;
    auto* points = new x2DGLine(&plot);
    points->ShowPoints(true);
    points->UpdateFromTable(x2DGTable({{-1, 5}, {12.5f, 12.5f}, {25, 12.5f}, {30, 5}, {15, 5}}));
    surface.calls.clear();
    points->Draw(surface);
    EXPECT_EQ(surface.calls,
              (Calls{"pen 000000 1", "clip 0,0,100,100", "oval 48,48,52,52", "oval 98,48,102,52", "clip none"}));
}

TEST_F(GraphPlot, BarsAlternateBetweenTwoLevelsOnTheFirstSeriesAxis)
{
    (new x2DGLine(&plot))->UpdateFromTable(x2DGTable({{0, 0}, {100, 1}}));
    auto* bars = new x2DGBars(&plot);
    bars->UpdateFromTable(x2DGTable({{0, 10}, {10, 20}, {20, 30}, {30, 40}, {40, 50}}));
    EXPECT_FLOAT_EQ(plot.xMax, 100.0f);
    x2DGRecordingSurface surface;
    bars->Draw(surface);
    ASSERT_EQ(surface.calls.size(), 13u);   // pen, clip, five windows of pos and line, clip
    EXPECT_EQ(Calls(surface.calls.begin() + 2, surface.calls.begin() + 6),
              (Calls{"pos 0,55", "line 10,55", "pos 10,45", "line 20,45"}));
    EXPECT_EQ(surface.calls[11], "line 50,55");
}

TEST_F(GraphPlot, SeriesFreeOnlyWhatTheyOwnAndBelongToOnePortAtATime)
{
    FloatArray x(1, 3), y(1, 3);
    x[1] = 0, x[2] = 1, x[3] = 2;
    y[1] = 5, y[2] = 6, y[3] = 7;
    auto* line = new x2DGLine(&plot);
    line->SetX(x, false);
    line->SetY(y, false);
    x[3] = 4;   // the series sees the caller's array
    line->ComputePixels();
    EXPECT_FLOAT_EQ(plot.xMax, 4.0f);
    line->Clear();
    EXPECT_EQ(line->PixelCount(), 0);
    EXPECT_FLOAT_EQ(x[3], 4.0f);

    // A table of one row empties the series; one column is refused aloud.
    line->UpdateFromTable(x2DGTable({{0, 1}, {1, 2}}));
    line->UpdateFromTable(x2DGTable({{0, 1}}));
    EXPECT_EQ(line->yValues, nullptr);
    line->SetData(FloatMatrix(1, 4, 1, 1));
    EXPECT_EQ(platform.Texts(xPlatform::kError), Calls{"x2DGLine::SetData() - the table needs two columns."});

    std::unique_ptr<x2DGLine> taken = plot.RemoveSeries(line);
    EXPECT_EQ(plot.SeriesCount(), 0);
    EXPECT_EQ(plot.currentSeries, nullptr);
    plot.AddSeries(taken.release(), true);
    EXPECT_EQ(line->NextTarget(), &plot);
}

TEST_F(GraphPlot, ConversionsKeepTheDescendingQuirkOfXToPixel)
{
    plot.xMin = 10, plot.xMax = 0;
    EXPECT_FLOAT_EQ(plot.XToPixel(0), 100.0f);
    EXPECT_FLOAT_EQ(plot.XToPixel(10), 200.0f);
    plot.fidStart = 10, plot.fidEnd = 0;
    EXPECT_FLOAT_EQ(plot.FidToPixel(10), 0.0f);
    EXPECT_FLOAT_EQ(plot.PixelToFid(25), 7.5f);

    plot.xMin = 0, plot.xMax = 10;
    plot.yMin = 1, plot.yMax = -1;
    EXPECT_FLOAT_EQ(plot.PixelToX(25), 2.5f);
    EXPECT_FLOAT_EQ(plot.PixelToY(25), -0.5f);
    EXPECT_FLOAT_EQ(plot.PixelToY(100), 1.0f);

    // Zero spans map to the first pixel rather than dividing by zero.
    plot.fidStart = plot.fidEnd = 0;
    EXPECT_EQ(plot.FidToPixel(3), 0.0f);
}

TEST_F(GraphPlot, HorizontalScaleWidensAndKeepsTheMiddleInView)
{
    auto* line = new x2DGLine(&plot);
    line->UpdateFromTable(x2DGTable({{0, 0}, {1, 1}}));
    plot.SetEndLabels(0, 1, "", "%.2f", false);
    const float scale = 1.0f;
    plot.DoCommand(x2DGPlot::kHorizontalScale, const_cast<float*>(&scale));
    EXPECT_EQ(plot.VirtualWidth(), 2832);
    EXPECT_EQ(plot.ScrollPosition(), 50 - 1416);
    EXPECT_EQ(plot.EndLabelText(false), "0.48");

    plot.CentreOn(1.0f);   // never beyond the end
    EXPECT_EQ(plot.ScrollPosition(), 100 - 2832);
    EXPECT_EQ(line->pixels[1].h, 100);

    plot.SetHorizontalScale(0.25f);   // below 1 counts as 1
    EXPECT_EQ(plot.VirtualWidth(), 2832);
    EXPECT_EQ(FatalText([&] { plot.SetHorizontalScale(1, 2); }),
              "x2DGPort::SetHorizontalScale() - vertical scale must be 1.0.");
    plot.SetHorizontalScale(1000);    // never narrower than the frame
    EXPECT_EQ(plot.VirtualWidth(), 100);

    // A hidden resize brings no news to the series; a shown one does.
    plot.SetVirtualSize(256, 100);
    plot.ScrollTo(-30);
    plot.Resize(x2DGRect{0, 0, 64, 60}, false);
    EXPECT_EQ(plot.VirtualHeight(), 60);
    EXPECT_EQ(line->pixels[1].h, 256 - 30);
    plot.Resize(x2DGRect{0, 0, 64, 60}, true);
    EXPECT_EQ(line->pixels[1].h, 64);
}

TEST_F(GraphPlot, CommandsZoomTheYRangeAndPassTheRestUp)
{
    plot.yMin = -1, plot.yMax = 3;
    plot.DoCommand(x2DGPlot::kDoubleYRange, nullptr);
    EXPECT_FLOAT_EQ(plot.yMin, -2.0f);
    EXPECT_FLOAT_EQ(plot.yMax, 6.0f);
    plot.DoCommand(x2DGPlot::kHalveYRange, nullptr);
    plot.DoCommand(x2DGPlot::kShiftYDown, nullptr);
    EXPECT_FLOAT_EQ(plot.yMin, -1.4f);
    plot.DoCommand(x2DGPlot::kShiftYUp, nullptr);
    EXPECT_FLOAT_EQ(plot.yMax, 3.0f);
    EXPECT_EQ(plot.invalidations, 4);
    plot.DoCommand(9400, &plot);   // the rest goes up

    EXPECT_EQ(up.received, (std::vector<std::pair<long, void*>>{{9400L, &plot}}));
    // Without a band, no world points: the system's own fatal texts.
    EXPECT_EQ(FatalText([&] { plot.GetWStartPoint(); }), "x2DGPort::GetWStartPoint()  - itsSketchPad undefined.");
    EXPECT_EQ(FatalText([&] { plot.GetWEndPoint(); }), "x2DGPort::GetWEndPoint()  - itsSketchPad undefined.");
}

TEST_F(GraphPlot, LabelsInWholeNumbersAndTheZeroLine)
{
    plot.SetEndLabels(100, 300, "FID ", "%s", true);   // unusable formats show whole numbers
    EXPECT_EQ(plot.EndLabelText(true), "300");
    plot.yMin = -1, plot.yMax = 1;
    plot.drawZeroLine = true;
    plot.zeroLineValue = 0.5f;
    x2DGRecordingSurface surface;
    plot.DrawContents(surface);
    EXPECT_EQ(surface.calls, (Calls{"clip 0,0,100,100", "pos 0,25", "line 100,25", "clip none"}));
}

}   // namespace
