#include "cards/xEMFCard.h"
#include "cards/xEMSysCard.h"
#include "frame/xListButton.h"
#include "model/xEMFDesc.h"
#include "tests/cards/CardScreen.h"
#include "tests/model/xStreamText.h"
#include "widgets/xChoiceEdWin.h"
#include "widgets/xEditBox.h"
#include "widgets/xTextEdWin.h"
#include "widgets/xTxtGrd.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>

namespace {

using Texts = std::vector<std::string>;
using Kit = xEditorTestKit;
using Logic = xEMFCardLogic;

const char* const kSampleLine = "Sample file name (if available)\n";

class FormatCard : public CardScreen {
protected:
    ~FormatCard() override { Logic::showInvalidateWarning = true; }

    // A copy of an example whose record names the sample given, with the
    // example's sample beside it, in its window with the Data Format card on top.
    void Open(const std::string& example, const std::string& sample)
    {
        xTempDirectory::Write(dir / "lines.xyz", xTempDirectory::Read(Kit::Example("survey-lines.xyz")));
        const std::string text = xTempDirectory::Read(Kit::Example(example));
        const size_t at = text.find(kSampleLine);
        const size_t end = text.find('\n', at + std::string(kSampleLine).size());
        CardScreen::Open(example, text.substr(at, end - at), kSampleLine + sample);
        ShowCard();
    }
    void ShowCard()
    {
        card = static_cast<xEMFCard*>(doc->DescWindow()->FindCard("Data Format"));
        ASSERT_NE(card, nullptr);
        card->ShowCard();
        Kit::Settle();
    }
    xQtMenuBar& Menus() const { return doc->DescWindow()->MenuBar(); }
    void Click(QAbstractButton* button)
    {
        ASSERT_NE(button, nullptr);
        QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, QPoint(8, button->height() / 2));
        Kit::Settle();
    }
    // Chooses an entry as a user does: the list opens and the entry is clicked.
    void Pick(int list, const std::string& text)
    {
        xListButton* box = card->List(list);
        ASSERT_NE(box, nullptr);
        const int index = box->findText(QString::fromStdString(text));
        ASSERT_GE(index, 0) << text;
        box->showPopup();
        QAbstractItemView* view = box->view();
        const QModelIndex item = view->model()->index(index, 0);
        view->scrollTo(item);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, view->visualRect(item).center());
        Kit::Settle();
    }
    Texts Shown() const
    {
        Texts texts;
        for (int k = 0; k < card->ListCount(); ++k)
            texts.push_back(card->List(k)->currentText().toStdString());
        return texts;
    }
    // Types a text into the dialog that comes up and presses its OK.
    static void TypeAndAccept(QDialog& dialog, const std::string& text)
    {
        auto& window = static_cast<xTextEdWin&>(dialog);
        window.Field()->setText(QString::fromStdString(text));
        QTest::mouseClick(window.OkButton(), Qt::LeftButton);
    }

    xEMFCard* card = nullptr;
};

} // namespace

TEST_F(FormatCard, OpenedSampleIsParsedPlacedAndSavedAndComesBackWithTheDescriptor)
{
    Open("survey-time-domain.DSC", "");
    EXPECT_EQ(card->SampleView(), nullptr);
    EXPECT_EQ(card->SampleButton()->text().toStdString(), "Open Sample ASCII Data...");

    // The record holds 37 items: opening the sample parses it at once.
    platform.ChooseNext(2, dir / "lines.xyz");
    Click(card->SampleButton());
    ASSERT_NE(card->Grid(), nullptr);
    EXPECT_EQ(card->SampleButton()->text().toStdString(), "Parse data");
    EXPECT_EQ(card->SampleView()->toPlainText().split('\n').size(), 14);
    EXPECT_EQ(card->Grid()->CellText(0, 0), "1.00e+04");
    EXPECT_EQ(card->Grid()->CellText(1, 1), "1.20e+03");
    EXPECT_EQ(Shown(), (Texts{"line", "FID", "east", "north", "z_topo", "altitude", "TzRx[1]", "***"}));

    Click(card->Toggle(Logic::kGeosoftToggle));
    Pick(0, "***");       // a Geosoft record needs no line
    Pick(5, "line");      // frees the altitude
    EXPECT_EQ(Shown()[0] + Shown()[5], "***line");
    // Scrolled to the end, the lists stand for the last eight positions.
    for (int page = 0; page < 4; ++page)
        card->Grid()->HorizontalBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_EQ(card->Logic().firstColumn, 29);
    EXPECT_EQ(card->Grid()->ColumnLabels()[7]->text().toStdString(), "37");
    EXPECT_EQ(Shown()[7], "z(ASL)");
    Pick(7, "altitude");
    EXPECT_TRUE(platform.questions.empty());

    std::string expected = Replaced(original, "(1 yes, 0 no)\n     0", "(1 yes, 0 no)\n     1");
    expected = Replaced(expected, kSampleLine + std::string("\n"), kSampleLine + (dir / "lines.xyz") + "\n");
    expected = Replaced(expected, "line          1   1", "line          6   1");
    expected = Replaced(expected, "altitude      6   1", "altitude      37  1");
    expected = Replaced(expected, "z(ASL)        37  2", "z(ASL)        0   2");
    EXPECT_EQ(Saved(), expected) << platform.Transcript();

    // The saved descriptor brings its sample back, with the same assignments.
    doc = Kit::OpenWindow(dir / "card.DSC");
    ShowCard();
    ASSERT_NE(card->Grid(), nullptr);
    EXPECT_EQ(Shown(), (Texts{"***", "FID", "east", "north", "z_topo", "line", "TzRx[1]", "***"}));
    EXPECT_TRUE(card->Toggle(Logic::kGeosoftToggle)->isChecked());
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
}

