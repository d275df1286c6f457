#include "cards/xEMGCard.h"
#include "cards/xEMGCardLegend.h"
#include "cards/xEMSysCard.h"
#include "cards/xLoopIcon.h"
#include "cards/xSensorIcon.h"
#include "cards/xTROrientationSelector.h"
#include "frame/xCardCatalog.h"
#include "frame/xListButton.h"
#include "model/xEMGDesc.h"
#include "tests/cards/CardScreen.h"
#include "widgets/xEditBox.h"
#include "widgets/xGridEdViewWin.h"
#include "widgets/xMultipleBEditBox.h"
#include "widgets/xPointEdWin.h"

#include <QCheckBox>
#include <QFrame>
#include <QPaintEvent>
#include <QPushButton>

namespace {

using Kit = xEditorTestKit;
using Logic = xEMGCardLogic;
using Shape = Logic::Shape;
using Arrow = Logic::Arrow;
using Texts = std::vector<std::string>;

// Keeps the areas a widget paints.
class PaintLog : public QObject {
public:
    explicit PaintLog(QWidget* widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            areas.push_back(static_cast<QPaintEvent*>(event)->region().boundingRect());
        return false;
    }
    std::vector<QRect> areas;
};

class GeometryCard : public CardScreen {
protected:
    GeometryCard()
    {
        // Another suite may have taken the card out of the catalog.
        xCardCatalog::Register(xEMEditDesc::kGeometryCard, &xEMGCard::Make);
        xCardCatalog::Register(xEMEditDesc::kTxWaveCard, &StandIn::Make);
    }
    ~GeometryCard() override { xCardCatalog::Register(xEMEditDesc::kTxWaveCard, nullptr); }

    // A copy of an example, or of its text changed, in its window with the card on top.
    void Open(const std::string& example, const std::string& from = "", const std::string& to = "")
    {
        CardScreen::Open(example, from, to);
        card = static_cast<xEMGCard*>(window->FindCard(xEMEditDesc::kGeometryCard));
        ASSERT_NE(card, nullptr);
        window->SelectCardOf(card);
        Kit::Settle();
    }
    void Pick(int code)
    {
        doc->PickOrientation(code);
        Kit::Settle();
    }
    xSensorIcon* Rx() const { return card->Icon(true); }
    xSensorIcon* Tx() const { return card->Icon(false); }
    // The receiver's place from the transmitter's, on the drawing.
    QPoint RxOffset() const { return Rx()->Centre() - Tx()->Centre(); }
    std::string LabelText(long id) const { return card->Label(id)->text().toStdString(); }
    // Runs a button's dialog with the user's answer.
    void PressWith(long button, std::function<void(xPointEdWin&)> act)
    {
        Kit::OnNextDialog([act](QDialog& dialog) { act(static_cast<xPointEdWin&>(dialog)); });
        QTest::mouseClick(card->Button(button), Qt::LeftButton);
        Kit::Settle();
    }
    void DoubleClick(xSensorIcon* icon)
    {
        const QPoint middle(xSensorIcon::kSize / 2, xSensorIcon::kSize / 2);
        QTest::mouseDClick(icon, Qt::LeftButton, {}, middle);
        QTest::mouseRelease(icon, Qt::LeftButton, {}, middle);
        Kit::Settle();
    }
    std::string PanelLine() const { return doc->DescWindow()->PromptLine(0)->text().toStdString(); }

    xEMGCard* card = nullptr;
};

bool Same(const Logic::Picture& picture, Shape shape, Arrow arrow = Arrow::kNone)
{
    return picture.shape == shape && picture.arrow == arrow;
}

} // namespace

