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
    EXPECT_EQ(BracketUnit("1 1   [mSec]"), "mSec");
    EXPECT_EQ(BracketUnit("x [a] y [bc]"), "bc");
    EXPECT_EQ(BracketUnit("[ab] c]"), "ab] c");
    EXPECT_EQ(BracketUnit("ERROR  []"), "---");
    EXPECT_EQ(BracketUnit("a] [b"), "---");
    EXPECT_EQ(BracketUnit("sec"), "s");
    EXPECT_EQ(BracketUnit(""), "");
}

TEST(EMSHeader, DefaultsListsAndCopy)
{
    xEMSHeader header;
    EXPECT_EQ(header.timeUnit, "sec");
    EXPECT_EQ(header.waveformType, "halfperiod");
    EXPECT_EQ(header.normalizedBy, "total field");
    EXPECT_EQ(header.rxKind, "nominal");
    EXPECT_EQ(header.txKind, "undefined");
    EXPECT_EQ(header.halfPeriod, 0.0f);
    ASSERT_EQ(header.timeUnits.size(), 9u);
    EXPECT_EQ(header.timeUnits[8], "month");
    EXPECT_EQ(header.waveformTypes[2], "frequency domain");
    EXPECT_EQ(header.waveformKinds[3], "calibrated");
    EXPECT_EQ(header.normalizations[1], "component");

    xEMSHeader source;
    source.systemName = "S";
    source.realHalfPeriod = 3.0f;
    source.rxKind = "averaged";
    header.txKind = "other";
    header = source;
    EXPECT_EQ(header.systemName, "S");
    EXPECT_EQ(header.realHalfPeriod, 3.0f);
    EXPECT_EQ(header.rxKind, "nominal");   // the card choices are not copied
    EXPECT_EQ(header.txKind, "other");
    EXPECT_TRUE(header.SameScaling(source));
    EXPECT_TRUE(header.SameIdentity(source));
    header.normalizedBy = "component";
    EXPECT_FALSE(header.SameScaling(source));
    header.definedBy = "x";
    EXPECT_FALSE(header.SameIdentity(source));
    EXPECT_TRUE(header.IsNormalizedByComponent());
    header.waveformType = "frequency domain";
    EXPECT_TRUE(header.IsFrequencyDomain());
    EXPECT_FALSE(header.IsNormalizedByComponent());
}

TEST(EMSHeader, TimeFactor)
{
    xEMSHeader header;
    header.timeUnit = "month";   // thirty weeks
    EXPECT_DOUBLE_EQ(header.TimeFactor(), 1.0 / 18144000.0);
    header.timeUnit = "furlong";
    header.nominalHalfPeriod = 128.0f;
    header.realHalfPeriod = 4.0f;
    EXPECT_DOUBLE_EQ(header.TimeFactor(), 32.0);
    header.timeUnit = "mSec";
    EXPECT_DOUBLE_EQ(header.TimeFactor(), 32.0 / static_cast<double>(1e-3f));
}

TEST(EMSHeader, ReadsAndWritesTheTimeDomainLayout)
{
    xRecordingPlatform platform;
    std::istringstream in(std::string(kTimeDomainHeader) + "next");
    xEMSHeader header;
    in >> header;
    EXPECT_EQ(header.systemName, "Airborne test system");
    EXPECT_EQ(header.dateDefined, "12 May");
    EXPECT_EQ(header.nominalHalfPeriod, 128.0f);
    EXPECT_EQ(header.realHalfPeriod, 4.16667f);
    EXPECT_EQ(header.halfPeriod, header.realHalfPeriod);
    EXPECT_EQ(header.timeUnit, "mSec");
    EXPECT_EQ(header.normalizedBy, "component");
    EXPECT_EQ(RestOfStream(in), "next");
    EXPECT_TRUE(platform.messages.empty());
    EXPECT_EQ(Written(header), kTimeDomainHeader);
}

TEST(EMSHeader, TheStoredHalfPeriodIsThrownAway)
{
    std::string text = kTimeDomainHeader;
    text.replace(text.find("4.16667   [mSec]\nWAVEFORM N"), 7, "99");
    std::istringstream in(text);
    xEMSHeader header;
    in >> header;
    EXPECT_EQ(header.halfPeriod, 4.16667f);
}

TEST(EMSHeader, FrequencyDomainHasNoHalfPeriodLine)
{
    xEMSHeader header;
    header.waveformType = "frequency domain";
    header.timeUnit = "microsec";
    header.nominalHalfPeriod = 0.25f;
    std::string text = Written(header);
    EXPECT_EQ(text, "SYSTEM NAME\n\nVERSION\n\nDEFINED BY\n\nDATE DEFINED\n\nTIME SCALING\n"
                    "0.25  1   [microsec]\nWAVEFORM TYPE\nfrequency domain\n"
                    "WAVEFORM NORMALIZED BY\ntotal field\n");
    std::istringstream in(text);
    xEMSHeader back;
    back.normalizedBy = "component";
    in >> back;
    EXPECT_TRUE(back.SameScaling(header));
    EXPECT_FALSE(in.fail());
}

TEST(EMSHeader, AnOldHeaderWithoutNormalisationIsNotedAndItsLineConsumed)
{
    xRecordingPlatform platform;
    std::string text = kTimeDomainHeader;
    text.erase(text.find("WAVEFORM NORMALIZED BY"));
    std::istringstream in(text + "____\nafter\n");
    xEMSHeader header;
    in >> header;
    EXPECT_EQ(header.normalizedBy, "total field");
    ASSERT_EQ(platform.Texts(xPlatform::kNote).size(), 1u);
    EXPECT_EQ(platform.Texts(xPlatform::kNote)[0],
              "Old system descriptor, will be updated to support waveform normalization.");
    EXPECT_EQ(RestOfStream(in), "after\n");
}
