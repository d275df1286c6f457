#include "model/xEMFDesc.h"

#include "gui/xRecordingPlatform.h"

#include "xStreamText.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

// Reads text into a record shaped as the descriptor frame shapes it.
xEMFDesc ReadBack(const std::string& text, int channels, int16_t frequencyDomain = 0, int version = 9)
{
    xEMFDesc format(1);
    format.version = version;
    format.ResizeChannels(channels);
    format.frequencyDomain = frequencyDomain;
    std::istringstream in(text);
    in >> format;
    EXPECT_FALSE(in.fail()) << text;
    return format;
}

void SetPositions(FloatMatrix& matrix, int code, std::initializer_list<float> values)
{
    int column = 1;
    for (float value : values)
        matrix.Row(code)[column++] = value;
}

const char* const kNewRecord =
    "DATA FORMAT\n"
    "Geosoft format (1 yes, 0 no)\n     0\n"
    "Sample file name (if available)\n\n"
    "Number of comment lines at the beginning of each data file\n     0\n"
    "Number of items in each data record\n     0\n"
    "POSITION (INDEX) OF CHANNELS IN EACH DATA RECORD\n"
    "channel   ????  TxRx  TxRy  TxRz  TyRx  TyRy  TyRz  TzRx  TzRy  TzRz\n"
    "     1     0     0     0     0     0     0     0     0     0     0\n"
    "----------------------\n"
    "line          0   1   \nFID           0   1   \neast          0   1   \n"
    "north         0   1   \nz_topo        0   1   \naltitude      0   1   \n"
    "Rx_pitch      0   0   \nRx_roll       0   0   \nRx_yaw        0   0   \n"
    "Tx_pitch      0   0   \nTx_roll       0   0   \nTx_yaw        0   0   \n"
    "z(ASL)        0   2   \n"
    "----------------------\n";

std::string OlderRecord(int version, bool withTail)
{
    std::string text =
        "DATA FORMAT\nSample file name (if available)\nsample.dat\n"
        "Number of comment lines at the beginning of each data file\n3\n"
        "Number of items in each data record\n40\n"
        "Position (index) of line label in each data record (starting from 1)\n1\n"
        "Position (index) of station (FID) label in each data record\n2\n"
        "Position (index) of xyz coordinates in each data record\n3 4 5\n"
        "Position (index) of flight altitude in each data record\n6\n";
    if (version > 5)
        text += "Position (index) of RECEIVER orientation angles (pitch, roll, yaw)  in each data record\n"
                "7 8 9\n"
                "Position (index) of TRANSMITTER orientation angles (pitch, roll, yaw)  in each data record\n"
                "10 11 12\n";
    text += "POSITION (INDEX) OF CHANNELS IN EACH DATA RECORD\n"
            "channel   ????  TxRx  TxRy  TxRz  TyRx  TyRy  TyRz  TzRx  TzRy  TzRz\n"
            "     1     0     0     0     0     0     0     0     0     0    20\n"
            "     2     0     0     0     0     0     0     0     0     0    21\n";
    if (withTail)
        text += "Geosoft format (1 yes, 0 no)\n1\nUser Defined Items\n2\nmag 30\nz(ASL) 31\n";
    return text;
}

} // namespace

