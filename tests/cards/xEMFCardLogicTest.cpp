#include "cards/xEMFCardLogic.h"

#include "cards/xEMFSample.h"
#include "frame/xEMEditDesc.h"
#include "gui/xRecordingPlatform.h"
#include "model/xEMFDesc.h"
#include "tests/xTempDirectory.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using Texts = std::vector<std::string>;
using Logic = xEMFCardLogic;

const std::string kExamples = TOLVAD_EXAMPLES_DIR;

std::vector<float> Positions(const FloatMatrix& matrix, int code)
{
    std::vector<float> values;
    for (int i = matrix.ColLower(); i <= matrix.ColUpper(); ++i)
        values.push_back(matrix.Row(code)[i]);
    return values;
}

void SetPositions(FloatMatrix& matrix, int code, std::initializer_list<float> values)
{
    int column = 1;
    for (float value : values)
        matrix.Row(code)[column++] = value;
}

class FormatCardLogic : public ::testing::Test {
protected:
    ~FormatCardLogic() override { Logic::showInvalidateWarning = true; }

    // The card's logic on an example, or on a new descriptor with the
    // orientation counts given.
    void Open(const std::string& example)
    {
        doc.SetFilePath(kExamples + "/" + example);
        ASSERT_TRUE(doc.Load());
        logic = std::make_unique<Logic>(doc);
    }
    void OpenNew(std::initializer_list<std::pair<int, int>> counts, bool frequency = false)
    {
        xEMFDesc& format = *doc.format;
        for (auto [code, count] : counts)
            format.SetOrientationChannels(count, code);
        format.ResizeToClasf();
        format.frequencyDomain = frequency ? 1 : 0;
        logic = std::make_unique<Logic>(doc);
    }
    // A sample of items numbers per record (1 up), one comment line, parsed.
    void Parse(int items)
    {
        std::string text = "comment\n";
        for (int k = 1; k <= 2 * items; ++k)
            text += std::to_string(k) + (k % items ? " " : "\n");
        xTempDirectory::Write(dir / "sample.xyz", text);
        logic->sampleSpec.SetPath(dir / "sample.xyz");
        ASSERT_TRUE(logic->Parse({1, items}));
    }
    int Entry(const std::string& name) const { return logic->itemList.IndexOf(name); }
    std::string Shown(int list) const { return logic->itemList.Name(logic->ListEntry(list)); }

    xRecordingPlatform platform;
    xTempDirectory dir;
    xEMEditDesc doc;
    xEMFDesc& format = *doc.format;
    std::unique_ptr<Logic> logic;
};

} // namespace

TEST(FormatCardSample, HeadShowsFiftyLinesAndParseReadsTwoRecordsAsAStream)
{
    xTempDirectory dir;
    std::string many;
    for (int i = 1; i <= 1000000; ++i)
        many += std::to_string(i) + "\n";
    xTempDirectory::Write(dir / "many.xyz", many);
    Texts lines;
    ASSERT_TRUE(xEMFSample::ReadHead(dir / "many.xyz", lines));
    ASSERT_EQ(lines.size(), 50u);
    EXPECT_EQ(lines.back(), "50");

    // Any line end; control characters show as points; a last line without its end.
    const char mixed[] = "a\r\nb\rc\tx\0y\x01\nlast";
    xTempDirectory::Write(dir / "mixed.xyz", std::string(mixed, sizeof mixed - 1));
    ASSERT_TRUE(xEMFSample::ReadHead(dir / "mixed.xyz", lines));
    EXPECT_EQ(lines, (Texts{"a", "b", "c\tx.y.", "last"}));

    // No text and no line ends: one line, cut; the rest of the file is never read.
    xTempDirectory::Write(dir / "binary.bin", std::string(size_t(9) << 20, '\0'));
    ASSERT_TRUE(xEMFSample::ReadHead(dir / "binary.bin", lines));
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0], std::string(xEMFSample::kLineShown, '.'));
    FloatMatrix records;
    EXPECT_TRUE(xEMFSample::Parse(dir / "binary.bin", 3, 8, records));
    EXPECT_EQ(records.Rows(), 2);
    EXPECT_EQ(records.Cols(), 8);

    lines = {"stays?"};
    EXPECT_FALSE(xEMFSample::ReadHead(dir / "missing.xyz", lines));
    EXPECT_TRUE(lines.empty());
    EXPECT_FALSE(xEMFSample::ReadHead(dir.path, lines));   // a directory is no sample

    // Records are a stream of numbers: line ends don't count, a word stops it all.
    xTempDirectory::Write(dir / "ragged.xyz", "# one\n# two\n1 2\n3\n4 5 6 7 8\n9 x 11\n");
    ASSERT_TRUE(xEMFSample::Parse(dir / "ragged.xyz", 3, 4, records));
    EXPECT_EQ(Positions(records, 0), (std::vector<float>{3, 4, 5, 6}));
    EXPECT_EQ(Positions(records, 1), (std::vector<float>{7, 8, 9, 0}));
    // More comment lines than the file has: nothing read, all zero.
    ASSERT_TRUE(xEMFSample::Parse(dir / "ragged.xyz", 30, 4, records));
    EXPECT_EQ(Positions(records, 1), (std::vector<float>{0, 0, 0, 0}));
    EXPECT_FALSE(xEMFSample::Parse(dir / "missing.xyz", 0, 9, records));
    EXPECT_EQ(records.Cols(), 9);
}

