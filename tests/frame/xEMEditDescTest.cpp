#include "frame/xEMEditDesc.h"

#include "gui/xRecordingMenuBar.h"
#include "gui/xRecordingPlatform.h"
#include "tests/xTempDirectory.h"

#include <gtest/gtest.h>

#include <sstream>
#include <sys/stat.h>

namespace {

const std::string kExamples = TOLVAD_EXAMPLES_DIR;

// What a window does for the document, written down.
class RecordingDesc : public xEMEditDesc {
public:
    std::vector<std::string> calls;

    std::string Saved()
    {
        std::ostringstream out;
        WriteTo(out);
        return out.str();
    }

protected:
    bool ApplyAll(std::string&) override { calls.push_back("apply"); return true; }
    void MarkCardStale(const std::string& title) override { calls.push_back("stale " + title); }
    void ReloadCards() override { calls.push_back("reload " + std::to_string(current)); }
    void SelectorsAdd(int code) override { calls.push_back("add " + std::to_string(code)); }
    void SelectorsRemove(int code, int other) override
    {
        calls.push_back("remove " + std::to_string(code) + " " + std::to_string(other));
    }
    void SelectorsEnable(bool on) override { calls.push_back(on ? "selectors on" : "selectors off"); }
};

struct QuietWindow : xDocWindow {
    void UpdateMenus() override {}
    void SetTitle(const std::string&) override {}
};

class EditDesc : public ::testing::Test {
protected:
    // A descriptor read from an example, with a window.
    void Open(const std::string& name)
    {
        doc.SetFilePath(kExamples + "/" + name);
        ASSERT_TRUE(doc.Load());
        doc.AddWindow(std::make_unique<QuietWindow>());
        doc.calls.clear();
    }
    std::vector<int> Codes() const
    {
        std::vector<int> codes;
        for (const auto& item : doc.items)
            codes.push_back(item.second->code);
        return codes;
    }

    xRecordingPlatform platform;
    RecordingDesc doc;
};

using Titles = std::vector<std::string>;

} // namespace

TEST_F(EditDesc, CardsFollowTheDomainAndTheWaveformKinds)
{
    // A new descriptor: the receiver field is "nominal", the transmitter "undefined".
    EXPECT_EQ(doc.CardTitles(), (Titles{"System Description", "Rx Waveform", "System Geometry", "Data Format"}));
    doc.system->rxField.kind = "undefined";
    EXPECT_EQ(doc.CardTitles(), (Titles{"System Description", "System Geometry", "Data Format"}));
    doc.system->txWaveform.kind = "averaged";
    EXPECT_TRUE(doc.WantsTxWaveCard());

    Open("survey-frequency-domain.DSC");
    EXPECT_EQ(doc.CardTitles(), (Titles{"System Description", "Frequencies", "System Geometry", "Data Format"}));
}

TEST_F(EditDesc, OrientationsComeWithCopiesAndTheCurrentOneHandsOver)
{
    doc.system->windows.Resize(1, 4, 0, 1);
    doc.system->SetChannels(4);
    doc.SetChanged(false);
    ASSERT_TRUE(doc.AddOrientation("TxRx"));
    EXPECT_EQ(Codes(), (std::vector<int>{101, 109}));
    const xEMDescItem& added = *doc.items.at("TxRx");
    EXPECT_TRUE(added.system == *doc.system);
    // The copied geometry keeps only what the new orientation's components find.
    EXPECT_FALSE(added.geometry.tx.HasComponent(3));
    EXPECT_TRUE(doc.geometry->tx.HasComponent(3));
    EXPECT_EQ(doc.format->clasf[101], 4);
    EXPECT_TRUE(doc.IsChanged());
    EXPECT_EQ(doc.calls, (Titles{"stale Data Format", "add 101"}));
    EXPECT_FALSE(doc.AddOrientation("TxRx"));   // it has records already

    // The current one goes: the lowest other becomes current and the cards follow.
    doc.calls.clear();
    ASSERT_EQ(doc.current, 109);
    EXPECT_TRUE(doc.RemoveOrientation(109));
    EXPECT_EQ(doc.current, 101);
    EXPECT_EQ(doc.system, &doc.items.at("TxRx")->system);
    EXPECT_EQ(Codes(), std::vector<int>{101});
    EXPECT_EQ(doc.format->clasf[109], 0);
    EXPECT_EQ(doc.calls, (Titles{"reload 101", "stale Data Format", "remove 109 101"}));

    // An orientation the table names without records gets copies when it becomes current.
    ASSERT_TRUE(doc.AddOrientation("TyRy"));
    doc.items.erase("TyRy");
    doc.SetCurrent(101);
    EXPECT_TRUE(doc.RemoveOrientation(101));
    EXPECT_EQ(doc.current, 105);
    EXPECT_EQ(Codes(), std::vector<int>{105});
}

