#include "model/xEMSDesc.h"

#include "gui/xRecordingPlatform.h"
#include "model/xEMSHeader.h"

#include "xStreamText.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

const std::string kSeparator(57, '_');

const std::string kTimeDomainRecord =
    kSeparator + "\nTRANSMITTER CURRENT WAVEFORM\n"
    "averaged\nAMPLITUDE SCALING\n1  2   [amp]\n3\n"
    "        TIME      CURRENT        ERROR  [ppm]\n"
    "           0            0            0\n"
    "        0.25            1          0.5\n"
    "         1.5      -123457        1e-05\n" +
    kSeparator + "\nRECEIVER PRIMARY FIELD\nundefined\n" + kSeparator +
    "\nRECEIVER SAMPLING\n2\n       START          END       WEIGHT\n"
    "         0.1          0.2            1\n"
    "         0.2          0.4          0.5\n" +
    kSeparator + "\n";

const std::string kFrequencyRecord = kSeparator + "\nFREQUENCIES\n2\n" + kSeparator +
                                     "\n         900           1\n        7200         0.5\n"
                                     "AMPLITUDE SCALING\n2 3\n" +
                                     kSeparator + "\n";

struct Record {
    xEMSHeader header;
    xEMSDesc desc;
    explicit Record(bool frequencyDomain = false)
    {
        if (frequencyDomain)
            header.waveformType = "frequency domain";
        desc.SetHeader(&header);
    }
    std::istream& Read(std::istream& in) { return in >> desc; }
};

} // namespace

TEST(EMWaveform, AnUndefinedWaveformIsOneLineBothWays)
{
    xEMWaveform waveform;
    std::ostringstream out;
    out << waveform;
    EXPECT_EQ(out.str(), "undefined\n");
    xEMWaveform read;
    read.nominalAmplitude = 7.0f;
    std::istringstream in("undefined\nnext\n");
    in >> read;
    EXPECT_EQ(read.nominalAmplitude, 7.0f);
    EXPECT_EQ(read.table.Rows(), 1);
    EXPECT_EQ(RestOfStream(in), "next\n");
}

TEST(EMSDesc, TimeDomainRoundTripByteForByte)
{
    Record record;
    std::istringstream in(kTimeDomainRecord + "rest");
    record.Read(in);
    ASSERT_FALSE(in.fail());
    const xEMSDesc& desc = record.desc;
    EXPECT_EQ(desc.txWaveform.kind, "averaged");
    EXPECT_EQ(desc.txWaveform.equivalentAmplitude, 2.0f);
    EXPECT_EQ(desc.txWaveform.table.RowLower(), 1);
    EXPECT_EQ(desc.txWaveform.table.Rows(), 3);
    EXPECT_EQ(*const_cast<FloatMatrix&>(desc.txWaveform.table).Element(3, 1), -123457.0f);
    EXPECT_EQ(desc.rxField.kind, "undefined");
    EXPECT_EQ(desc.rxField.amplitudeUnit, "amp/m");
    EXPECT_EQ(desc.Channels(), 2);
    EXPECT_EQ(desc.weights[2], 0.5f);
    EXPECT_EQ(Written(desc), kTimeDomainRecord);

    Record copy;
    copy.desc = desc;
    EXPECT_TRUE(copy.desc == desc);
    copy.desc.weights[2] = 0.25f;
    EXPECT_FALSE(copy.desc == desc);
}

TEST(EMSDesc, TheErrorUnitLivesOnlyUntilSaved)
{
    std::string text = kTimeDomainRecord;
    text.replace(text.find("[ppm]"), 5, "[%]");
    Record record;
    std::istringstream in(text);
    record.Read(in);
    EXPECT_EQ(record.desc.txWaveform.errorUnit, "%");
    EXPECT_EQ(Written(record.desc), kTimeDomainRecord);
}

TEST(EMSDesc, FrequencyDomainLayoutAndOlderVersions)
{
    Record record(true);
    std::istringstream in(kFrequencyRecord);
    record.Read(in);
    ASSERT_FALSE(in.fail());
    EXPECT_EQ(record.desc.Channels(), 2);
    EXPECT_EQ(record.desc.realAmplitude, 3.0f);
    EXPECT_EQ(Written(record.desc), kFrequencyRecord);
    FloatArray frequencies;
    ASSERT_TRUE(record.desc.GetFrequencies(frequencies));
    EXPECT_EQ(frequencies.Lower(), 1);
    EXPECT_EQ(frequencies[2], 7200.0f);

    // Version 4: a scale, no weights. Version 3: neither.
    std::string noWeights = kSeparator + "\nFREQUENCIES\n2\n" + kSeparator + "\n900\n7200\n";
    Record v4(true);
    v4.desc.SetVersion(4);
    std::istringstream in4(noWeights + "AMPLITUDE SCALING\n5 6\n" + kSeparator + "\nafter\n");
    v4.Read(in4);
    EXPECT_EQ(v4.desc.nominalAmplitude, 5.0f);
    EXPECT_TRUE(v4.desc.HasUnitWeights());
    EXPECT_EQ(RestOfStream(in4), "after\n");
    Record v3(true);
    v3.desc.SetVersion(3);
    std::istringstream in3(noWeights + kSeparator + "\nafter\n");
    v3.Read(in3);
    EXPECT_EQ(v3.desc.nominalAmplitude, 1.0f);
    EXPECT_EQ(*v3.desc.frequencies.Element(2, 0), 7200.0f);
    EXPECT_EQ(RestOfStream(in3), "after\n");
}