TEST(FormatRecord, TimeDomainRoundTripWithAnyLineEnds)
{
    xEMFDesc fresh(0);   // at least one channel
    EXPECT_EQ(Written(fresh), kNewRecord);
    EXPECT_TRUE(ReadBack(kNewRecord, 1) == fresh);

    xEMFDesc format(3);
    format.geosoft = 1;
    format.sampleFile = "/data/line10.xyz";
    format.commentLines = 2;
    format.itemCount = 31;
    format.rxPitchPos = 7;
    format.txYawPos = 12;
    SetPositions(format.channelPos, 109, {20, 21, 22});
    SetPositions(format.channelPos, 101, {13, 14, 15});
    format.userLabels = {"z(ASL)", "a_name_of_20_chars__", "mag"};
    format.userPositions = {5, 1234, 6};
    const std::string text = Written(format);
    EXPECT_NE(text.find("\nRx_pitch      7   0   \nRx_roll       0   0   \n"), std::string::npos);
    // A field that fills its width keeps one blank behind it.
    EXPECT_NE(text.find("\na_name_of_20_chars__ 1234 2   \n"), std::string::npos);
    EXPECT_NE(text.find("\n     3     0    15     0     0     0     0     0     0     0    22\n"), std::string::npos);

    for (const char* ending : {"\n", "\r\n", "\r"}) {
        const xEMFDesc back = ReadBack(Replaced(text, "\n", ending), 3);
        EXPECT_TRUE(back == format && back.HasSameTitles(format)) << ending;
        EXPECT_EQ(Written(back), text);
    }
}

TEST(FormatRecord, NumbersThatFillTheirColumnsKeepABlankAndReadBack)
{
    // Position 100000 once ran into the row index ("     7100000"), and rows
    // from 100000 on into their first position.
    const int channels = 100001;
    for (int16_t frequencyDomain : {0, 1}) {
        xEMFDesc format(channels);
        format.frequencyDomain = frequencyDomain;
        for (FloatMatrix* matrix : {&format.channelPos, &format.inPhasePos, &format.quadraturePos}) {
            *matrix->Element(101, 7) = 100000;
            *matrix->Element(102, 7) = -12345;
            *matrix->Element(109, channels) = 2000000;
        }
        const std::string text = Written(format);
        EXPECT_NE(text.find("\n     7     0 100000 -12345     0"), std::string::npos);
        EXPECT_NE(text.find("\n 100001     0     0     0     0     0     0     0     0     0 2000000\n"),
                  std::string::npos);
        EXPECT_NE(text.find("\n 99999     0"), std::string::npos);   // five digits are as they were
        const xEMFDesc back = ReadBack(text, channels, frequencyDomain);
        EXPECT_TRUE(back == format) << frequencyDomain;
        EXPECT_EQ(Written(back), text);
    }
}

TEST(FormatRecord, FixedRowsGoByPlaceUserRowsEndAtTheSeparatorOrTheFile)
{
    std::string text = Replaced(kNewRecord, "line          0   1   ", "anything 11 9");
    text = Replaced(text, "Tx_yaw        0   0   ", "Tx_yaw 77.9");
    text = Replaced(text, "z(ASL)        0   2   \n", "alt  4 2\n\nbig 3000000000 2\nz(ASL) 6 2\n");
    const xEMFDesc back = ReadBack(text, 1);
    EXPECT_EQ(back.linePos, 11);
    EXPECT_EQ(back.txYawPos, 77);
    EXPECT_EQ(back.userLabels, (std::vector<std::string>{"alt", "big", "z(ASL)"}));
    EXPECT_EQ(back.userPositions, (std::vector<int32_t>{4, 0, 6}));

    // Without its closing separator the record ends with the file, and a
    // record lacking "z(ASL)" gets it.
    std::string open = text.substr(0, text.find("big"));
    open.pop_back();
    xRecordingPlatform platform;
    const xEMFDesc cut = ReadBack(open, 1);
    EXPECT_EQ(cut.userLabels, (std::vector<std::string>{"alt", "z(ASL)"}));
    EXPECT_EQ(cut.userPositions, (std::vector<int32_t>{4, 0}));
    EXPECT_TRUE(platform.messages.empty());
}