TEST_F(EditDesc, CommonModeHoldsOneRecordForAllAndResizesEveryOrientation)
{
    Open("survey-time-domain.DSC");
    ASSERT_EQ(Codes(), (std::vector<int>{107, 108, 109}));
    doc.SetCurrent(108);
    doc.system->rxField.amplitudeUnit = "nV/amp";
    doc.Resize(4);   // outside common mode: the current orientation alone
    EXPECT_EQ(doc.format->clasf[108], 4);
    EXPECT_EQ(doc.format->clasf[107], 10);
    EXPECT_EQ(doc.system->weights.Upper(), 4);
    EXPECT_EQ(doc.items.at("TzRx")->system.weights.Upper(), 10);
    EXPECT_EQ(doc.calls, Titles{"stale Data Format"});

    doc.calls.clear();
    doc.DoCommand(xEMEditDesc::kCommonOn, nullptr);
    EXPECT_TRUE(doc.sharedMode);
    for (const auto& item : doc.items) {
        EXPECT_TRUE(item.second->system == *doc.system) << item.first;
        // Each geometry copy is reduced to its own orientation's components.
        const xEMSensorType& rx = item.second->geometry.rx;
        EXPECT_EQ(rx.kind, doc.geometry->rx.kind) << item.first;
        for (int component = 1; component <= 3; ++component)
            EXPECT_TRUE(component == RxComponent(item.second->code) || !rx.HasComponent(component))
                << item.first << " " << component;
        EXPECT_EQ(doc.format->clasf[item.second->code], 10) << item.first;   // the current record's channels
    }
    EXPECT_EQ(doc.format->channelPos.Row(107)[1], 0.0f);   // positions cleared
    EXPECT_EQ(doc.calls, (Titles{"stale Data Format", "selectors off"}));

    int n = 3;
    doc.DoCommand(xEMEditDesc::kResize, &n);
    for (const auto& item : doc.items) {
        EXPECT_EQ(item.second->system.weights.Upper(), 3) << item.first;
        EXPECT_EQ(doc.format->clasf[item.second->code], 3) << item.first;
    }
    EXPECT_EQ(doc.format->ChannelCount(), 3);

    // 9407 copies the changed record in common mode only.
    doc.system->nominalAmplitude = 7.0f;
    doc.DoCommand(xEMEditDesc::kCopySystem, doc.system);
    EXPECT_EQ(doc.items.at("TzRz")->system.nominalAmplitude, 7.0f);
    doc.DoCommand(xEMEditDesc::kCommonOff, nullptr);
    EXPECT_FALSE(doc.sharedMode);
    doc.system->nominalAmplitude = 8.0f;
    doc.DoCommand(xEMEditDesc::kCopySystem, doc.system);
    EXPECT_EQ(doc.items.at("TzRz")->system.nominalAmplitude, 7.0f);
    EXPECT_EQ(doc.calls.back(), "selectors on");
}

TEST_F(EditDesc, OrientationPickAndSensorKindGoToTheOtherOrientations)
{
    Open("survey-time-domain.DSC");
    int code = 107;
    doc.DoCommand(xEMEditDesc::kPickOrientation, &code);
    EXPECT_EQ(doc.current, 107);
    EXPECT_EQ(doc.calls, Titles{"reload 107"});

    // The other orientations' receiver and transmitter kinds, each with the
    // component of its own orientation.
    auto others = [this](const char* rxKind, const char* txKind) {
        for (const char* name : {"TzRy", "TzRz"}) {
            const xEMDescItem& item = *doc.items.at(name);
            EXPECT_EQ(item.geometry.rx.kind, rxKind) << name;
            EXPECT_EQ(item.geometry.tx.kind, txKind) << name;
            EXPECT_TRUE(item.geometry.rx.HasComponent(RxComponent(item.code))) << name;
            EXPECT_TRUE(item.geometry.tx.HasComponent(TxComponent(item.code))) << name;
        }
    };
    // 3411 comes from the receiver kind list: the receivers take the kind.
    doc.geometry->rx.SetKind("large loop");
    doc.geometry->rx.AddComponent(1);
    doc.DoCommand(3411, nullptr);
    others("large loop", "large loop");
    // 3412 from the transmitter kind list: the transmitters take theirs.
    doc.geometry->tx.SetKind("dipole");
    doc.geometry->tx.AddComponent(3);
    doc.DoCommand(3412, nullptr);
    others("large loop", "dipole");
}

