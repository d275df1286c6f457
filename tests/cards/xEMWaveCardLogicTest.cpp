#include "cards/xEMWaveCardLogic.h"

#include "frame/xEMEditDesc.h"
#include "gui/xRecordingPlatform.h"
#include "model/xEMSDesc.h"
#include "tests/cards/CardTestKit.h"
#include "widgets/x2DGBars.h"
#include "widgets/x2DGLine.h"
#include "widgets/x2DGPlot.h"
#include "widgets/xLineSeries.h"

#include <gtest/gtest.h>

using namespace CardTestKit;

namespace {

using Texts = std::vector<std::string>;

FloatMatrix Table(int rows, int columns, float first)
{
    FloatMatrix table(rows, columns);
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c)
            *table.Element(r, c) = first + static_cast<float>(r * columns + c);
    return table;
}

class WaveCardLogic : public ::testing::Test {
protected:
    void Open(const char* example)
    {
        doc.SetFilePath(std::string(TOLVAD_EXAMPLES_DIR) + "/" + example);
        ASSERT_TRUE(doc.Load());
        doc.SetChanged(false);
    }

    xRecordingPlatform platform;
    xEMEditDesc doc;
    CommandRecorder window;
};

} // namespace

TEST_F(WaveCardLogic, ApplyStoresWhatDiffersAndTellsWhenTheCardIsIncomplete)
{
    // A new descriptor: the transmitter block is "undefined", the receiver's "nominal".
    xEMWaveCardLogic tx(doc, "Tx Waveform", &window);
    xEMWaveCardLogic rx(doc, "Rx Waveform", &window);
    xEMSDesc& record = *doc.system;
    xEMWaveCardLogic::Values values{Table(3, 2, 1.0f), Table(4, 3, 0.0f), "A/m"};
    std::string message;
    EXPECT_FALSE(tx.Apply(values, message));   // whatever the tables hold
    EXPECT_EQ(message, "Undefined waveform or windows.");
    EXPECT_EQ(record.weights.Size(), 3);
    EXPECT_EQ(record.txWaveform.table, Table(4, 3, 0.0f));
    EXPECT_EQ(record.txWaveform.amplitudeUnit, "A/m");
    EXPECT_TRUE(doc.IsChanged());
    ASSERT_EQ(window.commands, (std::vector<long>{9407}));
    EXPECT_EQ(window.records, (std::vector<const void*>{&record}));

    // Two windows and two waveform rows: stored and marked, yet incomplete.
    doc.SetChanged(false);
    values = {Table(2, 2, 5.0f), Table(2, 3, 0.0f), "amp/m"};
    EXPECT_FALSE(rx.Apply(values, message));
    EXPECT_EQ(record.rxField.table.Rows(), 2);
    EXPECT_TRUE(doc.IsChanged());
    // Three waveform rows and one window: incomplete too; two windows complete it.
    values = {Table(1, 2, 5.0f), Table(3, 3, 0.0f), "amp/m"};
    EXPECT_FALSE(rx.Apply(values, message));
    values.windows = Table(2, 2, 5.0f);
    EXPECT_TRUE(rx.Apply(values, message));

    // Nothing differs, the weights count alone does: no change, no command.
    record.SetChannels(7);
    doc.SetChanged(false);
    window.commands.clear();
    EXPECT_TRUE(rx.Apply(values, message));
    EXPECT_EQ(record.weights.Size(), 2);
    EXPECT_FALSE(doc.IsChanged());
    EXPECT_TRUE(window.commands.empty());
}

TEST_F(WaveCardLogic, TablesReadFromGridsCountFromTheRecordsRows)
{
    Open("survey-time-domain.DSC");
    xEMWaveCardLogic tx(doc, "Tx Waveform", &window);
    // Grids count from row 0; a file's tables from row 1.
    xEMWaveCardLogic::Values values = xEMWaveCardLogic::ValuesOf(*doc.system, true);
    values.windows = FromRowZero(values.windows);
    values.waveform = FromRowZero(values.waveform);
    std::string message;
    EXPECT_TRUE(tx.Apply(values, message));
    EXPECT_FALSE(doc.IsChanged());
    EXPECT_TRUE(window.commands.empty());
    EXPECT_EQ(doc.system->windows.RowLower(), 1);
}