TEST_F(GeometryCard, IconsStandWhereTheModelPutsThemAndTheSelectorWalksEveryCard)
{
    Open("survey-time-domain.DSC");
    ASSERT_EQ(doc->current, 107);
    xTROrientationSelector* selector = card->Selector();
    EXPECT_EQ(selector->TxLabel()->text() + selector->RxLabel()->text(), "TzRx");
    const Logic::Place origin = card->Logic().Origin();
    EXPECT_EQ(Tx()->Centre(), QPoint(static_cast<int>(origin.x), static_cast<int>(origin.y)));
    EXPECT_EQ(RxOffset(), QPoint(-120, 55));
    EXPECT_TRUE(Same(Tx()->Picture(), Shape::kLoopSection));
    EXPECT_TRUE(Same(Rx()->Picture(), Shape::kOvalLine, Arrow::kRight));
    EXPECT_EQ(Rx()->Pen(), QColor(0, 0, 255));
    EXPECT_EQ(Tx()->Pen(), QColor(255, 0, 0));
    EXPECT_EQ((Texts{LabelText(20004), LabelText(20005), LabelText(20006)}),
              (Texts{"dx : -120", "dy : 0", "dz : -55"}));

    // ">>" walks up and round, "<<" down; each step reloads every card.
    for (int step = 0; step < 3; ++step)
        QTest::mouseClick(selector->NextButton(), Qt::LeftButton);
    QTest::mouseClick(selector->PreviousButton(), Qt::LeftButton);
    EXPECT_EQ(told, (Texts{"Tx Waveform: descriptor 108", "Tx Waveform: descriptor 109", "Tx Waveform: descriptor 107",
                           "Tx Waveform: descriptor 109"}));
    EXPECT_EQ(selector->RxLabel()->text(), "Rz");
    EXPECT_TRUE(Same(Rx()->Picture(), Shape::kOvalLine, Arrow::kUp));
    EXPECT_FALSE(doc->IsChanged());

    // An orientation ticked on the system card joins the walk; removed, the
    // lowest other one comes.
    auto* system = static_cast<xEMSysCard*>(doc->DescWindow()->FindCard(xEMEditDesc::kSystemCard));
    auto tick = [&](int code) {
        doc->DescWindow()->SelectCardOf(system);
        QTest::mouseClick(system->OrientationBox(code), Qt::LeftButton);
        doc->DescWindow()->SelectCardOf(card);
        Kit::Settle();
    };
    tick(101);
    QTest::mouseClick(selector->NextButton(), Qt::LeftButton);
    EXPECT_EQ(selector->TxLabel()->text(), "Tx");   // 101, the lowest
    tick(101);
    EXPECT_EQ(selector->Code(), 107);
    EXPECT_EQ(selector->Clasf()[101], 0);
    EXPECT_EQ(card->Logic().Geometry(), doc->geometry);

    // In common mode the selectors rest.
    doc->DoCommand(xEMEditDesc::kCommonOn, nullptr);
    EXPECT_FALSE(selector->isEnabled());
    doc->DoCommand(xEMEditDesc::kCommonOff, nullptr);
    EXPECT_TRUE(selector->isEnabled());
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
}

TEST_F(GeometryCard, TheViewButtonTurnsSectionAndPlanAndTheViewStaysWithTheOrientation)
{
    Open("survey-time-domain.DSC");
    Pick(109);
    QPushButton* view = card->Button(3404);
    EXPECT_EQ(view->text(), "View Horizontal Plan (xy)");
    EXPECT_EQ(card->Legend()->VerticalLabel(), "z");
    QTest::mouseClick(view, Qt::LeftButton);
    EXPECT_EQ(view->text(), "View Vertical Section (xz)");
    EXPECT_EQ(card->Legend()->VerticalLabel(), "y");
    EXPECT_EQ(RxOffset(), QPoint(-120, 0));
    EXPECT_TRUE(Same(Rx()->Picture(), Shape::kOvalDot));
    EXPECT_TRUE(Same(Tx()->Picture(), Shape::kLoopPlan));
    EXPECT_EQ(LabelText(20003).substr(0, 4), "y : ");

    Pick(108);   // the receiver along y points down the plan
    EXPECT_TRUE(Same(Rx()->Picture(), Shape::kOvalLine, Arrow::kDown));
    QTest::mouseClick(view, Qt::LeftButton);
    EXPECT_EQ(view->text(), "View Horizontal Plan (xy)");
    EXPECT_EQ(RxOffset(), QPoint(-120, 55));
    EXPECT_FALSE(doc->IsChanged());
}

