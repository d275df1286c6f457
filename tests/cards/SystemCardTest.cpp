#include "cards/xEMSysCard.h"
#include "frame/xCardCatalog.h"
#include "frame/xListButton.h"
#include "model/xEMSHeader.h"
#include "tests/cards/CardScreen.h"
#include "tests/model/xStreamText.h"

#include <QCheckBox>

namespace {

using Texts = std::vector<std::string>;
using Kit = xEditorTestKit;

const char* const kOtherCards[] = {"Tx Waveform", "Rx Waveform", "Frequencies", "System Geometry", "Data Format"};

class SystemCard : public CardScreen {
protected:
    ~SystemCard() override
    {
        for (const char* title : kOtherCards)
            xCardCatalog::Register(title, nullptr);
    }
    // The window on a copy of an example, with stand-ins for the other cards when asked.
    void Open(const std::string& example, bool standIns)
    {
        if (standIns)
            for (const char* title : kOtherCards)
                xCardCatalog::Register(title, &StandIn::Make);
        CardScreen::Open(example);
        card = static_cast<xEMSysCard*>(window->FindCard("System Description"));
    }
    Texts Titles() const
    {
        Texts titles;
        for (int i = 0; i < window->CardCount(); ++i)
            titles.push_back(window->CardAt(i)->Title());
        return titles;
    }
    void Click(int code)
    {
        QTest::mouseClick(card->OrientationBox(code), Qt::LeftButton);
        Kit::Settle();
    }

    xEMSysCard* card = nullptr;
};

const long kTimeDomainIds[] = {5006, 5005, 5008, 5007, 5013, 5009, 5019};

} // namespace

TEST_F(SystemCard, ControlsShowTheHeaderInTheirOrder)
{
    Open("survey-time-domain.DSC", false);
    const std::vector<long> ids{5000, 5001, 5002, 5003, 5004, 5011, 5012, 5006,
                                5005, 5008, 5007, 5013, 5009, 5019, 5500, 5509};
    std::vector<long> order;
    for (QWidget* view : card->VisibleViews())
        for (long id : ids)
            if (card->View(id) == view)
                order.push_back(id);
    EXPECT_EQ(order, ids);
    std::string text;
    card->Box(5000)->GetText(text);
    EXPECT_EQ(text, "Tolvad demo towed-bird TEM");
    card->Box(5013)->GetText(text);
    EXPECT_EQ(text, "5.0000000e+00");
    // The transmitter's kind is the header's choice, not the block's.
    EXPECT_EQ((Texts{card->List(5004)->SelectedText(), card->List(5005)->SelectedText(),
                     card->List(5007)->SelectedText(), card->List(5009)->SelectedText()}),
              (Texts{"halfperiod", "undefined", "nominal", "mSec"}));
    EXPECT_EQ(card->List(5009)->count(), 9);
    EXPECT_EQ(static_cast<QLabel*>(card->View(5006))->text().toStdString(), "TRANSMITTER CURRENT WAVEFORM");
    EXPECT_FALSE(card->OrientationBox(100)->isEnabled());
    LongArray checks = card->GetClassification();
    for (int code = 100; code <= 109; ++code) {
        EXPECT_EQ(checks[code], code >= 107 ? 1 : 0) << code;
        EXPECT_EQ(card->OrientationBox(code)->text().toStdString(), CodeName(code));
    }
    std::string message;
    EXPECT_TRUE(card->Apply(message));
    EXPECT_FALSE(doc->IsChanged());   // what the file holds reads back unchanged
}

TEST_F(SystemCard, TypedAndChosenValuesReachTheSavedFile)
{
    Open("survey-time-domain.DSC", false);
    Kit::TypeInto(*card->Box(5000), "Bird 9");
    Kit::TypeInto(*card->Box(5003), "2027-01-05");
    Kit::TypeInto(*card->Box(5013), "2.5");
    Kit::TypeInto(*card->Box(5019), "40");
    Kit::ChooseIn(*card->List(5009), "microsec");
    Kit::ChooseIn(*card->List(5012), "component");
    std::string expected = Replaced(original, "Tolvad demo towed-bird TEM", "Bird 9");
    expected = Replaced(expected, "2026-11-22", "2027-01-05");
    expected = Replaced(expected, "5  5   [mSec]", "40  2.5   [microsec]");
    expected = Replaced(expected, "halfperiod\n5   [mSec]", "halfperiod\n2.5   [microsec]");
    expected = Replaced(expected, "NORMALIZED BY\ntotal field", "NORMALIZED BY\ncomponent");
    EXPECT_EQ(Saved(), expected);
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
}

TEST_F(SystemCard, FrequencyDomainSwapsTheCardsAndHidesTheTimeControls)
{
    Open("survey-time-domain.DSC", true);
    EXPECT_EQ(Titles(), (Texts{"System Description", "Tx Waveform", "Rx Waveform", "System Geometry", "Data Format"}));
    Kit::ChooseIn(*card->List(5004), "frequency domain");
    EXPECT_EQ(Titles(), (Texts{"System Description", "System Geometry", "Data Format", "Frequencies"}));
    for (long id : kTimeDomainIds)
        EXPECT_FALSE(card->View(id)->isVisibleTo(card)) << id;
    card->ShowAnew();
    for (long id : kTimeDomainIds)
        EXPECT_FALSE(card->View(id)->isVisibleTo(card)) << id;
    EXPECT_TRUE(card->View(5012)->isVisibleTo(card));
    EXPECT_EQ(doc->format->frequencyDomain, 1);
    EXPECT_EQ(told, Texts{"Data Format: stale"});
    std::string message;
    Kit::TypeInto(*card->Box(5013), "0");   // hidden, and not read
    EXPECT_TRUE(window->ApplyAll(message));

    Kit::ChooseIn(*card->List(5004), "transient");
    EXPECT_EQ(Titles(), (Texts{"System Description", "System Geometry", "Data Format", "Tx Waveform", "Rx Waveform"}));
    for (long id : kTimeDomainIds)
        EXPECT_TRUE(card->View(id)->isVisibleTo(card)) << id;
    EXPECT_EQ(doc->format->frequencyDomain, 0);
    EXPECT_FALSE(window->ApplyAll(message));
    EXPECT_EQ(message, "Undefined halfperiod in real time.");
}