TEST_F(WaveCardLogic, ScaleAndWeightsTakeWhatTheDialogsChanged)
{
    Open("survey-time-domain.DSC");
    xEMWaveCardLogic tx(doc, "Tx Waveform", &window);
    // The same scale is no change; a new one is the transmitter's alone.
    FloatArray scale = tx.AmplitudeScale();
    tx.TakeAmplitudeScale(scale);
    EXPECT_FALSE(doc.IsChanged());
    scale[2] = 2.0f;
    tx.TakeAmplitudeScale(scale);
    EXPECT_EQ(doc.system->txWaveform.nominalAmplitude, 2.0f);
    EXPECT_EQ(doc.system->rxField.nominalAmplitude, 1.0f);

    doc.SetChanged(false);
    FloatMatrix weights = tx.Weights();
    ASSERT_EQ(weights.RowUpper() * 10 + weights.ColLower(), 91);   // rows from 0, the column 1
    tx.TakeWeights(weights);
    EXPECT_FALSE(doc.IsChanged());
    // A dialog whose table ends early (a cleared cell) leaves the rest.
    FloatMatrix edited(0, 2, 1, 1);
    *edited.Element(0, 1) = 1.0f;
    *edited.Element(2, 1) = 0.5f;
    tx.TakeWeights(edited);
    EXPECT_EQ(doc.system->weights[2] + doc.system->weights[3], 0.5f);
    EXPECT_EQ(doc.system->weights[4], 1.0f);
    EXPECT_EQ(doc.system->weights.Size(), 10);
    tx.TakeWeights(FloatMatrix(0, 0, 0, 0));   // an empty grid: no column 1
    EXPECT_EQ(doc.system->weights[1], 1.0f);
}

TEST_F(WaveCardLogic, MenuCommandsExchangeTheTablesAndOnlyTheWindowsTellTheirCount)
{
    Open("survey-time-domain.DSC");
    xEMWaveCardLogic rx(doc, "Rx Waveform", &window);
    TestGrid waveform(1500, 3), windows(2250, 2);
    rx.SetGrid(5002, &waveform);
    rx.SetGrid(5000, &windows);
    // The plot takes the rows in use of each grid; fewer than 2 empty its series.
    x2DGPlot plot(nullptr, x2DGRect{0, 0, 400, 300}, 0, 0);
    xLineSeries curve(new x2DGLine(&plot));
    xLineSeries bars(new x2DGBars(&plot));
    waveform.values.SetDependentPort(&curve);
    windows.values.SetDependentPort(&bars);
    waveform.SetTable(doc.system->rxField.table, false);
    windows.SetTable(doc.system->windows, false);
    EXPECT_EQ(rx.ClipboardEntries(), (std::vector<long>{32032, 3455, 3460}));
    EXPECT_EQ(rx.AlwaysEnabledEntries(), (std::vector<long>{3453, 3454, 3458, 3459}));

    // Cut: the clipboard takes the windows, the grid one row of zeros, and
    // the window hears of one row, each time.
    EXPECT_TRUE(rx.DoMenuCommand(3458));
    EXPECT_EQ(platform.clipboard.substr(0, 29), " 4.0500002e+00 4.0700002e+00\n");
    EXPECT_EQ(windows.values.RowCount(), 1);
    EXPECT_EQ(windows.values.Value(0, 1), 0.0f);
    EXPECT_FALSE(windows.redrawn);
    EXPECT_EQ(bars.Line()->PixelCount(), 0);
    EXPECT_TRUE(rx.DoMenuCommand(3458));
    EXPECT_EQ(window.counts, (std::vector<int>{1, 1}));

    // Paste: the same count sends nothing, another one its count.
    platform.PutClipboardText("1 2\t3\n4\r\n");
    EXPECT_TRUE(rx.DoMenuCommand(3460));
    EXPECT_EQ(windows.values.RowCount(), 2);
    EXPECT_TRUE(windows.redrawn);
    EXPECT_EQ(bars.Line()->PixelCount(), 4);   // start and end of each window
    EXPECT_TRUE(rx.DoMenuCommand(3460));
    EXPECT_EQ(window.counts, (std::vector<int>{1, 1, 2}));
    rx.RowsChanged(5002, 4);
    rx.RowsChanged(5000, 6);
    EXPECT_EQ(window.counts, (std::vector<int>{1, 1, 2, 6}));

    // The waveform's column count decides its rows; its count goes nowhere.
    EXPECT_TRUE(rx.DoMenuCommand(3455));   // 4 numbers into 3 columns
    EXPECT_EQ(platform.Texts(xPlatform::kNote),
              Texts{"Illegal number of items on clipboard. the total number of items has to be divisible by 3 for "
                    "wform samples or by 2 for window samples."});
    EXPECT_EQ(waveform.values.RowCount(), 10);
    // More than the clipboard may bring: the first 4500 numbers, 1500 rows.
    std::string many;
    for (int i = 0; i < 4501; ++i)
        many += "7\n";
    platform.PutClipboardText(many);
    platform.messages.clear();
    EXPECT_TRUE(rx.DoMenuCommand(3455));
    EXPECT_EQ(platform.Texts(xPlatform::kNote), Texts{"Exceeded maximum number of clipboard items."});
    EXPECT_EQ(waveform.values.RowCount(), 1500);
    EXPECT_EQ(curve.Line()->PixelCount(), 1500);
    EXPECT_EQ(window.counts.size(), 4u);
    EXPECT_FALSE(rx.DoMenuCommand(3465));   // the frequency card's
}
