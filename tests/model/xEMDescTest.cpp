#include "gui/xRecordingPlatform.h"
#include "model/xEMDesc.h"

#include "xStreamText.h"

#include <gtest/gtest.h>

#include "tests/xTempDirectory.h"

#include <clocale>
#include <cmath>
#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <locale>
#include <sstream>

namespace {

std::string Example(const std::string& name)
{
    std::ifstream in(std::string(TOLVAD_EXAMPLES_DIR) + "/" + name, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

class EMDesc : public ::testing::Test {
protected:
    void Read(const std::string& text)
    {
        std::istringstream in(text);
        desc.ReadFrom(in);
    }
    std::string Written()
    {
        std::ostringstream out;
        desc.WriteTo(out);
        return out.str();
    }
    // A new descriptor as it stands in a file once saved and opened again
    // (reading sets the header's half period from the real one).
    std::string NewText()
    {
        xEMDesc fresh;
        std::ostringstream first, second;
        fresh.WriteTo(first);
        std::istringstream in(first.str());
        fresh.ReadFrom(in);
        fresh.WriteTo(second);
        return second.str();
    }

    xRecordingPlatform platform;
    xEMDesc desc;
};

// A version 5 file: one record of each kind for the orientations TzRx and TzRz,
// whose position columns name them.
const char kVersion5[] =
    "FILE FORMAT VERSION\n5\nSYSTEM NAME\nold towed-bird system\nVERSION\n1\nDEFINED BY\nme\n"
    "DATE DEFINED\n1995\nTIME SCALING\n2  2   [mSec]\nWAVEFORM TYPE\ntransient\n2   [mSec]\n"
    "WAVEFORM NORMALIZED BY\ncomponent\n____\nTRANSMITTER CURRENT WAVEFORM\nundefined\n____\n"
    "RECEIVER PRIMARY FIELD\nundefined\n____\nRECEIVER SAMPLING\n2\n START END WEIGHT\n"
    "1 2 0.5\n2 3 0.25\n____\nTRANSMITTER GEOMETRY\nmoving large loop\nz\n4\n5 5 0\n-5 5 0\n"
    "-5 -5 0\n5 -5 0\nXYZ POSITION:\n0 0 0\n____\nRECEIVER GEOMETRY\nmoving dipole\nx\n1 0 0\n"
    "z\n0 0 1\nXYZ POSITION:\n10 0 5\n____\nDATA FORMAT\nSample file name (if available)\n\n"
    "comments\n0\nitems\n9\nline\n1\nFID\n2\nxyz\n3 4 5\naltitude\n0\n"
    "POSITION (INDEX) OF CHANNELS IN EACH DATA RECORD\nchannel ????...\n"
    "1 0 0 0 0 0 0 0 6 0 8\n2 0 0 0 0 0 0 0 7 0 9\n";

TEST_F(EMDesc, ANewDescriptorHasTzRzAloneAndWritesBackByteForByte)
{
    ASSERT_EQ(desc.items.size(), 1u);
    EXPECT_EQ(desc.current, 109);
    const std::string text = NewText();
    EXPECT_EQ(Written().rfind("FILE FORMAT VERSION\n9\n", 0), 0u);
    EXPECT_NE(text.find("\n                         ++++++++\n                         + TzRz +\n"
                        "                         ++++++++\n"),
              std::string::npos);
    Read(text);
    EXPECT_EQ(Written(), text);
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
}

TEST_F(EMDesc, Version8And9FilesWriteBackByteForByteWhateverTheirLineEndsAndLabels)
{
    for (const char* name : {"survey-time-domain.DSC", "survey-frequency-domain.DSC"}) {
        const std::string text = Example(name);
        const std::string variants[] = {
            text, Replaced(text, "\n", "\r\n"), Replaced(text, "\n", "\r"),
            Replaced(Replaced(Replaced(text, "SYSTEM NAME\n", "SYSTEM NAME: anything\n"),
                              "_\n", "_ ignored\n"),
                     "\n    10\n", "\n    10 windows\n")};
        for (const std::string& variant : variants) {
            Read(variant);
            EXPECT_EQ(Written(), text) << name;
        }
    }
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();

    // A version 8 file is written as version 9; it held the receiver's
    // absolute position, so nothing moves.
    const std::string text = Example("survey-time-domain.DSC");
    Read(Replaced(text, "VERSION\n9\n", "VERSION\n8\n"));
    EXPECT_EQ(desc.FileVersion(), 8);
    EXPECT_EQ(Written(), text);
}

// The user's language as a German one: a comma for the decimal point in the
// C library and in the C++ streams. The locale is made for the test from the
// system's locale sources, so none need be installed.
class CommaLocale {
public:
    CommaLocale() : savedLocale(std::locale())
    {
        savedC = std::setlocale(LC_ALL, nullptr);
        const std::string made = dir / "de_DE.UTF-8";
        if (std::system(("localedef -i de_DE -f UTF-8 '" + made + "' >/dev/null 2>&1").c_str()) != 0)
            return;
        setenv("LOCPATH", dir.path.c_str(), 1);
        // The C library keeps the search path of a locale found through
        // LOCPATH for good; the leak checker is not to count it against us.
#if defined(__SANITIZE_ADDRESS__)
        __lsan_disable();
#endif
        if (std::setlocale(LC_ALL, "de_DE.UTF-8")) {
            std::locale::global(std::locale("de_DE.UTF-8"));
            active = true;
        }
#if defined(__SANITIZE_ADDRESS__)
        __lsan_enable();
#endif
    }
    ~CommaLocale()
    {
        std::locale::global(savedLocale);
        std::setlocale(LC_ALL, savedC.c_str());
        unsetenv("LOCPATH");
    }
    bool active = false;

private:
    xTempDirectory dir;
    std::locale savedLocale;
    std::string savedC;
};

TEST_F(EMDesc, NumbersAreTextOfTheCLocaleAndEveryFloatWrittenReadsBack)
{
    const std::string text = Example("survey-time-domain.DSC");
    const std::string frequency = Example("survey-frequency-domain.DSC");
    {
        CommaLocale german;
        ASSERT_TRUE(german.active) << "no de_DE locale could be made (Debian package locales)";
        char decimal[8];
        std::snprintf(decimal, sizeof decimal, "%.1f", 1.5);
        std::ostringstream grouped;
        grouped << 10000;
        ASSERT_EQ(std::string(decimal) + " " + grouped.str(), "1,5 10.000");

        for (const std::string& example : {text, frequency}) {
            Read(example);
            EXPECT_EQ(Written(), example);
        }
        EXPECT_FLOAT_EQ(*desc.items.at("TzRz")->system.frequencies.Element(1, 0), 900.0f);

        // A number that is none, as a computation may leave one, is written as
        // a number: NaN as 0, an infinity as the largest float.
        Read(text);
        xEMSDesc& system = desc.items.at("TzRz")->system;
        *system.windows.Element(1, 0) = std::numeric_limits<float>::infinity();
        *system.windows.Element(1, 1) = std::numeric_limits<float>::quiet_NaN();
        system.weights[1] = -std::numeric_limits<float>::infinity();
        const std::string written = Written();
        EXPECT_NE(written.find("\n 3.40282e+38            0 -3.40282e+38\n"), std::string::npos);
        Read(written);
        EXPECT_EQ(Written(), written);
    }
    EXPECT_FLOAT_EQ(*desc.items.at("TzRz")->system.windows.Element(1, 0), 3.40282e+38f);
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
}

TEST_F(EMDesc, Version5AndOlderGiveOneItemPerPositionedOrientation)
{
    Read(kVersion5);
    ASSERT_EQ(desc.items.size(), 2u);
    EXPECT_EQ(desc.current, 107);
    const xEMDescItem& tzrz = *desc.items.at("TzRz");
    EXPECT_TRUE(desc.items.at("TzRx")->geometry.rx.HasComponent(1));
    EXPECT_FALSE(tzrz.geometry.rx.HasComponent(1));
    // The oldest files stored the offset; it becomes a position behind the transmitter.
    EXPECT_FLOAT_EQ(tzrz.geometry.rx.x, -10.0f);
    EXPECT_FLOAT_EQ(tzrz.geometry.rx.z, -5.0f);
    EXPECT_EQ(desc.format->clasf[107], 2);
    // Only the later layouts look at the system's name.
    EXPECT_EQ(desc.systemKind, 4);
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();

    // Unknown versions read as version 5 after a note.
    Read(Replaced(kVersion5, "VERSION\n5\n", "VERSION\n4\n"));
    EXPECT_EQ(platform.Texts(xPlatform::kNote),
              std::vector<std::string>{"Unknown version of EM descriptor (version 4). Conversion to "
                                       "version 8 is not guaranteed."});
    ASSERT_EQ(desc.items.size(), 2u);
    // Before version 5 the sampling rows had no weights.
    EXPECT_FLOAT_EQ(desc.items.at("TzRz")->system.weights[1], 1.0f);
}

TEST_F(EMDesc, Version6ReadsNothingAndWritesANewDescriptor)
{
    Read("FILE FORMAT VERSION\n6\nwhatever\n");
    EXPECT_EQ(platform.Texts(xPlatform::kNote),
              std::vector<std::string>{"Currently unsupported version of EM descriptor (version 6)"});
    EXPECT_TRUE(desc.items.empty());
    EXPECT_EQ(desc.Geometry(109), nullptr);
    xEMDesc fresh;
    std::ostringstream out;
    fresh.WriteTo(out);
    EXPECT_EQ(Written(), out.str());
}

TEST_F(EMDesc, TheFirstLinesTellWhetherAFileIsADescriptorAtAll)
{
    EXPECT_TRUE(desc.HasVersionLabel() && desc.HasVersionNumber());
    const std::pair<const char*, int> starts[] = {
        {"FILE FORMAT VERSION\n5\n", 3},      {" \tFILE FORMAT VERSION, any words\r\n\n 5x\n", 3},
        {"FILE FORMAT VERSION\rfive\n", 1},   {"FILE FORMAT VERSION\n99999999999\n", 1},
        {"Shopping list\n5\n", 2},            {"file format version\n5\n", 2},
        {"\nFILE FORMAT VERSION\n5\n", 0},    {"", 0}};
    for (const auto& start : starts) {
        Read(start.first);
        EXPECT_EQ(desc.HasVersionLabel(), (start.second & 1) != 0) << start.first;
        EXPECT_EQ(desc.HasVersionNumber(), (start.second & 2) != 0) << start.first;
    }
}

TEST_F(EMDesc, Version7MergesItsBlocksAndKeepsTheReceiverAsWritten)
{
    Read(Example("survey-version7.DSC"));
    ASSERT_EQ(desc.items.size(), 2u);
    EXPECT_EQ(desc.current, 107);
    EXPECT_EQ(desc.format->clasf[109], 6);
    EXPECT_FLOAT_EQ(*desc.format->channelPos.Element(107, 6), 18.0f);
    EXPECT_FLOAT_EQ(desc.items.at("TzRz")->geometry.rx.x, -110.0f);
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();

    // A count beyond the blocks in the file: what lies past the end adds
    // nothing, and reading it ends.
    const std::string text = Example("survey-version7.DSC");
    Read(Replaced(text, "BLOCKS\n2\n", "BLOCKS\n2000000000\n"));
    EXPECT_EQ(desc.items.size(), 2u);
    EXPECT_EQ(desc.format->clasf[109], 6);
    EXPECT_LE(platform.messages.size(), 1u) << platform.Transcript();
    EXPECT_TRUE(platform.Texts(xPlatform::kFatal).empty());
}

TEST_F(EMDesc, StreamFailuresAreFatal)
{
    // The older format record forgives a failure up to its user items.
    const std::string v7 = Example("survey-version7.DSC");
    Read(v7.substr(0, v7.find("3 4 5")));
    EXPECT_TRUE(platform.Texts(xPlatform::kFatal).empty());
    EXPECT_THROW(Read(Replaced(v7, "User Defined Items\n1\n", "User Defined Items\none\n")),
                 xFatalExitError);
    std::string v9 = Example("survey-time-domain.DSC");
    EXPECT_THROW(Read(v9.substr(0, v9.find("POSITION (INDEX)"))), xFatalExitError);
    std::ostream broken(nullptr);
    EXPECT_THROW(desc.WriteTo(broken), xFatalExitError);
    EXPECT_EQ(platform.Texts(xPlatform::kFatal),
              (std::vector<std::string>{"xEMDesc::Read()  Error reading format descriptor.",
                                        "xEMDesc::Read()  Error reading EM system descriptor.",
                                        "xEMDesc::Write()  Error writing EM system descriptor."}));
}

TEST_F(EMDesc, TheCountsLineDecidesTheBlocksAndTheBlocksTheirCounts)
{
    const std::string text = NewText();
    // A banner that names no orientation: the item has code 100 and becomes
    // current; TzRz, counted but without an item, is written from it.
    Read(Replaced(text, "+ TzRz +", "+ ZZZZ +"));
    ASSERT_EQ(desc.items.count(""), 1u);
    EXPECT_EQ(desc.current, 100);
    EXPECT_EQ(Written(), text);

    const size_t blockStart = text.find("                         ++++++++");
    const std::string noBlocks = Replaced(text.substr(0, blockStart), "     0     1\n",
                                          "     0     0\n") +
                                 text.substr(text.find("DATA FORMAT"));
    Read(noBlocks);
    EXPECT_TRUE(desc.items.empty());
    EXPECT_TRUE(platform.Texts(xPlatform::kFatal).empty());
}

TEST_F(EMDesc, ReadSelectsTheLowestOrientationAndWriteLeavesTheHighest)
{
    Read(Example("survey-time-domain.DSC"));
    EXPECT_EQ(desc.current, 107);
    Written();
    EXPECT_EQ(desc.current, 109);

    // In shared mode the current records serve every block; the one geometry
    // is adjusted to each orientation in turn.
    desc.SetCurrent(108);
    *desc.system->windows.Element(1, 0) = 4.0625f;
    auto count = [](const std::string& text) {
        size_t n = 0;
        for (size_t at = 0; (at = text.find(" 4.0625 ", at)) != std::string::npos; ++at)
            ++n;
        return n;
    };
    EXPECT_EQ(count(Written()), 1u);
    desc.SetCurrent(108);
    desc.sharedMode = true;
    EXPECT_EQ(count(Written()), 3u);
    EXPECT_EQ(desc.current, 108);
    EXPECT_TRUE(desc.geometry->rx.HasComponent(3));
}

TEST_F(EMDesc, SystemKindFollowsTheLastWordFound)
{
    const std::string text = NewText();
    const std::pair<const char*, int> names[] = {
        {"my GeoTem and SPECTREM", 2}, {"QUESTEM geotem", 3}, {"plain", 0}};
    for (const auto& name : names) {
        Read(Replaced(text, "SYSTEM NAME\n\n", std::string("SYSTEM NAME\n") + name.first + "\n"));
        EXPECT_EQ(desc.systemKind, name.second) << name.first;
    }
}

TEST_F(EMDesc, QueriesMoveTheCurrentOrientationAndCoverBothDomains)
{
    Read(Example("survey-time-domain.DSC"));
    EXPECT_EQ(desc.Channels(108), 10);
    EXPECT_EQ(desc.current, 108);
    float position[3] = {1, 1, 1};
    EXPECT_FALSE(desc.RxPosition(position, 104));
    ASSERT_TRUE(desc.RxPosition(position, 107));
    EXPECT_FLOAT_EQ(position[0], -120.0f);
    EXPECT_EQ(desc.current, 107);
    FloatMatrix seconds;
    ASSERT_TRUE(desc.ScaledSamplingWindows(seconds, 109));
    EXPECT_FLOAT_EQ(*seconds.Element(0, 1), 0.00405f);
    EXPECT_EQ(desc.CouplingSign(109), -1.0f);

    float horizontal = 0, vertical = 0;
    int zero = 7;
    desc.AverageSeparation(3, horizontal, zero, vertical);
    EXPECT_FLOAT_EQ(vertical, 55.0f);
    desc.AverageSeparation(1, horizontal, zero, vertical);
    EXPECT_TRUE(std::isnan(horizontal));

    Read(Example("survey-frequency-domain.DSC"));
    EXPECT_EQ(desc.ChannelClasf()[101], 4);
    EXPECT_EQ(desc.ItemClasf()[101], 2);
    EXPECT_EQ(desc.MaxChannels(100), 3);
    // A position whose label is missing still gets one, empty.
    desc.format->userPositions.push_back(21);
    std::vector<std::string> labels;
    desc.UserItemLabels(labels);
    EXPECT_EQ(labels, (std::vector<std::string>{"z(ASL)", ""}));
    EXPECT_EQ(desc.CouplingSign(106), -1.0f);
    EXPECT_EQ(desc.CouplingSign(109), 1.0f);

    // A copy's system record points to the copy's own header.
    xEMDesc copy;
    copy = desc;
    EXPECT_EQ(copy.system->header, copy.header.get());
}

} // namespace