TEST_F(FormatCard, CountsAreCheckedBeforeTheParseAndReturnOffersItAgain)
{
    doc = std::make_unique<xEMWinDesc>();
    doc->BuildWindow();
    ShowCard();
    xTempDirectory::Write(dir / "lines.xyz", xTempDirectory::Read(Kit::Example("survey-lines.xyz")));
    platform.ChooseNext(2, dir / "lines.xyz");
    Click(card->SampleButton());
    EXPECT_EQ(card->Grid(), nullptr);   // a new record has no items yet
    EXPECT_TRUE(card->SampleButton()->isEnabled());

    Kit::TypeInto(*card->Box(Logic::kCommentLines), "2");
    Kit::TypeInto(*card->Box(Logic::kItemCount), "7");
    Click(card->SampleButton());
    EXPECT_EQ(card->Grid(), nullptr);   // too few items: the error, and no parse
    EXPECT_EQ(platform.Texts(xPlatform::kError).size(), 1u);
    // Eight items fill the width with no scrolling.
    Kit::TypeInto(*card->Box(Logic::kItemCount), "8");
    Click(card->SampleButton());
    ASSERT_NE(card->Grid(), nullptr);
    EXPECT_EQ(card->Grid()->HorizontalBar(), nullptr);
    EXPECT_EQ(card->ListCount(), 8);
    EXPECT_EQ(card->List(0)->count(), 15);   // "***", twelve, "z(ASL)", "TzRz[1]"
    EXPECT_FALSE(card->SampleButton()->isEnabled());
    QTest::keyClick(card->Box(Logic::kItemCount)->Field(), Qt::Key_Return);
    EXPECT_TRUE(card->SampleButton()->isEnabled());
    Kit::TypeInto(*card->Box(Logic::kItemCount), "37");
    Click(card->SampleButton());
    EXPECT_NE(card->Grid()->HorizontalBar(), nullptr);

    // Another sample replaces the first and is parsed with the same counts.
    xTempDirectory::Write(dir / "other.xyz", "a\nb\n" + std::string("7 ") + std::string(100, ' ') + "\n");
    platform.ChooseNext(2, dir / "other.xyz");
    Click(card->ReplaceButton());
    EXPECT_EQ(card->SampleView()->toPlainText().left(3).toStdString(), "a\nb");
    EXPECT_EQ(card->Grid()->CellText(0, 0) + card->Grid()->CellText(0, 1), "7.00e+000.00e+00");
}

TEST_F(FormatCard, UserItemsComeFromTheEditMenuWithTheirDialogs)
{
    Open("survey-time-domain.DSC", "lines.xyz");
    EXPECT_EQ(Menus().EntryIds(Logic::kUserItemMenu), (std::vector<long>{3553, 3554, 3555}));
    EXPECT_TRUE(Kit::ChooseMenu(Menus(), Logic::kEditUserItem));   // does nothing
    EXPECT_TRUE(Kit::ChooseMenu(Menus(), Logic::kRemoveUserItem));   // nothing but "z(ASL)"

    std::string title, caption;
    Kit::OnNextDialog([&](QDialog& dialog) {
        title = dialog.windowTitle().toStdString();
        caption = static_cast<xTextEdWin&>(dialog).Caption()->text().toStdString();
        Kit::OnNextDialog([](QDialog& again) { TypeAndAccept(again, "gps_time"); });
        TypeAndAccept(dialog, "gps time");
    });
    EXPECT_TRUE(Kit::ChooseMenu(Menus(), Logic::kAddUserItem));
    EXPECT_EQ(title, "User Item");
    EXPECT_EQ(caption, "Enter new user defined item label:");
    EXPECT_EQ(platform.Texts(xPlatform::kNote), Texts{"No blanks allowed in item names!"});
    EXPECT_EQ(doc->format->userLabels, (Texts{"z(ASL)", "gps_time"}));
    EXPECT_EQ(card->List(3)->findText(QStringLiteral("gps_time")), 14);

    Texts offered;
    Kit::OnNextDialog([&](QDialog& dialog) {
        title = dialog.windowTitle().toStdString();
        QComboBox* list = static_cast<xChoiceEdWin&>(dialog).List();
        for (int i = 0; i < list->count(); ++i)
            offered.push_back(list->itemText(i).toStdString());
        QTest::mouseClick(static_cast<xChoiceEdWin&>(dialog).OkButton(), Qt::LeftButton);
    });
    EXPECT_TRUE(Kit::ChooseMenu(Menus(), Logic::kRemoveUserItem));
    EXPECT_EQ(title, "Remove User Item ");
    EXPECT_EQ(offered, Texts{"gps_time"});
    EXPECT_EQ(card->List(3)->findText(QStringLiteral("gps_time")), -1);

    // The menu goes with the card.
    doc->DescWindow()->SelectCardOf(doc->DescWindow()->FindCard("System Description"));
    Kit::Settle();
    EXPECT_EQ(Menus().Menu(Logic::kUserItemMenu), nullptr);
}