TEST_F(GeometryCard, DraggingTheReceiverRepaintsOnlyWhatMovesAndSaveWritesTheOffset)
{
    Open("survey-time-domain.DSC");
    Pick(109);
    QFrame* drawing = card->Drawing();
    PaintLog cardPaints(card), drawingPaints(drawing);
    const QPoint start = Rx()->Centre();
    const QPoint grip(xSensorIcon::kSize / 2, xSensorIcon::kSize / 2);
    QTest::mousePress(Rx(), Qt::LeftButton, {}, grip);
    EXPECT_TRUE(Rx()->Dragging());
    for (int step = 1; step <= 4; ++step) {
        QPoint target = start + QPoint(5 * step, -3 * step);
        QTest::mouseMove(Rx(), Rx()->mapFromParent(target));
        Kit::Settle();
        EXPECT_EQ(Rx()->Centre(), target);
    }
    QTest::mouseRelease(Rx(), Qt::LeftButton, {}, grip);
    EXPECT_FALSE(Rx()->Dragging());
    Kit::Settle();

    // The cursor's labels at the icon's centre, then the offset's.
    EXPECT_EQ((Texts{LabelText(20002), LabelText(20003), LabelText(20004), LabelText(20006)}),
              (Texts{"x : -100", "z : -43", "dx : -100", "dz : -43"}));
    EXPECT_TRUE(doc->IsChanged());
    // The receiver's prompt went along.
    Kit::MoveMouse(*card, drawing->pos() + Rx()->Centre());
    EXPECT_EQ(PanelLine(), "Receiver.");
    Kit::MoveMouse(*card, drawing->pos() + start + QPoint(-24, 20));   // where it stood
    EXPECT_EQ(PanelLine(), "");
    // Each move repainted a corner of the drawing and the changed labels,
    // never the whole card or drawing.
    ASSERT_FALSE(drawingPaints.areas.empty());
    for (const QRect& area : drawingPaints.areas)
        EXPECT_LT(area.width() * area.height(), drawing->width() * drawing->height() / 4) << area.width();
    for (const QRect& area : cardPaints.areas)
        EXPECT_LT(area.width() * area.height(), card->width() * card->height() / 4) << area.width();

    // The receiver's new place in TzRz, the third block; the others keep theirs.
    EXPECT_EQ(Saved(), ReplacedAt(original, "   -120       0     -55", "   -100       0     -43", 2));
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
}

TEST_F(GeometryCard, ADoubleClickEditsLoopCornersAndBipoleEndsAndCancelKeepsThem)
{
    Open("survey-time-domain.DSC");
    Pick(109);
    std::string title;
    QPoint dialogCentre;
    Kit::OnNextDialog([&](QDialog& dialog) {
        auto& table = static_cast<xGridEdViewWin&>(dialog);
        title = dialog.windowTitle().toStdString();
        dialogCentre = dialog.geometry().center();
        QApplication::setActiveWindow(&dialog);
        QTest::mouseClick(table.View()->Grid()->Cell(0, 0), Qt::LeftButton);   // the first corner's x
        xEditField* field = table.View()->EditField();
        field->selectAll();
        QTest::keyClicks(field, "12");
        table.OkButton()->click();
    });
    DoubleClick(Tx());
    EXPECT_EQ(title, "Edit Loop Corners");
    EXPECT_LE((dialogCentre - Tx()->mapToGlobal(QPoint(25, 25))).manhattanLength(), 4);   // halves of odd sizes round
    EXPECT_TRUE(doc->IsChanged());
    std::string expected = ReplacedAt(original, "      9       0       0", "     12       0       0", 2);

    Kit::OnNextDialog([](QDialog& dialog) {
        auto& table = static_cast<xGridEdViewWin&>(dialog);
        table.View()->EditField()->setFocus();
        QTest::keyClicks(table.View()->EditField(), "77");
        table.CancelButton()->click();
    });
    DoubleClick(Tx());
    // A dipole has nothing to edit.
    DoubleClick(Rx());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(Saved(), expected);

    // A receiver bipole in TzRz of the frequency-domain example.
    Open("survey-frequency-domain.DSC", "moving dipole\nz\n      0       0       1\nXYZ POSITION:\n     -4",
         "moving el. bipole\nz\n      0       0      -1\n      0       0       1\nXYZ POSITION:\n     -4");
    Pick(109);
    EXPECT_TRUE(Same(Rx()->Picture(), Shape::kBipole));
    Kit::OnNextDialog([&](QDialog& dialog) {
        auto& table = static_cast<xGridEdViewWin&>(dialog);
        title = dialog.windowTitle().toStdString();
        table.View()->EditField()->setFocus();
        QTest::keyClick(table.View()->EditField(), Qt::Key_Down);   // the second end's x
        table.View()->EditField()->selectAll();
        QTest::keyClicks(table.View()->EditField(), "3");
        table.OkButton()->click();
    });
    DoubleClick(Rx());
    EXPECT_EQ(title, "Edit Bipole End Points");
    EXPECT_EQ(Saved(), ReplacedAt(original, "      0       0       1\nXYZ POSITION:\n     -4",
                                  "      3       0       1\nXYZ POSITION:\n     -4", 0));

    // A loop that lacks its component: the error, and an empty table.
    Open("survey-frequency-domain.DSC", "moving dipole\nx\n      1       0       0\nXYZ POSITION:\n      4",
         "moving large loop\nXYZ POSITION:\n      4");
    Pick(101);
    int rows = -1;
    Kit::OnNextDialog([&rows](QDialog& dialog) {
        rows = static_cast<xGridEdViewWin&>(dialog).View()->RowCount();
        static_cast<xGridEdViewWin&>(dialog).CancelButton()->click();
    });
    DoubleClick(Tx());
    EXPECT_EQ(rows, 0);
    EXPECT_EQ(platform.Texts(xPlatform::kError), Texts{"xEMGCardd::Failed to extract a loop from xEMGDesc."});
}