TEST(EMSDesc, EmptyAndNegativeCountsGiveEmptyTablesThatReadBack)
{
    Record record;
    record.desc.windows.Resize(1, 0, 0, 1);
    record.desc.SetChannels(0);
    std::string text = Written(record.desc) + "after\n";
    Record back;
    std::istringstream in(text);
    back.Read(in);
    EXPECT_FALSE(in.fail());
    EXPECT_EQ(back.desc.Channels(), 0);
    EXPECT_EQ(RestOfStream(in), "after\n");

    std::string negative = kFrequencyRecord;
    negative.replace(negative.find("\n2\n"), 3, "\n-7\n");
    Record frequency(true);
    std::istringstream negativeIn(negative);
    frequency.Read(negativeIn);
    EXPECT_EQ(frequency.desc.Channels(), 0);
    EXPECT_EQ(frequency.desc.weights.Size(), 0);
}

TEST(EMSDesc, AbsurdCountsAreOutOfMemoryAndShortFilesStopSafely)
{
    xRecordingPlatform platform;
    std::string huge = kTimeDomainRecord;
    huge.replace(huge.find("SAMPLING\n2"), 10, "SAMPLING\n2000000000");
    Record record;
    std::istringstream in(huge);
    EXPECT_THROW(record.Read(in), xFatalExitError);

    std::string shortText = kTimeDomainRecord.substr(0, kTimeDomainRecord.find("0.25"));
    shortText.replace(shortText.find("\n3\n"), 3, "\n3000000\n");
    Record truncated;
    std::istringstream shortIn(shortText);
    truncated.Read(shortIn);
    EXPECT_TRUE(shortIn.fail());
    EXPECT_EQ(truncated.desc.txWaveform.table.Rows(), 3000000);
}

TEST(EMSDesc, WeightsPairWithRowsByPositionAndMissingOnesWriteAsOne)
{
    Record record;
    record.desc.windows.Resize(0, 2, 0, 1);   // rows from 0, weights from 1
    record.desc.weights.Resize(1, 2);
    record.desc.weights = 0.5f;
    std::string text = Written(record.desc);
    EXPECT_NE(text.find("           0            0          0.5\n"
                        "           0            0          0.5\n"
                        "           0            0            1\n"),
              std::string::npos);
}

TEST(EMSDesc, SetChannelsKeepsTheFirstWeights)
{
    xEMSDesc desc;
    desc.SetChannels(3);
    desc.weights[2] = 0.5f;
    desc.weights[3] = 0.25f;
    desc.SetChannels(2);
    EXPECT_EQ(desc.weights.Upper(), 2);
    EXPECT_EQ(desc.weights[2], 0.5f);
    desc.SetChannels(4);
    EXPECT_EQ(desc.weights[2], 0.5f);
    EXPECT_EQ(desc.weights[3], 1.0f);
    EXPECT_FALSE(desc.HasUnitWeights());
    FloatArray copy;
    EXPECT_FALSE(desc.CopyUnitWeights(copy));
}

TEST(EMSDesc, WaveformsAndWindowsForComputation)
{
    Record record;
    std::istringstream in(kTimeDomainRecord);
    record.Read(in);
    FloatMatrix matrix;
    ASSERT_TRUE(record.desc.GetTxWaveform(matrix));
    EXPECT_EQ(matrix.Rows(), 3);
    EXPECT_EQ(matrix.ColLower(), 1);
    EXPECT_EQ(*matrix.Element(0, 2), 0.25f);   // time is not scaled
    EXPECT_EQ(*matrix.Element(1, 2), 2.0f);    // amplitude times 2 / 1
    EXPECT_FALSE(record.desc.GetRxField(matrix));
    EXPECT_TRUE(record.desc.RxFieldIncomplete());
    EXPECT_FALSE(record.desc.TxWaveformIncomplete());

    xEMSDesc fresh;
    fresh.txWaveform.kind = "nominal";
    EXPECT_TRUE(fresh.TxWaveformIncomplete());   // fewer than three samples
    EXPECT_TRUE(fresh.GetTxWaveform(matrix));
    fresh.txWaveform.table.Resize(1, 1);
    EXPECT_FALSE(fresh.GetTxWaveform(matrix));   // a table never filled

    record.desc.GetWindowsInSeconds(matrix, 1000.0f);
    EXPECT_EQ(matrix.RowLower(), 0);
    EXPECT_EQ(matrix.ColUpper(), 2);
    EXPECT_FLOAT_EQ(*matrix.Element(1, 2), 0.0004f);
    EXPECT_FALSE(record.desc.GetFrequencyTable(matrix));
}
