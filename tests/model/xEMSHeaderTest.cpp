#include "model/xEMSHeader.h"

#include "gui/xRecordingPlatform.h"

#include "xStreamText.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

const char kTimeDomainHeader[] =
    "SYSTEM NAME\nAirborne test system\nVERSION\n2.1\nDEFINED BY\nsurvey crew\nDATE DEFINED\n"
    "12 May\nTIME SCALING\n128  4.16667   [mSec]\nWAVEFORM TYPE\nhalfperiod\n"
    "4.16667   [mSec]\nWAVEFORM NORMALIZED BY\ncomponent\n";

} // namespace

TEST(BracketUnit, TakesTheLastBracketOfEachKind)
{
    EXPECT_EQ(BracketUnit("x [a] y [bc]"), "bc");
    EXPECT_EQ(BracketUnit("[ab] c]"), "ab] c");
    EXPECT_EQ(BracketUnit("ERROR  []"), "---");
    EXPECT_EQ(BracketUnit("a] [b"), "---");
    EXPECT_EQ(BracketUnit("sec"), "s");
}

TEST(EMSHeader, CopyLeavesTheCardChoicesComparesScalingAndIdentityAndGivesTheTimeFactor)
{
    xEMSHeader header;
    xEMSHeader source;
    source.systemName = "S";
    source.realHalfPeriod = 3.0f;
    source.rxKind = "averaged";
    header.txKind = "other";
    header = source;
    EXPECT_EQ(header.realHalfPeriod, 3.0f);
    EXPECT_EQ(header.rxKind, "nominal");   // the card choices are not copied
    EXPECT_EQ(header.txKind, "other");
    EXPECT_TRUE(header.SameScaling(source) && header.SameIdentity(source));
    header.normalizedBy = "component";
    EXPECT_FALSE(header.SameScaling(source));
    header.definedBy = "x";
    EXPECT_FALSE(header.SameIdentity(source));
    header.waveformType = "frequency domain";
    EXPECT_FALSE(header.IsNormalizedByComponent());

    xEMSHeader timing;
    timing.timeUnit = "month";   // thirty weeks
    EXPECT_DOUBLE_EQ(timing.TimeFactor(), 1.0 / 18144000.0);
    timing.timeUnit = "furlong";
    timing.nominalHalfPeriod = 128.0f;
    timing.realHalfPeriod = 4.0f;
    EXPECT_DOUBLE_EQ(timing.TimeFactor(), 32.0);
    timing.timeUnit = "mSec";
    EXPECT_DOUBLE_EQ(timing.TimeFactor(), 32.0 / static_cast<double>(1e-3f));
}

TEST(EMSHeader, ReadsAndWritesTheTimeDomainLayoutAndUpdatesOldHeaders)
{
    xRecordingPlatform platform;
    std::istringstream in(std::string(kTimeDomainHeader) + "next");
    xEMSHeader header;
    in >> header;
    EXPECT_EQ(header.timeUnit, "mSec");
    EXPECT_EQ(RestOfStream(in), "next");
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
    EXPECT_EQ(Written(header), kTimeDomainHeader);

    // The stored half period is thrown away.
    std::istringstream other(Replaced(kTimeDomainHeader, "4.16667   [mSec]\nWAVEFORM N", "99   [mSec]\nWAVEFORM N"));
    xEMSHeader fresh;
    other >> fresh;
    EXPECT_EQ(fresh.halfPeriod, 4.16667f);

    // An old header without normalisation is noted, and its next line consumed.
    std::string old = kTimeDomainHeader;
    old.erase(old.find("WAVEFORM NORMALIZED BY"));
    std::istringstream oldIn(old + "____\nafter\n");
    xEMSHeader updated;
    oldIn >> updated;
    EXPECT_EQ(updated.normalizedBy, "total field");
    EXPECT_EQ(platform.Texts(xPlatform::kNote),
              std::vector<std::string>{"Old system descriptor, will be updated to support waveform normalization."});
    EXPECT_EQ(RestOfStream(oldIn), "after\n");
}
