#include "cards/xEMWaveCard.h"

#include "cards/xEMSysCard.h"
#include "cards/xTROrientationSelector.h"
#include "frame/xListButton.h"
#include "model/xEMSDesc.h"
#include "tests/cards/CardScreen.h"
#include "widgets/x2DGBars.h"
#include "widgets/x2DGLine.h"
#include "widgets/x2DGPort.h"
#include "widgets/xGridEdViewWin.h"

#include <QCheckBox>
#include <QDialog>
#include <QImage>
#include <QMenu>
#include <QPlainTextEdit>

namespace {

using Kit = xEditorTestKit;
using Logic = xEMWaveCardLogic;
using Texts = std::vector<std::string>;

// The receiver's table of the time-domain example, its count line first; the
// first block of the file is the current orientation's.
const char* const kRxTable = "10\n        TIME      CURRENT        ERROR  [ppm]\n"
                             "           0            0          0.5\n"
                             "         0.5        0.383          0.5\n"
                             "           1        0.707          0.5\n"
                             "         1.5        0.924          0.5\n"
                             "           2            1          0.5\n"
                             "         2.5        0.924          0.5\n"
                             "           3        0.707          0.5\n"
                             "         3.5        0.383          0.5\n"
                             "           4            0          0.5\n"
                             "           5            0          0.5\n";

class WaveCard : public CardScreen {
protected:
    xEMWaveCard* Tx() { return Select<xEMWaveCard>("Tx Waveform"); }
    xEMWaveCard* Rx() { return Select<xEMWaveCard>("Rx Waveform"); }
    static xGridEdView& Windows(xEMWaveCard* card) { return *card->Grid(Logic::kWindowsGrid); }
    static xGridEdView& Waveform(xEMWaveCard* card) { return *card->Grid(Logic::kWaveformGrid); }
};

} // namespace

// Run twice by ctest: at 96 DPI and with QT_SCALE_FACTOR=2.
TEST_F(WaveCard, TablesAndPlotOfTheExampleShowWholeAndTheDialogsHaveTheirTitles)
{
    Open("survey-time-domain.DSC");
    for (const char* title : {"Tx Waveform", "Rx Waveform"}) {
        xEMWaveCard* card = Select<xEMWaveCard>(title);
        ASSERT_NE(card, nullptr) << title;
        EXPECT_EQ(Waveform(card).RowCount(), 10) << title;
        EXPECT_EQ(Windows(card).Grid()->CellText(9, 1), "5.00e+00");
        EXPECT_EQ(Waveform(card).Grid()->VisibleRows(), 13);
        EXPECT_EQ(card->Curve()->PixelCount(), 10);
        EXPECT_EQ(card->Bars()->PixelCount(), 20);
        EXPECT_EQ(card->Selector()->Code(), 107);
        EXPECT_EQ(Kit::ClippedTexts(*window), Texts{}) << title;
        // The buttons stand apart.
        EXPECT_FALSE(card->Button(5015)->geometry().intersects(card->Button(5016)->geometry()));
        EXPECT_TRUE(card->rect().contains(card->CommonBox()->geometry()));
    }
    std::string units;
    Tx()->PlotUnits()->GetText(units);
    EXPECT_EQ(units, "amp");
    EXPECT_EQ(Tx()->PromptTexts(), (Texts{Logic::kWaveformPrompt, Logic::kWindowsPrompt}));
    // The waveform sets the time axis, off time included, so the windows'
    // bars stand inside; the half-sine peaks at 1 with a fifth more room.
    EXPECT_FLOAT_EQ(Tx()->Plot()->yMax, 1.2f);
    EXPECT_EQ(Tx()->Plot()->xMax, 5.0f);
    for (const x2DGPixel& end : Tx()->Bars()->pixels) {
        EXPECT_GE(end.h, 0);
        EXPECT_LE(end.h, Tx()->Plot()->width());
    }

    Texts titles;
    for (long button : {5015L, 5016L}) {
        Kit::OnNextDialog([&titles](QDialog& dialog) {
            titles.push_back(dialog.windowTitle().toStdString());
            dialog.reject();
        });
        QTest::mouseClick(Tx()->Button(button), Qt::LeftButton);
    }
    // Both cards' scale dialog has the receiver's title.
    EXPECT_EQ(titles, (Texts{"Rx Waveform Amplitude Scaling", "Edit Response Weights"}));
    EXPECT_FALSE(doc->IsChanged());
    EXPECT_EQ(Saved(), original);
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
}