TEST_F(SystemCard, KindChoicesBringAndTakeTheWaveformCards)
{
    Open("survey-time-domain.DSC", true);
    window->RemoveCard("Tx Waveform");
    Kit::ChooseIn(*card->List(5005), "averaged");
    EXPECT_EQ(doc->header->txKind, "averaged");
    EXPECT_EQ(Titles(), (Texts{"System Description", "Rx Waveform", "System Geometry", "Data Format", "Tx Waveform"}));
    Kit::ChooseIn(*card->List(5005), "undefined");
    Kit::ChooseIn(*card->List(5007), "undefined");
    EXPECT_EQ(Titles(), (Texts{"System Description", "System Geometry", "Data Format"}));
    Kit::ChooseIn(*card->List(5007), "other");
    EXPECT_EQ(Titles().back(), "Rx Waveform");
    // The kinds are the card's own choices: the blocks and the file keep theirs.
    EXPECT_EQ(doc->system->rxField.kind, "nominal");
    EXPECT_EQ(Saved(), original);
}

TEST_F(SystemCard, OrientationBoxesAddAndRemoveAndTheLastOneStays)
{
    Open("survey-time-domain.DSC", true);
    Click(101);
    EXPECT_EQ(doc->format->clasf[101], 10);
    EXPECT_TRUE(doc->IsChanged());
    // The data format card is stale, and the cards with selectors learn of it.
    EXPECT_EQ(told, (Texts{"Data Format: stale", "Tx Waveform: added 101", "Rx Waveform: added 101",
                           "System Geometry: added 101", "Data Format: added 101"}));

    told.clear();
    ASSERT_EQ(doc->current, 107);
    Click(107);   // the current one: the lowest other comes, the cards reload
    EXPECT_EQ(doc->current, 101);
    EXPECT_EQ(told.front(), "Tx Waveform: descriptor 101");
    EXPECT_EQ(told.back(), "Data Format: removed 107 101");

    Click(101);
    Click(108);
    EXPECT_TRUE(platform.messages.empty());
    Click(109);   // the last one
    EXPECT_EQ(platform.Texts(xPlatform::kWarning),
              Texts{"At least one Transmitter/Receiver orientation has to remain selected at all times."});
    EXPECT_TRUE(card->OrientationBox(109)->isChecked());
    EXPECT_EQ(doc->format->clasf[109], 10);
    EXPECT_EQ(doc->items.size(), 1u);
}

TEST_F(SystemCard, TimeScalingTakesBothHalfPeriodsUnlessCancelled)
{
    Open("survey-time-domain.DSC", false);
    Kit::ChooseIn(*card->List(5009), "sec");
    Texts seen;
    AnswerNumbers(seen, {"0.5", "30"});
    card->DoCommand(xEMSysCardLogic::kTimeScaling, nullptr);
    EXPECT_EQ(seen, (Texts{"Time scaling", "real time [sec]  ", "nominal time "}));
    EXPECT_EQ(doc->header->realHalfPeriod, 0.5f);
    EXPECT_EQ(doc->header->nominalHalfPeriod, 30.0f);
    EXPECT_EQ(doc->header->halfPeriod, 5.0f);   // only the card's box keeps the copy equal

    AnswerNumbers(seen);
    card->DoCommand(xEMSysCardLogic::kTimeScaling, nullptr);
    EXPECT_EQ(doc->header->realHalfPeriod, 0.5f);
}

TEST_F(SystemCard, AnIncompleteCardStopsSaveAndAsksBeforeClosing)
{
    xTempDirectory::Write(dir / "untitled.DSC", "kept");
    auto fresh = std::make_unique<xEMWinDesc>();   // its half period is 0
    fresh->BuildWindow();
    Kit::Settle();
    fresh->SetChanged(true);
    EXPECT_TRUE(Kit::ChooseMenu(fresh->DescWindow()->MenuBar(), xDoc::kSave));
    EXPECT_EQ(platform.Texts(xPlatform::kNote), Texts{"Cannot save the file - Undefined halfperiod in real time."});
    EXPECT_EQ(xTempDirectory::Read(dir / "untitled.DSC"), "kept");

    platform.AnswerNext(0);   // Save: refused again
    platform.AnswerNext(0);   // No, don't go on without saving
    EXPECT_FALSE(fresh->DoClose());
    ASSERT_EQ(platform.questions.size(), 2u);
    EXPECT_EQ(platform.questions[1].text, "Undefined halfperiod in real time. Do you want to proceed without saving?");
    EXPECT_EQ(fresh->WindowCount(), 1u);
    EXPECT_TRUE(fresh->IsChanged());
}