TEST_F(FormatCardLogic, CountsPassAtTheirLimitsAndAskOrRefuseBeyond)
{
    OpenNew({});
    EXPECT_TRUE(logic->CheckCounts({30, 256}));
    EXPECT_TRUE(platform.questions.empty());
    EXPECT_TRUE(doc.IsChanged());

    platform.AnswerNext(0);   // "No"
    EXPECT_FALSE(logic->CheckCounts({31, 20}));
    ASSERT_EQ(platform.questions.size(), 1u);
    EXPECT_EQ(platform.questions[0].text, "Are you sure the data file headers contain more than 30 comment lines?");
    EXPECT_EQ(platform.questions[0].second, "Yes");
    EXPECT_EQ(format.commentLines, 31);   // read, and kept
    EXPECT_EQ(format.itemCount, 256);     // not read

    platform.AnswerNext(1);
    platform.AnswerNext(2);   // "Cancel" on the items
    EXPECT_FALSE(logic->CheckCounts({31, 257}));
    EXPECT_EQ(platform.questions.back().text, "Are you sure the data file records contain more than 256 items?");
    EXPECT_EQ(format.itemCount, 257);

    EXPECT_FALSE(logic->CheckCounts({2, 7}));
    EXPECT_TRUE(logic->CheckCounts({2, 8}));
    EXPECT_FALSE(logic->CheckCounts({-1, 8}));
    EXPECT_FALSE(logic->CheckCounts({0, Logic::kMostItems + 1}));
    EXPECT_EQ(platform.Texts(xPlatform::kError),
              (Texts{"The data record has to contain at least eight items comprising Flight number, Line number, FID, "
                     "x, y, altitude and two data channels.",
                     "Negative number of comment lines in file header specified.",
                     "Number of items per data record must not exceed 1048576!"}));
    EXPECT_EQ(platform.questions.size(), 3u);
}

