#include "app/xQtMenuBar.h"
#include "frame/xCard.h"
#include "frame/xCardTab.h"
#include "frame/xDWin.h"
#include "frame/xDoc.h"
#include "gui/xRecordingPlatform.h"
#include "tests/xEditorTestKit.h"

#include <QAction>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using Log = std::vector<std::string>;

// A card that writes down what the window does to it.
class LoggedCard : public xCard {
public:
    LoggedCard(xDWin& window, Log& log, const std::string& name, bool complete = true)
        : xCard(&window, window.CardFrame()), log(log), name(name), complete(complete) {}
    bool Apply(std::string& message) override
    {
        log.push_back(name + " apply");
        if (!complete)
            message = name + " is incomplete.";
        return complete;
    }
    void Activate() override { log.push_back(name + " on"); xCard::Activate(); }
    void Deactivate() override { log.push_back(name + " off"); xCard::Deactivate(); }
    bool FirstShown() override { log.push_back(name + " first"); return true; }
    bool DoMenuCommand(long command) override
    {
        if (command == 32028)
            log.push_back(name + " copy");
        return command == 32028;
    }
    void UpdateMenu(xQtMenuBar& bar) override { bar.Enable(32028, true); }

    Log& log;
    std::string name;
    bool complete;
};

// A window of cards owned by a plain document.
class CardFrame : public ::testing::Test {
protected:
    CardFrame()
    {
        window = static_cast<xDWin*>(doc.AddWindow(std::make_unique<xDWin>(&doc, true, 3, 5, 24.0)));
        window->show();
    }
    LoggedCard* Add(const std::string& name, bool complete = true)
    {
        auto* card = new LoggedCard(*window, log, name, complete);
        EXPECT_TRUE(window->AppendCard(card, name));
        return card;
    }

    xRecordingPlatform platform;
    xDoc doc;
    xDWin* window;
    Log log;
};

} // namespace

TEST_F(CardFrame, FiveCardsStandInTwoRowsAndTheSixthIsRefused)
{
    for (int i = 0; i < 5; ++i)
        ASSERT_NE(window->CreateNewCard("Card " + std::to_string(i)), nullptr);
    EXPECT_EQ(window->CreateNewCard("Card 5"), nullptr);
    EXPECT_EQ(platform.Texts(xPlatform::kWarning),
              Log{"xDWin::AppendCard() - exceeded max no of Cards allowed in window (<6>)."});
    EXPECT_EQ(window->CardCount(), 5);

    int tabHeight = window->TabHeight();
    EXPECT_EQ(window->CardFrame().topLeft(), QPoint(5, 2 * tabHeight + 5));
    QRect first = window->TabAt(0)->geometry();
    EXPECT_EQ(first.top(), window->CardFrame().top() - tabHeight + 2);
    EXPECT_EQ(window->TabAt(1)->x(), first.x() + first.width());
    // A second row opens 10 to the right and a tab less 2 higher.
    EXPECT_EQ(window->TabAt(3)->pos(), first.topLeft() + QPoint(10, -(tabHeight - 2)));
    EXPECT_EQ(window->TabAt(4)->x(), window->TabAt(3)->x() + first.width());
    EXPECT_EQ(window->TabAt(4)->LabelText(), "Card 4");
    EXPECT_TRUE(xEditorTestKit::ClippedTexts(*window).empty());
}

TEST_F(CardFrame, ATabOfTheSecondRowComesDownWithItsRow)
{
    LoggedCard* a = Add("A");
    Add("B");
    Add("C");
    LoggedCard* d = Add("D");
    window->SelectCard(0);
    EXPECT_EQ(log, (Log{"A first", "A on"}));
    EXPECT_TRUE(a->isVisible());

    log.clear();
    QTest::mouseClick(window->TabAt(3), Qt::LeftButton);
    EXPECT_EQ(log, (Log{"A off", "D first", "D on"}));
    // The rows exchanged tab by tab: the pressed card now stands in the first row.
    EXPECT_EQ(window->CardAt(0), d);
    EXPECT_EQ(window->CardAt(3), a);
    EXPECT_EQ(window->TabAt(0)->LabelText(), "D");
    EXPECT_EQ(window->SelectedIndex(), 0);
    EXPECT_TRUE(window->IsSelected(d));
    EXPECT_TRUE(d->isVisible() && !a->isVisible());
    QRect join = window->JoinView()->geometry();
    EXPECT_TRUE(window->TabAt(0)->geometry().contains(join.center().x(), window->TabAt(0)->y() + 1));
    EXPECT_EQ(join.bottom(), window->CardFrame().top());

    log.clear();
    QTest::mouseClick(window->TabAt(0), Qt::LeftButton);   // on top already
    EXPECT_TRUE(log.empty());
    d->ShowCard();
    a->ShowCard();   // a hidden card's tab is selected first
    EXPECT_EQ(log, (Log{"D off", "A on"}));
}