TEST_F(WaveCard, TypedCellsAndPastedBlocksReachThePlotAndTheSavedFile)
{
    Open("survey-time-domain.DSC");
    xEMWaveCard* rx = Rx();
    TypeCell(Windows(rx), 9, 1, "5.5");
    EXPECT_EQ(Windows(rx).Grid()->CellText(9, 1), "5.50e+00");
    // A block from a spreadsheet: tab separated, lines ending CR LF.
    Copy("0\t0\t0\r\n2\t1\t0\r\n4\t0.5\t0\r\n6\t0\t0\r\n");
    EXPECT_TRUE(Menu(Logic::kWaveformPaste));
    EXPECT_EQ(Waveform(rx).RowCount(), 4);
    // The plot follows: the time axis now holds the windows, whose bars
    // stand where they begin and end.
    x2DGPort& plot = *rx->Plot();
    ASSERT_EQ(rx->Curve()->PixelCount(), 4);
    EXPECT_EQ(plot.xMax, 6.0f);
    const x2DGLine& bars = *rx->Bars();
    ASSERT_EQ(bars.PixelCount(), 20);
    for (int i = 0; i < 20; i += 19) {
        const float time = (*bars.xValues)[bars.xValues->Lower() + i];
        EXPECT_NEAR(bars.pixels[i].h, plot.Frame().left + plot.XToPixel(time), 1.0) << i;
    }
    EXPECT_NEAR(rx->Curve()->pixels[3].h, plot.Frame().right, 1.0);
    // The bars in blue, the first window on the lower level, the next on the higher.
    const QImage shot = plot.grab().toImage();
    const int middle = (plot.Frame().bottom - plot.Frame().top) / 2 + plot.Frame().top;
    auto along = [&bars](int window) { return (bars.pixels[2 * window].h + bars.pixels[2 * window + 1].h) / 2; };
    EXPECT_EQ(shot.pixelColor(along(0), middle + 5).rgb() & 0xffffffu, 0x0000ffu);
    EXPECT_EQ(shot.pixelColor(along(1), middle - 5).rgb() & 0xffffffu, 0x0000ffu);

    // Commas are no separators: a note, and the table stays.
    Copy("1,2,3\n");
    EXPECT_TRUE(Menu(Logic::kWaveformPaste));
    EXPECT_EQ(platform.Texts(xPlatform::kNote),
              Texts{"Clipboard contains illegal character. Numbers only please (scientific notation OK)."});
    EXPECT_EQ(Waveform(rx).RowCount(), 4);

    std::string expected = ReplacedAt(original, kRxTable,
                                    "4\n        TIME      CURRENT        ERROR  [ppm]\n"
                                    "           0            0            0\n"
                                    "           2            1            0\n"
                                    "           4          0.5            0\n"
                                    "           6            0            0\n");
    expected = ReplacedAt(expected, "         4.8            5            1\n", "         4.8          5.5            1\n");
    EXPECT_EQ(Saved(), expected);
    // The other orientations keep theirs.
    EXPECT_EQ(doc->items["TzRy"]->system.rxField.table.Rows(), 10);
}

TEST_F(WaveCard, MenusUnderEditFollowTheClipboardAndCutTellsTheWindow)
{
    Open("survey-time-domain.DSC");
    xEMWaveCard* tx = Tx();
    xQtMenuBar& bar = window->MenuBar();
    ASSERT_NE(bar.Menu(3457), nullptr);
    EXPECT_EQ(bar.Menu(32025)->actions().back(), bar.Menu(3457)->menuAction());
    EXPECT_EQ(bar.Menu(3457)->title().toStdString(), "Windows");
    EXPECT_EQ(bar.EntryIds(3457), (std::vector<long>{3458, 3459, 3460}));
    EXPECT_FALSE(bar.IsEnabled(3455));
    EXPECT_FALSE(Key(32032)->isEnabled());

    EXPECT_TRUE(Menu(Logic::kWaveformCopy));
    EXPECT_EQ(Clipboard().substr(0, 43), " 0.0000000e+00 0.0000000e+00 0.0000000e+00\n");
    EXPECT_TRUE(bar.IsEnabled(3455) && bar.IsEnabled(3460) && Key(32032)->isEnabled());
    Key(32032)->trigger();
    Kit::Settle();
    auto* viewer = tx->findChild<QDialog*>();
    ASSERT_NE(viewer, nullptr);
    EXPECT_EQ(viewer->windowTitle().toStdString(), "clipboard");
    EXPECT_EQ(viewer->findChild<QPlainTextEdit*>()->document()->blockCount(), 10);

    // Cut: one row of zeros in the grid, and one weight, the first kept.
    doc->system->weights[1] = 0.25f;
    EXPECT_TRUE(Menu(Logic::kWindowsCut));
    EXPECT_EQ(Windows(tx).Grid()->CellText(0, 0), "0.00e+00");
    EXPECT_EQ(doc->system->weights.Size(), 1);
    EXPECT_EQ(doc->system->weights[1], 0.25f);
    EXPECT_EQ(doc->format->clasf[107], 1);
    // Blank and line separated windows come back with their count.
    Copy("1 2\n2 3\n3 4\n");
    EXPECT_TRUE(Menu(Logic::kWindowsPaste));
    EXPECT_EQ(doc->system->weights.Size(), 3);
    EXPECT_EQ(doc->format->clasf[107], 3);
    std::string message;
    EXPECT_TRUE(tx->Apply(message));
    EXPECT_EQ(doc->system->windows.Rows(), 3);

    // Leaving the card takes its menus away.
    Select<xCard>("System Description");
    EXPECT_EQ(bar.Menu(3452), bar.Menu(3457));   // both gone
}