TEST_F(GeometryCard, OffsetAndPositionDialogsOpenOnTheCardAndTakeOnlyChanges)
{
    Open("survey-time-domain.DSC");
    Texts shown;
    std::string title;
    QPoint dialogCentre;
    PressWith(3406, [&](xPointEdWin& dialog) {
        title = dialog.windowTitle().toStdString();
        dialogCentre = dialog.geometry().center();
        for (int i = 1; i <= 3; ++i)
            shown.push_back(dialog.Column()->Item(i)->Field()->text().toStdString());
        Kit::TypeInto(*dialog.Column()->Item(3), "-60");
        dialog.OkButton()->click();
    });
    EXPECT_EQ(title, "Edit Rx xyz Offset");
    EXPECT_EQ(shown, (Texts{"-1.2000000e+02", "0.0000000e+00", "-5.5000000e+01"}));
    EXPECT_LE((dialogCentre - card->mapToGlobal(card->rect().center())).manhattanLength(), 4);   // halves of odd sizes round
    EXPECT_EQ(LabelText(20006), "dz : -60");
    EXPECT_EQ(RxOffset(), QPoint(-120, 60));

    // Cancel, or OK on the same three values, changes nothing.
    doc->SetChanged(false);
    PressWith(3406, [](xPointEdWin& dialog) {
        Kit::TypeInto(*dialog.Column()->Item(1), "7");
        dialog.CancelButton()->click();
    });
    PressWith(3406, [](xPointEdWin& dialog) { dialog.OkButton()->click(); });
    EXPECT_FALSE(doc->IsChanged());
    EXPECT_EQ(doc->geometry->rx.x, -120.0f);

    // The transmitter moves and takes the receiver along: the drawing stays.
    PressWith(3407, [&title](xPointEdWin& dialog) {
        title = dialog.windowTitle().toStdString();
        Kit::TypeInto(*dialog.Column()->Item(1), "5");
        dialog.OkButton()->click();
    });
    EXPECT_EQ(title, "Edit Tx xyz Position");
    EXPECT_EQ(RxOffset(), QPoint(-120, 60));
    EXPECT_EQ(LabelText(20004), "dx : -120");
    std::string expected = ReplacedAt(original, "      0       0       0\n____", "      5       0       0\n____", 0);
    EXPECT_EQ(Saved(), ReplacedAt(expected, "   -120       0     -55", "   -115       0     -60", 0));
}

TEST_F(GeometryCard, KindsAndMotionsChosenInTheListsReachEveryOrientationsFile)
{
    Open("survey-frequency-domain.DSC", "RECEIVER GEOMETRY\nmoving dipole\nx", "RECEIVER GEOMETRY\nfixed dipole\nx");
    Pick(109);
    EXPECT_FALSE(card->LoopNote(0)->isVisible());
    Kit::ChooseIn(*card->List(xEMGCard::kRxKindList), "large loop");
    EXPECT_NE(dynamic_cast<xLoopIcon*>(Rx()), nullptr);
    EXPECT_TRUE(card->LoopNote(0)->isVisible() && card->LoopNote(1)->isVisible());
    // The receiver of TxRx is a loop too, around its own component.
    Pick(101);
    EXPECT_EQ(card->List(xEMGCard::kRxKindList)->SelectedText(), "large loop");
    EXPECT_EQ(card->List(xEMGCard::kRxMotionList)->SelectedText(), "fixed");
    Kit::ChooseIn(*card->List(xEMGCard::kRxMotionList), "moving");

    std::string expected = ReplacedAt(original, "fixed dipole\nx\n      1       0       0\n",
                                      "moving large loop\nx\n4\n      0       5       5\n      0       5      -5\n"
                                      "      0      -5      -5\n      0       5      -5\n",
                                      0);
    expected = ReplacedAt(expected, "RECEIVER GEOMETRY\nmoving dipole\nz\n      0       0       1\n",
                          "RECEIVER GEOMETRY\nmoving large loop\nz\n4\n      5       5       0\n     -5       5       0\n"
                          "     -5      -5       0\n      5      -5       0\n",
                          0);
    EXPECT_EQ(Saved(), expected);
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
}

