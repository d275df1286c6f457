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

TEST(EMSDesc, TimeDomainRoundTripByteForByteAndTablesForComputation)
{
    Record record;
    std::istringstream in(kTimeDomainRecord + "rest");
    record.Read(in);
    ASSERT_FALSE(in.fail());
    xEMSDesc& desc = record.desc;
    EXPECT_EQ(*desc.txWaveform.table.Element(3, 1), -123457.0f);
    EXPECT_EQ(desc.rxField.amplitudeUnit, "amp/m");
    EXPECT_EQ(Written(desc), kTimeDomainRecord);

    Record copy;
    copy.desc = desc;
    EXPECT_TRUE(copy.desc == desc);

    // The error unit read lives only until saved.
    std::istringstream percentIn(Replaced(kTimeDomainRecord, "[ppm]", "[%]"));
    copy.Read(percentIn);
    EXPECT_EQ(copy.desc.txWaveform.errorUnit, "%");
    EXPECT_EQ(Written(copy.desc), kTimeDomainRecord);

    FloatMatrix matrix;
    ASSERT_TRUE(desc.GetTxWaveform(matrix));
    EXPECT_EQ(matrix.ColLower(), 1);
    EXPECT_EQ(*matrix.Element(0, 2), 0.25f);   // time is not scaled
    EXPECT_EQ(*matrix.Element(1, 2), 2.0f);    // amplitude times 2 / 1
    EXPECT_FALSE(desc.GetRxField(matrix));
    EXPECT_TRUE(desc.RxFieldIncomplete());

    xEMSDesc fresh;
    fresh.txWaveform.kind = "nominal";
    EXPECT_TRUE(fresh.TxWaveformIncomplete());   // fewer than three samples
    fresh.txWaveform.table.Resize(1, 1);
    EXPECT_FALSE(fresh.GetTxWaveform(matrix));   // a table never filled

    desc.GetWindowsInSeconds(matrix, 1000.0f);
    EXPECT_FLOAT_EQ(*matrix.Element(1, 2), 0.0004f);
}

TEST(EMSDesc, FrequencyDomainLayoutAndOlderVersions)
{
    Record record(true);
    std::istringstream in(kFrequencyRecord);
    record.Read(in);
    ASSERT_FALSE(in.fail());
    EXPECT_EQ(Written(record.desc), kFrequencyRecord);
    FloatArray frequencies;
    ASSERT_TRUE(record.desc.GetFrequencies(frequencies));
    EXPECT_EQ(frequencies[2], 7200.0f);

    // Version 4: a scale, no weights.
    std::string noWeights = kSeparator + "\nFREQUENCIES\n2\n" + kSeparator + "\n900\n7200\n";
    Record v4(true);
    v4.desc.SetVersion(4);
    std::istringstream in4(noWeights + "AMPLITUDE SCALING\n5 6\n" + kSeparator + "\nafter\n");
    v4.Read(in4);
    EXPECT_EQ(v4.desc.nominalAmplitude, 5.0f);
    EXPECT_EQ(RestOfStream(in4), "after\n");
}

TEST(EMSDesc, EmptyAndNegativeCountsGiveEmptyTablesThatReadBack)
{
    Record record;
    record.desc.windows.Resize(1, 0, 0, 1);
    record.desc.SetChannels(0);
    Record back;
    std::istringstream in(Written(record.desc) + "after\n");
    back.Read(in);
    EXPECT_FALSE(in.fail());
    EXPECT_EQ(back.desc.Channels(), 0);
    EXPECT_EQ(RestOfStream(in), "after\n");

    Record frequency(true);
    std::istringstream negativeIn(Replaced(kFrequencyRecord, "\n2\n", "\n-7\n"));
    frequency.Read(negativeIn);
    EXPECT_EQ(frequency.desc.weights.Size(), 0);
}

TEST(EMSDesc, CountsTheFileCannotHoldEndTheReadBeforeAnyTableIsMade)
{
    xRecordingPlatform platform;
    auto read = [](const std::string& text, Record& record) {
        std::istringstream in(text);
        record.Read(in);
        return !in.fail();
    };
    // Too large for memory: the table's own refusal comes first.
    Record huge;
    EXPECT_THROW(read(Replaced(kTimeDomainRecord, "SAMPLING\n2", "SAMPLING\n40000000"), huge),
                 xFatalExitError);
    // Many rows with a few bytes behind them: the read ends at the count, and
    // the table is as it was.
    Record many;
    EXPECT_THROW(read(Replaced(kTimeDomainRecord, "SAMPLING\n2", "SAMPLING\n30000000"), many),
                 xFatalExitError);
    EXPECT_EQ(many.desc.windows.Rows(), 1);
    Record waveform;
    EXPECT_THROW(read(Replaced(kTimeDomainRecord, "\n3\n", "\n65537\n"), waveform), xFatalExitError);
    EXPECT_EQ(waveform.desc.txWaveform.table.Rows(), 1);
    Record frequencies(true);
    EXPECT_THROW(read(Replaced(kFrequencyRecord, "FREQUENCIES\n2", "FREQUENCIES\n100000"), frequencies),
                 xFatalExitError);
    EXPECT_EQ(platform.Texts(xPlatform::kFatal),
              (std::vector<std::string>{"FloatMatrix: Out of memory!",
                                        "xEMDesc::Read()  Error reading EM system descriptor.",
                                        "xEMDesc::Read()  Error reading EM system descriptor.",
                                        "xEMDesc::Read()  Error reading EM system descriptor."}));
    platform.Clear();

    // Up to 65,536 rows a short file reads as far as it goes and stops.
    const std::string shortText = kTimeDomainRecord.substr(0, kTimeDomainRecord.find("0.25"));
    Record truncated;
    EXPECT_FALSE(read(Replaced(shortText, "\n3\n", "\n65536\n"), truncated));
    EXPECT_EQ(truncated.desc.txWaveform.table.Rows(), 65536);
    // Rows that may be there are read, and a stream that can't tell what is
    // left is read as it comes.
    Record padded;
    EXPECT_FALSE(read(Replaced(shortText, "\n3\n", "\n70000\n") + std::string(140000, ' '), padded));
    EXPECT_EQ(padded.desc.txWaveform.table.Rows(), 70000);
    const std::string unseekable = Replaced(shortText, "\n3\n", "\n70000\n");
    StringBuf buffer(unseekable);
    std::istream in(&buffer);
    Record streamed;
    streamed.Read(in);
    EXPECT_EQ(streamed.desc.txWaveform.table.Rows(), 70000);
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
}

TEST(EMSDesc, WeightsPairWithRowsByPositionMissingOnesWriteAsOneAndResizingKeepsTheFirst)
{
    Record record;
    record.desc.windows.Resize(0, 2, 0, 1);   // rows from 0, weights from 1
    record.desc.weights.Resize(1, 2);
    record.desc.weights = 0.5f;
    EXPECT_NE(Written(record.desc).find("           0            0          0.5\n"
                        "           0            0          0.5\n"
                        "           0            0            1\n"),
              std::string::npos);

    xEMSDesc& desc = record.desc;
    desc.SetChannels(3);
    desc.weights[2] = 0.5f;
    desc.weights[3] = 0.25f;
    desc.SetChannels(2);
    desc.SetChannels(4);
    EXPECT_EQ(desc.weights[2], 0.5f);
    EXPECT_EQ(desc.weights[3], 1.0f);
}
