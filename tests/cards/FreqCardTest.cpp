#include "cards/xEMFreqCard.h"

#include "cards/xEMSysCard.h"
#include "cards/xTROrientationSelector.h"
#include "frame/xCardCatalog.h"
#include "frame/xListButton.h"
#include "model/xEMSDesc.h"
#include "tests/cards/CardScreen.h"

#include <QDialog>

#include <sstream>

namespace {

using Kit = xEditorTestKit;
using Logic = xEMFreqCardLogic;
using Texts = std::vector<std::string>;

// The Data Format card's own rule (a position for every channel) refuses a
// Save once the count of frequencies changed: a stand-in takes its place.
// The suite runs on its own, so that no other test meets the stand-in.
class FreqCard : public CardScreen {
protected:
    FreqCard() { xCardCatalog::Register(xEMEditDesc::kFormatCard, &StandIn::Make); }
    ~FreqCard() override { xCardCatalog::Register(xEMEditDesc::kFormatCard, nullptr); }

    xEMFreqCard* Card() { return Select<xEMFreqCard>("Frequencies"); }
    xGridEdView& Grid() { return *Card()->Grid(Logic::kFrequencyGrid); }
};

} // namespace

// Run twice by ctest: at 96 DPI and with QT_SCALE_FACTOR=2.
TEST_F(FreqCard, EachOrientationsFrequenciesShowWholeAndTheScaleDialogShowsTheRealAmplitudeFirst)
{
    Open("survey-frequency-domain.DSC");
    xEMFreqCard* card = Card();
    ASSERT_NE(card, nullptr);
    EXPECT_EQ(Grid().Grid()->CellText(1, 0), "5.50e+03");
    EXPECT_EQ(Grid().Grid()->VisibleRows(), 12);
    EXPECT_EQ(card->PromptTexts(), Texts{"Frequencies.\nSpecify range of frequencies used [Hz]."});
    EXPECT_EQ(card->Button(5016)->text().toStdString(), "EDIT FREQUENCY AMPLITUDE FACTORS");
    EXPECT_FALSE(card->Button(5015)->geometry().intersects(card->Button(5016)->geometry()));
    EXPECT_EQ(Kit::ClippedTexts(*window), Texts{});

    QTest::mouseClick(card->Selector()->NextButton(), Qt::LeftButton);
    EXPECT_EQ(doc->current, 109);
    EXPECT_EQ(Grid().RowCount(), 3);
    EXPECT_EQ(Grid().Grid()->CellText(2, 0), "5.60e+04");

    Texts seen;
    AnswerNumbers(seen);
    QTest::mouseClick(card->Button(5015), Qt::LeftButton);
    EXPECT_EQ(seen, (Texts{"Amplitude scaling", "real amplitude", "nominal amplitude "}));
    EXPECT_FALSE(doc->IsChanged());
    EXPECT_EQ(Saved(), original);
}

TEST_F(FreqCard, PastedTypedAndScaledValuesReachTheSavedFile)
{
    Open("survey-frequency-domain.DSC");
    // Any separators, and one frequency a number.
    Copy("100\n200\r\n300 400\t500");
    Card();
    EXPECT_TRUE(Menu(Logic::kFrequencyPaste));
    EXPECT_EQ(doc->format->clasf[101], 5);
    TypeCell(Grid(), 5, 0, "600");
    QTest::keyClick(Grid().EditField(), Qt::Key_Backspace);   // nothing for the row below
    EXPECT_EQ(doc->system->weights.Size(), 6);
    Texts seen;
    AnswerNumbers(seen, {"2", "3"});
    QTest::mouseClick(Card()->Button(5015), Qt::LeftButton);

    // The same steps on the model alone.
    xEMEditDesc expected;
    expected.SetFilePath(Kit::Example("survey-frequency-domain.DSC"));
    ASSERT_TRUE(expected.Load());
    expected.Resize(6);
    FloatMatrix frequencies(1, 6, 0, 0);
    for (int r = 1; r <= 6; ++r)
        *frequencies.Element(r, 0) = 100.0f * static_cast<float>(r);
    expected.system->frequencies = frequencies;
    expected.system->realAmplitude = 2.0f;
    expected.system->nominalAmplitude = 3.0f;
    std::ostringstream out;
    expected.WriteTo(out);
    const std::string saved = Saved();
    EXPECT_EQ(saved, out.str());
    EXPECT_NE(saved.find("         600           1\nAMPLITUDE SCALING\n3 2\n"), std::string::npos);

    // Cut leaves one frequency: the window hears of it, and Save refuses.
    EXPECT_TRUE(Menu(Logic::kFrequencyCut));
    EXPECT_EQ(doc->system->weights.Size(), 1);
    EXPECT_EQ(Clipboard().substr(0, 30), " 1.0000000e+02\n 2.0000000e+02\n");
    Saved();
    EXPECT_EQ(platform.Texts(xPlatform::kNote), Texts{"Cannot save the file - Undefined frequencies."});
}

TEST_F(FreqCard, TheWaveformTypeBringsTheCardsOfItsDomain)
{
    Open("survey-time-domain.DSC");
    auto* system = Select<xEMSysCard>("System Description");
    Kit::ChooseIn(*system->List(5004), "frequency domain");
    EXPECT_EQ(window->FindCard("Tx Waveform"), nullptr);
    ASSERT_NE(Card(), nullptr);
    EXPECT_EQ(Grid().RowCount(), 1);   // the record's table of one frequency
    Copy("1000 2000 3000");
    EXPECT_TRUE(Menu(Logic::kFrequencyPaste));
    std::string message;
    EXPECT_TRUE(window->ApplyAll(message)) << message;
    EXPECT_EQ(doc->system->frequencies.Rows(), 3);

    Select<xCard>("System Description");
    Kit::ChooseIn(*system->List(5004), "transient");
    auto* tx = dynamic_cast<xEMTableCard*>(window->FindCard("Tx Waveform"));
    ASSERT_NE(tx, nullptr);
    EXPECT_EQ(tx->Grid(5000)->RowCount(), 10);   // the windows stayed
    // The same steps on the model alone; back in the time domain the
    // weights follow the windows again.
    xEMEditDesc expected;
    expected.SetFilePath(Kit::Example("survey-time-domain.DSC"));
    ASSERT_TRUE(expected.Load());
    expected.header->waveformType = "frequency domain";
    expected.ToFrequencyDomain();
    expected.Resize(3);
    expected.header->waveformType = "transient";
    expected.ToTimeDomain();
    expected.system->SetChannels(10);
    std::ostringstream out;
    expected.WriteTo(out);
    EXPECT_EQ(Saved(), out.str());
}