TEST_F(GeometryCard, PromptsAndTheCursorLabelsFollowTheMouse)
{
    Open("survey-time-domain.DSC");
    Kit::MoveMouse(*card, card->Drawing()->pos() + Tx()->Centre() + QPoint(20, -20));
    EXPECT_EQ(PanelLine(), "Transmitter.");
    const Logic::Place origin = card->Logic().Origin();
    Kit::MoveMouse(*card, card->Drawing()->pos() + QPoint(static_cast<int>(origin.x) + 30, static_cast<int>(origin.y) + 40));
    EXPECT_EQ(PanelLine(), "");
    EXPECT_EQ(LabelText(20002) + "|" + LabelText(20003), "x : 30|z : -40");

    // Over the controls, whose moves reach the card.
    const std::pair<QWidget*, const char*> prompts[] = {{card->Button(3404), "Horizontal / Vertical view."},
                                                        {card->Button(3407), "Transmitter position."},
                                                        {card->Label(20003), "Current cursor position."},
                                                        {card->Label(20005), "Receiver offset."}};
    for (const auto& [control, prompt] : prompts) {
        Kit::MoveMouse(*control, QPoint(2, 2));
        EXPECT_EQ(PanelLine(), prompt);
    }
    EXPECT_EQ(doc->DescWindow()->PromptLine(1)->text().toStdString(),
              "Display of current Rx offset relative to transmitter (in meters).");
}

TEST_F(GeometryCard, EveryExampleShowsWholeInBothViews)
{
    for (const char* example : {"survey-time-domain.DSC", "survey-frequency-domain.DSC", "survey-version7.DSC"}) {
        Open(example);
        std::vector<int> codes;
        for (const auto& item : doc->items)
            codes.push_back(item.second->code);
        for (int code : codes) {
            Pick(code);
            for (int view = 0; view < 2; ++view) {
                Texts clipped = Kit::ClippedTexts(*doc->DescWindow());
                EXPECT_TRUE(clipped.empty()) << example << " " << code << ": " << clipped.front();
                // Both icons stand inside the drawing.
                EXPECT_TRUE(card->Drawing()->rect().contains(Rx()->geometry())) << example << " " << code;
                QTest::mouseClick(card->Button(3404), Qt::LeftButton);
            }
        }
    }
    EXPECT_TRUE(platform.messages.empty()) << platform.Transcript();
}

TEST_F(GeometryCard, ADescriptorWithoutRecordsDrawsNothingUntilAnOrientationComes)
{
    xTempDirectory::Write(dir / "none.DSC", "FILE FORMAT VERSION\n7\nNUMBER OF SYSTEM BLOCKS\n0\n");
    doc = Kit::OpenWindow(dir / "none.DSC");
    ASSERT_EQ(doc->geometry, nullptr);
    card = static_cast<xEMGCard*>(doc->DescWindow()->FindCard(xEMEditDesc::kGeometryCard));
    ASSERT_NE(card, nullptr);
    EXPECT_EQ(Tx(), nullptr);
    EXPECT_FALSE(card->List(xEMGCard::kRxKindList)->isEnabled());
    EXPECT_FALSE(card->Button(3406)->isEnabled());
    EXPECT_EQ(LabelText(20004), "dx : 0");

    auto* system = static_cast<xEMSysCard*>(doc->DescWindow()->FindCard(xEMEditDesc::kSystemCard));
    QTest::mouseClick(system->OrientationBox(103), Qt::LeftButton);
    Kit::Settle();
    ASSERT_NE(Rx(), nullptr);
    EXPECT_EQ(card->Selector()->Code(), 103);
    EXPECT_EQ(RxOffset(), QPoint(-100, 50));
    EXPECT_TRUE(card->Button(3406)->isEnabled());
}