TEST_F(FormatCardLogic, ItemListHasItsStructureInEachModeAndDomain)
{
    Open("survey-time-domain.DSC");
    logic->Rebuild();
    EXPECT_EQ(logic->itemList.Names(),
              (Texts{"***", "line", "FID", "east", "north", "z_topo", "altitude", "Rx_pitch", "Rx_roll", "Rx_yaw",
                     "Tx_pitch", "Tx_roll", "Tx_yaw", "z(ASL)", "TzRx[1]", "TzRy[1]", "TzRz[1]"}));
    logic->randomChannels = 1;
    logic->Rebuild();
    EXPECT_EQ(logic->itemList.Size(), 14 + 30);
    EXPECT_EQ(logic->itemList.Name(23), "TzRx[10]");
    xEMFItemList::Channel channel;
    ASSERT_TRUE(xEMFItemList::ParseChannel("P TxRx[12]", true, channel));
    EXPECT_EQ(channel.component + std::to_string(channel.code) + "/" + std::to_string(channel.index), "P101/12");

    // The frequency domain lists quadrature before in-phase; records with gaps start random.
    Open("survey-frequency-domain.DSC");
    EXPECT_EQ(logic->randomChannels, 0);
    logic->Rebuild();
    Texts channels(logic->itemList.Names().begin() + 14, logic->itemList.Names().end());
    EXPECT_EQ(channels, (Texts{"Q TxRx[1]", "P TxRx[1]", "Q TzRz[1]", "P TzRz[1]"}));
    doc.format->quadraturePos.Row(109)[2] = 40;   // no longer two apart
    EXPECT_EQ(Logic(doc).randomChannels, 1);
}

TEST_F(FormatCardLogic, ChosenItemsFreeTheirColumnAndAskBeforeMoving)
{
    OpenNew({{101, 3}});
    Parse(12);
    format.linePos = 1;
    logic->SyncAllLists();

    // An item placed elsewhere moves only with "Yes"; "No" puts the list back.
    logic->SelectItem(1, Entry("line"));
    ASSERT_EQ(platform.questions.size(), 1u);
    EXPECT_EQ(platform.questions[0].text, "You have already selected line. Do you want to erase that selection?");
    EXPECT_EQ(platform.questions[0].first + platform.questions[0].second + platform.questions[0].third,
              "NoYesCancel");
    EXPECT_EQ(format.linePos, 1);
    EXPECT_EQ(Shown(1), "***");
    platform.AnswerNext(1);
    logic->SelectItem(1, Entry("line"));
    EXPECT_EQ(format.linePos, 2);
    EXPECT_EQ(Shown(0) + Shown(1), "***line");

    // A user item takes its position the same way.
    logic->SelectItem(7, Entry("z(ASL)"));
    EXPECT_EQ(format.ZAslPosition(), 8);

    // The first channel places the orientation, side by side, freeing what it runs over.
    format.eastPos = 6;
    logic->SelectItem(4, Entry("TxRx[1]"));
    EXPECT_EQ(Positions(format.channelPos, 101), (std::vector<float>{5, 6, 7}));
    EXPECT_EQ(format.eastPos, 0);
    EXPECT_EQ(Shown(4) + Shown(5), "TxRx[1]***");
    // Moved by one with "Yes": the orientation it runs over is its own, cleared and placed again.
    platform.AnswerNext(1);
    logic->SelectItem(3, Entry("TxRx[1]"));
    EXPECT_EQ(Positions(format.channelPos, 101), (std::vector<float>{4, 5, 6}));
}

TEST_F(FormatCardLogic, FrequencyChannelsSpreadEverySecondPositionBothComponents)
{
    OpenNew({{101, 3}, {109, 0}}, true);
    // Frequency positions must step by 2, zeros too: an empty record counts as random.
    EXPECT_EQ(logic->randomChannels, 1);
    logic->randomChannels = 0;
    Parse(12);
    logic->SelectItem(4, Entry("Q TxRx[1]"));
    logic->SelectItem(5, Entry("P TxRx[1]"));
    EXPECT_EQ(Positions(format.quadraturePos, 101), (std::vector<float>{5, 7, 9}));
    EXPECT_EQ(Positions(format.inPhasePos, 101), (std::vector<float>{6, 8, 10}));
    EXPECT_EQ(Shown(4) + Shown(5), "Q TxRx[1]P TxRx[1]");
    EXPECT_EQ(Positions(format.channelPos, 101), (std::vector<float>{0, 0, 0}));

    // Random mode places one channel at a time.
    logic->ChangeMode(1);
    logic->SelectItem(0, Entry("P TxRx[2]"));
    EXPECT_EQ(Positions(format.inPhasePos, 101), (std::vector<float>{0, 1, 0}));
    EXPECT_EQ(Positions(format.quadraturePos, 101), (std::vector<float>{0, 0, 0}));
}