TEST_F(EditDesc, ADomainChangeRecountsTheFormatSoTheSavedFileReadsBack)
{
    Open("survey-frequency-domain.DSC");
    EXPECT_FALSE(doc.ToFrequencyDomain());   // there already
    doc.header->waveformType = "halfperiod";
    ASSERT_TRUE(doc.ToTimeDomain());
    EXPECT_EQ(doc.format->frequencyDomain, 0);
    EXPECT_EQ(doc.calls, Titles{"stale Data Format"});
    // In the time domain each orientation counts its windows: one, unread.
    EXPECT_EQ(doc.format->clasf[101], 1);
    EXPECT_EQ(doc.format->ChannelCount(), 1);

    // Read again, the file gives the same orientations and data format (the
    // header's half period is taken from the real one on reading).
    std::string saved = doc.Saved();
    RecordingDesc again;
    std::istringstream in(saved);
    again.ReadFrom(in);
    EXPECT_TRUE(platform.Texts(xPlatform::kFatal).empty());
    std::string blocks = saved.substr(saved.find("_____"));
    std::string reread = again.Saved();
    EXPECT_EQ(reread.substr(reread.find("_____")), blocks);
}

TEST_F(EditDesc, SaveAppliesTheCardsAndReplacesTheFileWhole)
{
    xTempDirectory dir;
    EXPECT_FALSE(doc.DoSave());   // no window: nothing to save from
    doc.AddWindow(std::make_unique<QuietWindow>());

    const std::string path = dir / "kept.DSC";
    xTempDirectory::Write(path, "old bytes");
    doc.SetFilePath(path);
    doc.SetChanged(true);
    // A file that can't be replaced stays whole, and the user is told why.
    chmod(path.c_str(), 0444);
    doc.DoMenuCommand(xDoc::kSave, false, false);
    EXPECT_TRUE(doc.IsChanged());
    EXPECT_EQ(platform.Texts(xPlatform::kError), Titles{"Cannot save the file - " + path + ": read-only file."});
    chmod(path.c_str(), 0640);
    EXPECT_EQ(xTempDirectory::Read(path), "old bytes");

    ASSERT_TRUE(doc.DoSave());
    EXPECT_EQ(xTempDirectory::Read(path), doc.Saved());
    EXPECT_FALSE(doc.IsChanged());
    EXPECT_EQ(std::count(doc.calls.begin(), doc.calls.end(), "apply"), 2);   // every save applies the cards
}

TEST_F(EditDesc, CloseAsksOnceAndThenClosesTheWindows)
{
    xTempDirectory dir;
    doc.SetFilePath(dir / "close.DSC");
    doc.AddWindow(std::make_unique<QuietWindow>());
    doc.SetChanged(true);
    platform.AnswerNext(0);   // Save: a new file asks for its name, then the window goes unasked
    platform.ChooseNext(2, dir / "close.DSC");
    EXPECT_TRUE(doc.DoClose());
    EXPECT_EQ(platform.questions.size(), 1u);
    EXPECT_EQ(xTempDirectory::Read(dir / "close.DSC"), doc.Saved());
    EXPECT_EQ(doc.WindowCount(), 0u);

    xRecordingMenuBar bar;
    doc.DoUpdateMenus(bar);
    EXPECT_EQ(bar.State(xDoc::kSaveAs), 1);
    EXPECT_EQ(bar.State(xDoc::kSave) + bar.State(xDoc::kPrint) + bar.State(xDoc::kPrintSetup), 0);
    doc.SetChanged(true);
    doc.DoUpdateMenus(bar);
    EXPECT_EQ(bar.State(xDoc::kSave), 1);   // changed, and the file exists
}