TEST_F(CardFrame, RemovingMovesTheSelectionAndTheSelectedOfTwoStays)
{
    Add("A");
    LoggedCard* b = Add("B");
    Add("C");
    window->SelectCard(2);
    EXPECT_TRUE(window->RemoveCard("C"));   // selected at 2: the one before comes on top
    EXPECT_EQ(window->CardCount(), 2);
    EXPECT_TRUE(window->IsSelected(b));

    EXPECT_FALSE(window->RemoveCard("B"));   // the selected of two stays
    EXPECT_FALSE(window->RemoveCard("Z"));
    EXPECT_TRUE(window->RemoveCard("A"));
    EXPECT_EQ(window->CardAt(0), b);
    EXPECT_TRUE(window->IsSelected(b));
    EXPECT_EQ(window->FindCard("B"), b);
}

TEST_F(CardFrame, MenuCommandsAndTheirEnablingGoToTheCardOnTopFirst)
{
    Add("A");
    window->SelectCard(0);
    xQtMenuBar& bar = window->MenuBar();
    EXPECT_TRUE(bar.IsEnabled(32028));   // the card's Copy
    EXPECT_FALSE(bar.IsEnabled(32029));
    EXPECT_TRUE(bar.IsEnabled(xDoc::kClose));
    EXPECT_FALSE(bar.IsEnabled(xDoc::kSaveAs));   // the plain document's rule: only when changed

    EXPECT_TRUE(xEditorTestKit::ChooseMenu(bar, 32028));
    for (QAction* key : bar.Keys())
        if (xQtMenuBar::IdOf(key) == 32028)
            key->trigger();
    xEditorTestKit::Settle();
    EXPECT_EQ(log, (Log{"A first", "A on", "A copy", "A copy"}));

    doc.SetChanged(true);   // the window follows the document at once
    EXPECT_TRUE(bar.IsEnabled(xDoc::kSaveAs));
    EXPECT_TRUE(window->isWindowModified());
}

TEST_F(CardFrame, AChangedDocumentAsksTheCardsThatAreNotCompleteOnClosing)
{
    Add("A");
    Add("B", false);
    Add("C", false);
    window->SelectCard(0);
    doc.SetFilePath("unsaved.DSC");
    doc.SetChanged(true);

    platform.AnswerNext(0);   // No
    EXPECT_FALSE(window->Close());
    ASSERT_EQ(platform.questions.size(), 1u);
    EXPECT_EQ(platform.questions[0].text, "B is incomplete. Do you want to proceed without saving?");
    EXPECT_EQ(platform.questions[0].first + "|" + platform.questions[0].second + "|" + platform.questions[0].third,
              "No|Yes|Cancel");
    platform.AnswerNext(4);
    EXPECT_FALSE(window->Close());
    EXPECT_EQ(platform.Texts(xPlatform::kError), Log{"xCard::Close() Invalid return from ask."});
    EXPECT_EQ(doc.WindowCount(), 1u);

    // "Yes" answers for the cards behind; the document then asks its own question.
    log.clear();
    platform.questions.clear();
    platform.AnswerNext(1);
    platform.AnswerNext(1);   // Discard
    EXPECT_TRUE(window->Close());
    EXPECT_EQ(log, (Log{"A apply", "B apply"}));
    ASSERT_EQ(platform.questions.size(), 2u);
    EXPECT_EQ(platform.questions[1].text, "unsaved.DSC has changed, save before closing?");
    EXPECT_EQ(doc.WindowCount(), 0u);
}
