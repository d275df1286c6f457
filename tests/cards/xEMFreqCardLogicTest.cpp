#include "cards/xEMFreqCardLogic.h"

#include "frame/xEMEditDesc.h"
#include "gui/xRecordingPlatform.h"
#include "model/xEMSDesc.h"
#include "tests/cards/CardTestKit.h"

#include <gtest/gtest.h>

using namespace CardTestKit;

namespace {

class FreqCardLogic : public ::testing::Test {
protected:
    FreqCardLogic()
    {
        doc.SetFilePath(std::string(TOLVAD_EXAMPLES_DIR) + "/survey-frequency-domain.DSC");
        doc.Load();
        doc.SetChanged(false);
        // The load replaced the records the logic was made on.
        logic.SetRecord(doc.system);
    }

    xRecordingPlatform platform;
    xEMEditDesc doc;
    CommandRecorder window;
    xEMFreqCardLogic logic{doc, &window};
};

} // namespace

TEST_F(FreqCardLogic, ApplyStoresOneFrequencyAndAWrongWeightsCountIsAChange)
{
    xEMSDesc& record = *doc.system;   // TxRx: 1000 and 5500 Hz
    std::string message;
    EXPECT_TRUE(logic.CheckRecord(message));
    EXPECT_TRUE(logic.Apply({FromRowZero(record.frequencies)}, message));
    EXPECT_FALSE(doc.IsChanged());
    EXPECT_TRUE(window.commands.empty());

    // The table as it was, the weights of another count: a change here.
    record.SetChannels(5);
    EXPECT_TRUE(logic.Apply(xEMFreqCardLogic::ValuesOf(record), message));
    EXPECT_EQ(record.weights.Size(), 2);
    EXPECT_TRUE(doc.IsChanged());
    EXPECT_EQ(window.records, (std::vector<const void*>{&record}));

    // One frequency fails and is stored all the same.
    doc.SetChanged(false);
    FloatMatrix one(1, 1);
    *one.Element(0, 0) = 900.0f;
    EXPECT_FALSE(logic.Apply({one}, message));
    EXPECT_EQ(record.frequencies.Row(1)[0], 900.0f);
    EXPECT_EQ(record.weights.Size(), 1);
    EXPECT_TRUE(doc.IsChanged());
}

TEST_F(FreqCardLogic, EveryPasteFitsOneColumn)
{
    TestGrid grid(4500, 1);
    logic.SetGrid(6000, &grid);
    grid.SetTable(doc.system->frequencies, false);
    EXPECT_EQ(logic.ClipboardEntries(), (std::vector<long>{32032, 3465}));
    EXPECT_EQ(logic.AlwaysEnabledEntries(), (std::vector<long>{3463, 3464}));
    // Any count, whatever the line breaks.
    for (const char* text : {"100 200 300\n400\t500\r\n600 700", "1e3\n\n2.5E-1\n7\n"}) {
        platform.PutClipboardText(text);
        EXPECT_TRUE(logic.DoMenuCommand(3465));
    }
    EXPECT_EQ(grid.values.RowCount(), 3);
    EXPECT_EQ(grid.values.Value(1, 0), 0.25f);
    EXPECT_TRUE(logic.DoMenuCommand(3464));
    EXPECT_EQ(platform.clipboard, " 1.0000000e+03\n 2.5000000e-01\n 7.0000000e+00\n");
    EXPECT_TRUE(logic.DoMenuCommand(3463));
    EXPECT_EQ(grid.values.RowCount(), 1);
    logic.RowsChanged(0, 8);   // the one grid: its sender isn't looked at
    EXPECT_EQ(window.counts, (std::vector<int>{7, 3, 1, 8}));
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
}