TEST_F(FormatCardLogic, FreePositionWalksTheOrientationsWithOneCounter)
{
    Open("survey-time-domain.DSC");   // TzRx 7-16, TzRy 17-26, TzRz 27-36, ten channels each
    logic->FreePosition(3);
    EXPECT_EQ(format.eastPos, 0);
    EXPECT_EQ(format.channelPos.Row(107)[1], 7.0f);
    // The counter has passed ten when the second orientation is reached.
    logic->FreePosition(20);
    EXPECT_EQ(format.channelPos.Row(108)[4], 20.0f);
    // A hit in consecutive mode clears the whole orientation.
    logic->FreePosition(12);
    EXPECT_EQ(Positions(format.channelPos, 107), std::vector<float>(10, 0.0f));
    EXPECT_EQ(format.channelPos.Row(108)[1], 17.0f);
    // In random mode only the cell reached goes.
    logic->randomChannels = 1;
    SetPositions(format.channelPos, 107, {7, 8, 9});
    logic->FreePosition(8);
    EXPECT_EQ(Positions(format.channelPos, 107), (std::vector<float>{7, 0, 9, 0, 0, 0, 0, 0, 0, 0}));
    logic->FreePosition(27);
    EXPECT_EQ(format.channelPos.Row(109)[1], 27.0f);   // past the counter
}

TEST_F(FormatCardLogic, ModeChangeAsksAndDontShowAgainHoldsForEveryCard)
{
    Open("survey-time-domain.DSC");
    Parse(37);
    doc.SetChanged(false);
    platform.AnswerNext(2);   // "Cancel"
    EXPECT_FALSE(logic->ChangeMode(1));
    ASSERT_EQ(platform.questions.size(), 1u);
    EXPECT_EQ(platform.questions[0].text,
              "Selecting random channels/freq will invalidate previously selected channel/freq positions.");
    EXPECT_EQ(platform.questions[0].first + "|" + platform.questions[0].second + "|" + platform.questions[0].third,
              "Proceed|Don't Show Again|Cancel");
    EXPECT_EQ(format.channelPos.Row(109)[10], 36.0f);
    EXPECT_FALSE(doc.IsChanged());

    platform.AnswerNext(0);
    EXPECT_TRUE(logic->ChangeMode(1));
    EXPECT_TRUE(logic->Stale());
    EXPECT_EQ(Positions(format.channelPos, 109), std::vector<float>(10, 0.0f));
    EXPECT_EQ(format.linePos, 1);
    EXPECT_TRUE(doc.IsChanged());

    platform.AnswerNext(1);   // "Don't Show Again"
    EXPECT_TRUE(logic->ChangeMode(0));
    EXPECT_EQ(platform.questions.back().text,
              "Selecting consecutive channels/freq will invalidate previously selected channel/freq positions.");
    Logic other(doc);
    EXPECT_TRUE(other.ChangeMode(1));
    EXPECT_EQ(platform.questions.size(), 3u);
}

TEST_F(FormatCardLogic, ApplyNamesTheFirstMissingItemAndStoresTheSampleOnceParsed)
{
    OpenNew({{101, 2}, {109, 0}}, true);
    auto refusal = [this](Logic::Values values = {}) {
        std::string message;
        return logic->Apply(values, message) ? std::string("applied") : message;
    };
    EXPECT_EQ(refusal({5, 50}), "Undefined position of line number.");
    EXPECT_EQ(format.itemCount, 0);   // the boxes are read once a sample is parsed
    format.geosoft = 1;
    EXPECT_EQ(refusal(), "Undefined position of FID.");
    format.fidPos = 2;
    EXPECT_EQ(refusal(), "Undefined position of x coordinate.");
    format.eastPos = 3;
    EXPECT_EQ(refusal(), "Undefined position of y coordinate.");
    format.northPos = 4;
    SetPositions(format.quadraturePos, 101, {0, 7});
    SetPositions(format.inPhasePos, 101, {6, 0});
    EXPECT_EQ(refusal(), "Undefined QUADRATURE position.");
    SetPositions(format.quadraturePos, 101, {5, 7});
    EXPECT_EQ(refusal(), "Undefined PHASE position.");
    SetPositions(format.inPhasePos, 101, {6, 8});
    EXPECT_EQ(refusal(), "applied");   // TzRz has no count: its zeros don't matter
    std::string earlier = "from another card";
    EXPECT_FALSE(logic->Apply({}, earlier));
    EXPECT_TRUE(format.sampleFile.empty());

    format.frequencyDomain = 0;
    EXPECT_EQ(refusal(), "Undefined position of some channels.");
    SetPositions(format.channelPos, 101, {5, 6});
    Parse(12);
    doc.SetChanged(false);
    EXPECT_EQ(refusal({3, 14}), "applied");
    EXPECT_EQ(format.commentLines + format.itemCount, 3 + 14);
    EXPECT_EQ(format.sampleFile, dir / "sample.xyz");
    EXPECT_TRUE(doc.IsChanged());
}