TEST_F(FormatCard, ChangedOrientationsShowWhenTheCardComesBackOrAtOnceOnTop)
{
    Open("survey-time-domain.DSC", "lines.xyz");
    // Tabs of the row in front move to the first places: the card is found by its title.
    auto& system = *static_cast<xEMSysCard*>(doc->DescWindow()->FindCard("System Description"));
    doc->DescWindow()->SelectCardOf(&system);
    Kit::Settle();
    QTest::mouseClick(system.OrientationBox(101), Qt::LeftButton);
    Kit::Settle();
    EXPECT_TRUE(card->stale);
    EXPECT_EQ(card->List(0)->findText(QStringLiteral("TxRx[1]")), -1);
    card->ShowCard();
    Kit::Settle();
    EXPECT_FALSE(card->stale);
    EXPECT_EQ(card->List(0)->findText(QStringLiteral("TxRx[1]")), 14);

    doc->format->SetOrientationChannels(0, 101);
    card->MarkStale();
    EXPECT_FALSE(card->stale);
    EXPECT_EQ(card->List(0)->findText(QStringLiteral("TxRx[1]")), -1);
}

TEST_F(FormatCard, MissingSampleLeavesTheCardEmptyAndTheDescriptorSavesAsItWas)
{
    Open("survey-time-domain.DSC", "C:\\survey\\lines.xyz");
    EXPECT_EQ(card->SampleView(), nullptr);
    EXPECT_EQ(card->Grid(), nullptr);
    EXPECT_EQ(Saved(), original);
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();

    // A binary sample shows what it holds as text, and parses to zeros.
    xTempDirectory::Write(dir / "binary.bin", std::string("\x7f" "ELF\x01\x02\0\0\n", 9));
    platform.ChooseNext(2, dir / "binary.bin");
    Click(card->SampleButton());
    ASSERT_NE(card->Grid(), nullptr);
    EXPECT_EQ(card->SampleView()->toPlainText().toStdString(), ".ELF....");
    EXPECT_EQ(card->Grid()->CellText(1, 7), "0.00e+00");
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
}

// Run twice by ctest: at 96 DPI and with QT_SCALE_FACTOR=2.
TEST_F(FormatCard, EveryListCellButtonAndPromptShowsWhole)
{
    std::string sample = "/ header\n";
    for (int r = 0; r < 2; ++r)
        for (int k = 1; k <= 17; ++k)
            sample += std::to_string(-123456.7 * k) + (k < 17 ? " " : "\n");
    xTempDirectory::Write(dir / "fd.xyz", sample);
    Open("survey-frequency-domain.DSC", "fd.xyz");
    ASSERT_NE(card->Grid(), nullptr);
    EXPECT_EQ(Shown()[6] + Shown()[7], "P TxRx[1]Q TxRx[1]");
    Kit::OnNextDialog([](QDialog& dialog) { TypeAndAccept(dialog, "abcdefghijklmnopqrst"); });
    ASSERT_TRUE(Kit::ChooseMenu(Menus(), Logic::kAddUserItem));
    // "Cancel" puts the toggle back; "Proceed" offers every channel.
    platform.AnswerNext(2);
    Click(card->Toggle(Logic::kRandomToggle));
    EXPECT_FALSE(card->Toggle(Logic::kRandomToggle)->isChecked());
    EXPECT_EQ(Shown()[6], "P TxRx[1]");
    platform.AnswerNext(0);
    Click(card->Toggle(Logic::kRandomToggle));
    EXPECT_TRUE(card->Toggle(Logic::kRandomToggle)->isChecked());
    EXPECT_EQ(Shown()[6], "***");
    Pick(0, "abcdefghijklmnopqrst");
    Pick(1, "P TzRz[3]");
    EXPECT_EQ(Shown()[1], "P TzRz[3]");

    // The help panel tells what lies under the mouse.
    Kit::MoveMouse(*card, QPoint(2, 2));
    EXPECT_EQ(doc->DescWindow()->PromptLine(0)->text().toStdString(), "");
    Kit::MoveMouse(*card, card->SampleView()->geometry().center());
    EXPECT_EQ(doc->DescWindow()->PromptLine(0)->text().toStdString(), "EM Data sample.");
    Kit::MoveMouse(*card, card->Grid()->geometry().center());
    EXPECT_EQ(doc->DescWindow()->PromptLine(0)->text().toStdString(), "EM data record item selection.");
    EXPECT_EQ(Kit::ClippedTexts(*doc->DescWindow()), Texts{});
}
