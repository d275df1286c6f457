#include "app/xQtMenuBar.h"
#include "frame/xCard.h"
#include "frame/xDWin.h"
#include "frame/xPWin.h"
#include "gui/xRecordingPlatform.h"
#include "tests/xEditorTestKit.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using Lines = std::vector<std::string>;

Lines PanelLines(const xPWin& window)
{
    Lines lines;
    for (int i = 0; i < xPWin::kLineCount; ++i)
        lines.push_back(window.PromptLine(i)->text().toStdString());
    return lines;
}

class Prompts : public ::testing::Test {
protected:
    Prompts()
    {
        xPWin::helpOn = true;
        window.resize(640, 400);
        window.show();
    }
    ~Prompts() override { xPWin::helpOn = true; }

    xRecordingPlatform platform;
    xPWin window{nullptr, true};
};

} // namespace

TEST_F(Prompts, ThePanelShowsFourLinesOfTheFirstRegionUnderTheMouse)
{
    window.AddPromptItem(QRect(10, 10, 100, 50), "First.\ntwo\nthree\nfour\nfive\nsix");
    window.AddPromptItem(QRect(50, 20, 100, 50), "Second.\nunder the mouse");
    xEditorTestKit::MoveMouse(*window.Client(), QPoint(109, 59));   // an edge of both: the first added wins
    EXPECT_EQ(PanelLines(window), (Lines{"First.", "two", "three", "four"}));
    EXPECT_GT(window.PromptLine(0)->font().pointSize(), window.PromptLine(1)->font().pointSize());

    xEditorTestKit::MoveMouse(*window.Client(), QPoint(140, 65));
    EXPECT_EQ(PanelLines(window), (Lines{"Second.", "under the mouse", "", ""}));
    xEditorTestKit::MoveMouse(*window.Client(), QPoint(300, 200));
    EXPECT_EQ(PanelLines(window), (Lines{"", "", "", ""}));

    window.RemovePromptItem(QPoint(10, 10));
    xEditorTestKit::MoveMouse(*window.Client(), QPoint(60, 30));
    EXPECT_EQ(PanelLines(window)[0], "Second.");
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
}

TEST_F(Prompts, HelpOffShowsNothingUntilTheMenuTurnsItBack)
{
    xQtMenuBar& bar = window.MenuBar();
    EXPECT_EQ(bar.EntryIds(xPWin::kHelpMenu), (std::vector<long>{10241, 0, 32010}));
    EXPECT_EQ(bar.Text(10241), "Turn Help Off");

    window.AddPromptItem(QRect(0, 0, 100, 100), "Region.\ntext");
    xEditorTestKit::MoveMouse(*window.Client(), QPoint(50, 50));
    EXPECT_TRUE(xEditorTestKit::ChooseMenu(bar, 10241));
    EXPECT_FALSE(xPWin::helpOn);
    EXPECT_EQ(bar.Text(10241), "Turn Help On");
    EXPECT_EQ(PanelLines(window)[0], "Region.");   // stays until the mouse moves on
    xEditorTestKit::MoveMouse(*window.Client(), QPoint(300, 300));
    xEditorTestKit::MoveMouse(*window.Client(), QPoint(50, 50));
    EXPECT_EQ(PanelLines(window), (Lines{"", "", "", ""}));
    EXPECT_TRUE(xEditorTestKit::ChooseMenu(bar, 10241));
    EXPECT_EQ(bar.Text(10241), "Turn Help Off");

    // A window without help turns prompts off everywhere and takes no region.
    xPWin plain(nullptr, false);
    EXPECT_FALSE(xPWin::helpOn);
    EXPECT_FALSE(plain.HasPanel());
    plain.AddPromptItem(QRect(0, 0, 10, 10), "Lost.");
    xDWin cards(nullptr, false, 3, 5, 24.0);
    xCard* card = cards.CreateNewCard("Card");
    card->AddPromptItem(QRect(0, 0, 10, 10), "Lost.");
    EXPECT_EQ(platform.Texts(xPlatform::kWarning),
              (Lines{"xPWin::AddPromptItem() >> current window does not support help!",
                     "xCard::AddPromptItem() >> current window does not support help!"}));
    xPWin later(nullptr, true);
    EXPECT_EQ(later.MenuBar().Text(10241), "Turn Help On");
}

TEST_F(Prompts, CardRegionsReachTheWindowsPanelAndViewsGoRound)
{
    xDWin cards(nullptr, true, 3, 5, 24.0);
    cards.show();
    xCard* card = cards.CreateNewCard("Card");
    cards.SelectCard(0);
    card->AddPromptItem(QRect(0, 0, 60, 60), "Card region.\nof the card");
    xEditorTestKit::MoveMouse(*card, QPoint(30, 30));
    EXPECT_EQ(PanelLines(cards), (Lines{"Card region.", "of the card", "", ""}));

    QWidget first(card), second(card), stranger(card);
    card->AddNavigableView(&first);
    card->AddNavigableView(&second);
    EXPECT_EQ(card->NextNavigableView(&first), &second);
    EXPECT_EQ(card->NextNavigableView(&second), &first);
    EXPECT_EQ(card->NextNavigableView(&stranger), nullptr);
    EXPECT_EQ(cards.NextNavigableView(card), card);   // the window lists its cards
    card->RemoveNavigableView(&second);
    EXPECT_EQ(card->NextNavigableView(&first), &first);

    // OK and Cancel stand beside the panel and close the window.
    window.AddOkCancel();
    EXPECT_LT(window.Panel()->geometry().right(), std::min(window.OkButton()->x(), window.CancelButton()->x()));
    QTest::mouseClick(window.OkButton(), Qt::LeftButton);
    EXPECT_FALSE(window.isVisible());
}