TEST_F(FormatCardLogic, UserItemsAreCheckedAddedAndRemovedButZAslStays)
{
    OpenNew({});
    Texts typed{"a b", "", "abcdefghijklmnopqrstu", "z(ASL)", "line"};
    size_t asked = 0;
    auto ask = [&](std::string& name) {
        if (asked == typed.size())
            return false;
        name = typed[asked++];
        return true;
    };
    EXPECT_TRUE(logic->AddUserItem(ask));
    EXPECT_EQ(platform.Texts(xPlatform::kNote),
              (Texts{"No blanks allowed in item names!", "No blanks allowed in item names!",
                     "Item name must not exceed 20 characters!", "Duplicate item names are not allowed!"}));
    EXPECT_EQ(format.userLabels, (Texts{"z(ASL)", "line"}));
    EXPECT_EQ(format.userPositions, (std::vector<int32_t>{0, 0}));
    typed = {"abcdefghijklmnopqrst"};
    asked = 0;
    EXPECT_TRUE(logic->AddUserItem(ask));
    EXPECT_FALSE(logic->AddUserItem(ask));   // cancelled
    EXPECT_EQ(logic->itemList.Name(15), "abcdefghijklmnopqrst");

    // "z(ASL)" is never offered; the chosen name goes with its position.
    format.userPositions = {9, 10, 11};
    Texts offered;
    auto first = [&offered](const Texts& names, int& index) {
        offered = names;
        index = 0;
        return true;
    };
    EXPECT_TRUE(logic->RemoveUserItem(first));
    EXPECT_EQ(offered, (Texts{"line", "abcdefghijklmnopqrst"}));
    EXPECT_EQ(format.userPositions, (std::vector<int32_t>{9, 11}));
    EXPECT_FALSE(logic->RemoveUserItem([](const Texts&, int&) { return false; }));
}

TEST_F(FormatCardLogic, StoredSamplePathsReopenWithEitherSeparator)
{
    OpenNew({});
    EXPECT_FALSE(logic->ReopenSample());
    std::filesystem::create_directory(dir / "sub");
    xTempDirectory::Write(dir / "sub/sample.xyz", "1 2 3\n");
    format.sampleFile = "sub\\sample.xyz";   // written on Windows, relative to the current directory
    ASSERT_TRUE(logic->ReopenSample());
    EXPECT_EQ(logic->SampleLines(), Texts{"1 2 3"});
    EXPECT_EQ(logic->sampleSpec.FullPath(), dir / "sub/sample.xyz");
    format.sampleFile = "C:\\survey\\sample.xyz";
    EXPECT_FALSE(logic->ReopenSample());
    EXPECT_EQ(logic->sampleSpec.FullPath(), dir / "sub/sample.xyz");   // the last sample stays
    EXPECT_EQ(format.sampleFile, "C:\\survey\\sample.xyz");             // and the record keeps its text

    platform.ChooseNext(1);
    EXPECT_FALSE(logic->OpenSample());
    EXPECT_EQ(platform.dialogRequests.back().title, "Open sample EM data file (must be ASCII!)");
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
}