TEST(FormatRecord, TablesFarLargerThanOneWriteStayWholeAndInOrder)
{
    // Tables of thousands of channels reach the stream in several pieces.
    const int channels = 4000;
    xEMFDesc format(channels);
    format.frequencyDomain = 1;
    for (int i = 1; i <= channels; ++i) {
        format.inPhasePos.Row(103)[i] = float(2 * i);
        format.quadraturePos.Row(109)[i] = float(2 * i + 1);
    }
    format.userLabels = {"z(ASL)", "mag"};
    format.userPositions = {5, 99999};
    const std::string text = Written(format);

    const size_t inPhase = text.find("POSITION (INDEX) OF IN PHASE");
    const size_t quadrature = text.find("POSITION (INDEX) OF QUADRATURE");
    ASSERT_NE(quadrature, std::string::npos);
    // Heading, column titles, then one row of 11 fields of 6 a channel.
    EXPECT_EQ(quadrature - inPhase, 49u + 66u + channels * 67u);
    EXPECT_NE(text.find("\n  4000     0     0     0  8000     0     0     0     0     0     0\n"
                        "POSITION (INDEX) OF QUADRATURE"),
              std::string::npos);
    EXPECT_NE(text.find("\n  4000     0     0     0     0     0     0     0     0     0  8001\n"
                        "----------------------\n"),
              std::string::npos);
    EXPECT_NE(text.find("\nmag           99999 2   \n----------------------\n"), std::string::npos);

    const xEMFDesc back = ReadBack(text, channels, 1);
    EXPECT_TRUE(back == format);
    EXPECT_EQ(back.channelPos, FloatMatrix(100, 109, 1, channels));   // left zero
    EXPECT_EQ(Written(back), text);
}

TEST(FormatRecord, OlderLayoutsWithAndWithoutAnglesAndTails)
{
    const xEMFDesc seven = ReadBack(OlderRecord(7, true), 2, 0, 7);
    EXPECT_EQ(seven.txRollPos, 11);
    EXPECT_EQ(seven.geosoft, 1);
    EXPECT_EQ(seven.channelPos.Row(109)[2], 21.0f);
    EXPECT_EQ(seven.ZAslPosition(), 31);
    EXPECT_EQ(seven.UserItemsWithoutZAsl(), std::vector<std::string>{"mag"});

    // Version 5 has no angles; they keep what the record held.
    xEMFDesc five(2);
    five.version = 5;
    five.rxPitchPos = 99;
    std::istringstream in(OlderRecord(5, true));
    in >> five;
    EXPECT_EQ(five.rxPitchPos, 99);
    EXPECT_EQ(five.channelPos.Row(109)[1], 20.0f);

    // A version 8 record may end behind its tables.
    xEMFDesc format(2);
    format.version = 8;
    format.geosoft = 1;
    std::istringstream in8(OlderRecord(8, false));
    in8 >> format;
    EXPECT_TRUE(in8.good());
    EXPECT_EQ(format.geosoft, 1);
    EXPECT_EQ(format.userLabels, std::vector<std::string>{"z(ASL)"});

    // A user item count beyond the rows present, or a negative one, reads
    // what is there and nothing more.
    std::string tail = OlderRecord(8, true);
    for (const char* count : {"2147483647", "-5"}) {
        xEMFDesc odd(2);
        odd.version = 8;
        std::istringstream oddIn(Replaced(tail, "Items\n2\n", std::string("Items\n") + count + "\n"));
        oddIn >> odd;
        EXPECT_EQ(odd.userLabels.back(), "z(ASL)");
        EXPECT_EQ(odd.userLabels.size(), count[0] == '-' ? 1u : 2u);
    }
}

TEST(FormatRecord, ClearingShapingAndMergingPositions)
{
    xEMFDesc format(2);
    SetPositions(format.channelPos, 101, {1, 2});
    SetPositions(format.inPhasePos, 103, {5, 6});
    format.ClearPositions(101);
    EXPECT_EQ(format.channelPos.Row(101)[2], 0.0f);
    EXPECT_EQ(format.inPhasePos.Row(103)[2], 6.0f);
    format.ClearPositions(100);
    EXPECT_EQ(format.inPhasePos.Row(103)[2], 0.0f);
    format.ResizeChannels(-3);
    EXPECT_EQ(format.ChannelCount(), 1);

    // Copying grows the target and merges the source's non-zero values;
    // where the source holds 0 the target keeps its own.
    xEMFDesc target(1);
    SetPositions(target.channelPos, 103, {8});
    SetPositions(target.channelPos, 109, {8});
    xEMFDesc source(3);
    SetPositions(source.channelPos, 109, {20, 21, 22});
    target.CopyPositions(source);
    EXPECT_EQ(target.ChannelCount(), 3);
    EXPECT_EQ(target.channelPos.Row(109)[3], 22.0f);
    EXPECT_EQ(target.channelPos.Row(109)[1], 20.0f);
    EXPECT_EQ(target.channelPos.Row(103)[1], 8.0f);
}

