#include "cards/xEMSysCardLogic.h"

#include "cards/xCardChecks.h"
#include "frame/xEMEditDesc.h"
#include "gui/xRecordingPlatform.h"
#include "model/xEMSHeader.h"
#include "tests/cards/CardTestKit.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

const std::string kExamples = TOLVAD_EXAMPLES_DIR;

class SystemCardLogic : public ::testing::Test {
protected:
    xRecordingPlatform platform;
    xEMEditDesc doc;
    CardTestKit::CommandRecorder window;
    xEMSysCardLogic logic{doc, &window};
    xEMSHeader& header = *doc.header;
};

} // namespace

TEST_F(SystemCardLogic, ApplyStoresAsItGoesAndStopsAtAMissingHalfPeriod)
{
    xEMSysCardLogic::Values values = xEMSysCardLogic::ValuesOf(header);
    values.systemName = "Bird 2";
    values.normalizedBy = "component";
    values.txKind = "other";   // a field of the last step
    std::string message;
    // A new header's half period is 0: the real one is missing.
    EXPECT_FALSE(logic.Apply(values, message));
    EXPECT_EQ(message, "Undefined halfperiod in real time.");
    EXPECT_EQ(header.systemName + header.normalizedBy + header.txKind, "Bird 2componentundefined");
    EXPECT_TRUE(doc.IsChanged());

    values.halfPeriod = 2.5f;
    values.nominalHalfPeriod = 0.0f;
    EXPECT_FALSE(logic.Apply(values, message));
    EXPECT_EQ(message, "Undefined halfperiod in nominal time.");
    EXPECT_EQ(header.realHalfPeriod, 2.5f);

    values.nominalHalfPeriod = 40.0f;
    EXPECT_TRUE(logic.Apply(values, message));
    EXPECT_EQ(header.nominalHalfPeriod, 40.0f);
    EXPECT_EQ(header.txKind, "other");

    // Nothing differs: nothing is marked.
    doc.SetChanged(false);
    EXPECT_TRUE(logic.Apply(values, message));
    EXPECT_FALSE(doc.IsChanged());

    // In the frequency domain the half periods are not read.
    values.waveformType = "frequency domain";
    values.halfPeriod = 0.0f;
    values.rxKind = "averaged";
    EXPECT_TRUE(logic.Apply(values, message));
    EXPECT_EQ(header.halfPeriod, 2.5f);
    EXPECT_EQ(header.rxKind, "nominal");
    EXPECT_TRUE(window.commands.empty());
}

TEST_F(SystemCardLogic, ChoicesSendTheirCommandsAndTimeScalingLeavesTheCopy)
{
    logic.ChooseTxKind("undefined");   // the same kind still asks
    EXPECT_FALSE(doc.IsChanged());
    logic.ChooseTxKind("nominal");
    EXPECT_EQ(header.txKind, "nominal");
    EXPECT_TRUE(doc.IsChanged());
    logic.ChooseRxKind("undefined");
    logic.ChooseRxKind("calibrated");
    EXPECT_EQ(window.commands, (std::vector<long>{9346, 9345, 9348, 9347}));

    window.commands.clear();
    logic.ChooseWaveformType("halfperiod");   // the same type sends nothing
    EXPECT_TRUE(window.commands.empty());
    logic.ChooseWaveformType("frequency domain");
    EXPECT_TRUE(header.IsFrequencyDomain());
    logic.ChooseWaveformType("transient");
    EXPECT_EQ(window.commands, (std::vector<long>{9349, 9350}));
    // Only the card's box keeps the copy of the real half period equal.
    FloatArray pair = logic.TimeScaling();
    pair[1] = 3.0f;
    logic.TakeTimeScaling(pair);
    EXPECT_EQ(header.realHalfPeriod, 3.0f);
    EXPECT_EQ(header.halfPeriod, 0.0f);
}

TEST(CardChecks, RunEveryCardOfEveryOrientationWithoutControlsAndChangeNothing)
{
    xRecordingPlatform platform;
    xEMEditDesc fresh;
    std::vector<xCardChecks::Failure> failures = xCardChecks::Run(fresh);
    ASSERT_EQ(failures.size(), 3u);
    // The receiver's table has one row.
    const char* const expected[][2] = {{"System Description", "Undefined halfperiod in real time."},
                                       {"Rx Waveform", "Undefined waveform or windows."},
                                       {"Data Format", "Undefined position of line number."}};
    for (size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(failures[i].code, 109);
        EXPECT_EQ(failures[i].title + "|" + failures[i].message, std::string(expected[i][0]) + "|" + expected[i][1]);
    }
    EXPECT_FALSE(fresh.IsChanged());
    EXPECT_EQ(xCardChecks::MakeLogic("No Such Card", fresh), nullptr);

    for (const char* name : {"survey-time-domain.DSC", "survey-frequency-domain.DSC", "survey-version7.DSC"}) {
        xEMEditDesc doc;
        doc.SetFilePath(kExamples + "/" + name);
        ASSERT_TRUE(doc.Load()) << name;
        std::ostringstream before, after;
        doc.WriteTo(before);
        int current = doc.current;
        EXPECT_TRUE(xCardChecks::Run(doc).empty()) << name;
        EXPECT_EQ(doc.current, current) << name;
        EXPECT_FALSE(doc.IsChanged()) << name;
        doc.WriteTo(after);
        EXPECT_EQ(after.str(), before.str()) << name;
    }
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
}