TEST_F(WaveCard, DialogsEditTheScaleAndTheWeightsUnlessCancelled)
{
    Open("survey-time-domain.DSC");
    xEMWaveCard* tx = Tx();
    Texts seen;
    AnswerNumbers(seen, {"250", "2"});
    QTest::mouseClick(tx->Button(5015), Qt::LeftButton);
    // Both cards' scale dialog has the receiver's title.
    EXPECT_EQ(seen, (Texts{"Rx Waveform Amplitude Scaling", "equivalent secondary amplitude",
                           "nominal (primary) amplitude "}));

    int rows = 0;
    Kit::OnNextDialog([&rows](QDialog& dialog) {
        xGridEdView& grid = *static_cast<xGridEdViewWin&>(dialog).View();
        rows = grid.RowCount();
        EXPECT_EQ(grid.Grid()->VisibleRows(), 5);
        TypeCell(grid, 1, 0, "0.5");
        QTest::mouseClick(static_cast<xGridEdViewWin&>(dialog).OkButton(), Qt::LeftButton);
    });
    QTest::mouseClick(tx->Button(5016), Qt::LeftButton);
    EXPECT_EQ(rows, 10);

    doc->SetChanged(false);
    Kit::OnNextDialog([](QDialog& dialog) {
        TypeCell(*static_cast<xGridEdViewWin&>(dialog).View(), 0, 0, "9");
        dialog.reject();
    });
    QTest::mouseClick(tx->Button(5016), Qt::LeftButton);
    EXPECT_FALSE(doc->IsChanged());

    std::string expected = ReplacedAt(original, "1  500   [amp]", "2  250   [amp]");
    expected = ReplacedAt(expected, "        4.07          4.1            1\n", "        4.07          4.1          0.5\n");
    EXPECT_EQ(Saved(), expected);
}

TEST_F(WaveCard, BothCardsShareTheWindowsAndFollowOrientationsAndTheCommonBox)
{
    Open("survey-time-domain.DSC");
    xEMWaveCard* rx = Rx();
    xEMWaveCard* tx = Tx();
    Copy("1 2 3 4\n");
    EXPECT_TRUE(Menu(Logic::kWindowsPaste));
    // Leaving stores the windows; the other card shows them.
    Rx();
    EXPECT_EQ(Windows(rx).RowCount(), 2);
    Tx();
    Copy("1 2 3 4 5 6\n");
    EXPECT_TRUE(Menu(Logic::kWindowsPaste));
    // Save applies the cards in tab order: the hidden one behind stores no old windows.
    Saved();
    EXPECT_EQ(doc->items["TzRx"]->system.windows.Rows(), 3);
    EXPECT_EQ(Windows(rx).RowCount(), 3);

    // The selector of the card on top steps on; both cards follow.
    QTest::mouseClick(tx->Selector()->NextButton(), Qt::LeftButton);
    EXPECT_EQ(rx->Selector()->Code(), 108);
    EXPECT_EQ(Windows(tx).RowCount(), 10);
    EXPECT_EQ(doc->items["TzRx"]->system.windows.Rows(), 3);

    // One record for all orientations while the box is on.
    Copy("7 8\n");
    EXPECT_TRUE(Menu(Logic::kWindowsPaste));
    QTest::mouseClick(tx->CommonBox(), Qt::LeftButton);
    EXPECT_TRUE(doc->sharedMode);
    EXPECT_FALSE(rx->Selector()->isEnabled() || tx->Selector()->isEnabled());
    EXPECT_TRUE(rx->CommonBox()->isChecked());
    std::string message;
    tx->Apply(message);
    for (const char* name : {"TzRx", "TzRy", "TzRz"})
        EXPECT_EQ(doc->items[name]->system.windows.Rows(), 1) << name;
    QTest::mouseClick(tx->CommonBox(), Qt::LeftButton);
    EXPECT_FALSE(doc->sharedMode);
    EXPECT_TRUE(rx->Selector()->isEnabled());
    EXPECT_FALSE(rx->CommonBox()->isChecked());
}

TEST_F(WaveCard, AWaveformCardComesWhenItsKindIsChosenAndAnUndefinedOneNeverCompletes)
{
    Open("survey-version7.DSC");
    EXPECT_EQ(window->FindCard("Tx Waveform"), nullptr);
    auto* system = Select<xEMSysCard>("System Description");
    Kit::ChooseIn(*system->List(5005), "nominal");
    xEMWaveCard* tx = Tx();
    ASSERT_NE(tx, nullptr);
    EXPECT_EQ(Windows(tx).RowCount(), 6);
    // No control sets a block's kind: the card stays incomplete.
    Copy("0 0 0 1 1 0 2 0 0");
    EXPECT_TRUE(Menu(Logic::kWaveformPaste));
    std::string message;
    EXPECT_FALSE(window->ApplyAll(message));
    EXPECT_EQ(message, "Undefined waveform or windows.");
    EXPECT_EQ(doc->system->txWaveform.table.Rows(), 3);
    EXPECT_EQ(doc->system->txWaveform.kind, "undefined");
    Select<xCard>("System Description");   // leaving raises nothing
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
}