TEST(FormatRecord, DefinedOrientationsAndConsecutiveChannels)
{
    xEMFDesc format(5);
    SetPositions(format.channelPos, 103, {0, 7});
    SetPositions(format.channelPos, 107, {5, 6, 7, 7, 8});
    format.MarkDefinedOrientations();
    EXPECT_EQ(format.clasf.Count(), 1);
    EXPECT_EQ(format.OrientationChannels(107), 1);
    EXPECT_FALSE(format.HasRandomChannels());
    format.SetOrientationChannels(5, 107);
    SetPositions(format.channelPos, 107, {5, 6, 8});
    EXPECT_TRUE(format.HasRandomChannels());
    // A count beyond the columns held looks at the columns only.
    format.SetOrientationChannels(500, 107);
    SetPositions(format.channelPos, 107, {1, 2, 3, 4, 5});
    EXPECT_FALSE(format.HasRandomChannels());

    // In the frequency domain an orientation needs both positions to count as defined.
    format.frequencyDomain = 1;
    format.clasf = 0;
    format.SetOrientationChannels(3, 105);
    SetPositions(format.inPhasePos, 105, {5, 7, 9});
    SetPositions(format.quadraturePos, 105, {6, 8, 10});
    EXPECT_FALSE(format.HasRandomChannels());
    SetPositions(format.quadraturePos, 105, {6, 8, 8});
    EXPECT_TRUE(format.HasRandomChannels());
    SetPositions(format.inPhasePos, 109, {3});
    format.MarkDefinedOrientations();
    EXPECT_EQ(format.clasf.Count(), 1);
    EXPECT_EQ(format.OrientationChannels(105), 1);
}

TEST(FormatRecord, UsedPositionsInTheirFixedOrder)
{
    xEMFDesc format(2);
    format.linePos = 1;
    format.rxYawPos = 5;
    format.clasf = 0;
    format.SetOrientationChannels(2, 101);
    format.SetOrientationChannels(2, 100);   // never listed
    SetPositions(format.channelPos, 100, {90, 91});
    SetPositions(format.channelPos, 101, {10, 11});
    SetPositions(format.inPhasePos, 101, {20, 22});
    SetPositions(format.quadraturePos, 101, {21, 23});
    format.userPositions = {40};
    format.RebuildUsedPositions();
    EXPECT_EQ(format.usedPositions,
              (std::vector<int32_t>{1, 0, 0, 0, 0, 0, 0, 0, 5, 0, 0, 0, 10, 11, 40}));
    format.frequencyDomain = 1;
    const xEMFDesc copy(format);
    EXPECT_EQ(copy.usedPositions,
              (std::vector<int32_t>{1, 0, 0, 0, 0, 0, 0, 0, 5, 0, 0, 0, 21, 20, 23, 22, 40}));
}

TEST(FormatRecord, EqualityIgnoresNamesSampleFileAndVersion)
{
    xEMFDesc first(2);
    xEMFDesc second(first);
    second.sampleFile = "other";
    second.version = 7;
    second.userLabels = {"height"};
    EXPECT_TRUE(first == second);
    EXPECT_FALSE(first.HasSameTitles(second));

    // The time domain compares channelPos only, the frequency domain the other two.
    second.inPhasePos.Row(101)[1] = 3;
    EXPECT_TRUE(first == second);
    second.frequencyDomain = first.frequencyDomain = 1;
    EXPECT_FALSE(first == second);
}
