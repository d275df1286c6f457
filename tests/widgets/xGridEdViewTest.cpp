#include "gui/xRecordingPlatform.h"
#include "widgets/x2DGLine.h"
#include "widgets/x2DGPlot.h"
#include "widgets/xEditField.h"
#include "widgets/xFltGrd.h"
#include "widgets/xGridEdView.h"
#include "xCommandRecorder.h"

#include <QApplication>
#include <QLabel>
#include <QScrollBar>
#include <QStyle>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace {

const QColor kWhite(Qt::white), kGrey(192, 192, 192);

FloatMatrix Column2(int rows)
{
    FloatMatrix m(1, rows, 1, 2);
    for (int r = 1; r <= rows; ++r) {
        *m.Element(r, 1) = static_cast<float>(r);
        *m.Element(r, 2) = static_cast<float>(r) * 10.0f;
    }
    return m;
}

struct Grids : ::testing::Test {
    xRecordingPlatform platform;
    xCommandRecorder card;
    xGridEdView* view = nullptr;
    FloatMatrix table;

    // A view of two columns holding the first rows of Column2, the edit on.
    void Build(int visibleRows, int capacityRows, int tableRows)
    {
        view = new xGridEdView(&card, QRect(10, 10, 300, 360), visibleRows, 2, capacityRows, 2);
        view->SetId(5000);
        table = Column2(tableRows);
        view->SetTable(&table, true);
        card.show();
        QApplication::setActiveWindow(&card);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&card));
        view->EditField()->setFocus();
        QApplication::processEvents();
    }
    xFltGrd* Grid() const { return view->Grid(); }
    std::string Cell(int r, int c) const { return Grid()->CellText(r, c); }
    std::string Field() const { return view->EditField()->text().toStdString(); }
    std::string At() const { return view->PositionLabel()->text().toStdString(); }
    QColor Background(int r, int c) const { return Grid()->Cell(r, c)->palette().color(QPalette::Window); }
    void Key(int key, Qt::KeyboardModifiers mods = Qt::NoModifier)
    {
        QTest::keyClick(view->EditField(), static_cast<Qt::Key>(key), mods);
    }
    void Type(const char* text)
    {
        view->EditField()->selectAll();
        QTest::keyClicks(view->EditField(), text);
    }
    long Count(long command) const
    {
        const std::vector<long> all = card.Commands();
        return std::count(all.begin(), all.end(), command);
    }
};

} // namespace

TEST_F(Grids, HoldFieldsOnlyForTheVisibleCellsShowShortNumbersAndFeedThePlottedLine)
{
    Build(13, 2250, 2250);
    EXPECT_EQ(Grid()->findChildren<QLabel*>().size(), 26);
    EXPECT_EQ(Grid()->VerticalBar()->maximum(), 2250 - 13);

    // Loaded while scrolled: the rows are coloured from the top.
    Grid()->ScrollTo(QPoint(0, 10));
    x2DGPlot port(nullptr, x2DGRect{0, 0, 600, 300}, 0, 0);
    auto* line = new x2DGLine(&port);
    view->SetDependentPort(line);
    table = Column2(3);
    *table.Element(2, 2) = 1234.5f;
    view->SetTable(&table, true);
    EXPECT_EQ(line->PixelCount(), 3);
    EXPECT_EQ(Grid()->ScrollOrigin(), QPoint(0, 0));
    EXPECT_EQ(Cell(1, 1), "1.23e+03");
    EXPECT_EQ(Background(3, 1), kWhite);   // the first empty row
    EXPECT_EQ(Background(4, 0), kGrey);

    view->SetTable(nullptr, true);
    EXPECT_EQ(line->PixelCount(), 0);
    FloatMatrix empty(0, 0, 0, 1);
    view->GetTable(empty);
    EXPECT_EQ(empty.Rows(), 1);   // an empty grid reads as one row
    EXPECT_EQ(Background(1, 0), kGrey);
}

TEST_F(Grids, EditInTheFieldAndStoreOnLeavingTheCell)
{
    Build(8, 10, 3);
    EXPECT_EQ(Field(), "1.0000000e+00");
    EXPECT_EQ(At(), "1,1");
    Type("2.5");
    Key(Qt::Key_Return);
    EXPECT_EQ(Cell(0, 0), "2.50e+00");
    Key(Qt::Key_Tab);
    EXPECT_EQ(At(), "2,2");
    Type("letters");
    Key(Qt::Key_Left);
    EXPECT_EQ(Cell(1, 1), "0.00e+00");   // no number: 0
    EXPECT_EQ(Count(9400), 0);            // inside the rows in use: no row message

    // Filling the first empty row grows the table and tells the card.
    Key(Qt::Key_Down);
    Key(Qt::Key_Down);
    Type("4");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Count(9400), 0);
    Type("40");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Count(9400), 1);
    EXPECT_EQ(card.DataOf(9400), view);
    EXPECT_EQ(Background(4, 0), kWhite);

    // An edit from an empty cell keeps the field, so Return copies down; a
    // cell with a number shows its own.
    Type("9");
    Key(Qt::Key_Return);
    EXPECT_EQ(Field(), "9");
    Key(Qt::Key_Return);
    EXPECT_EQ(Cell(4, 0), "9.00e+00");
    EXPECT_EQ(Cell(5, 0), "9.00e+00");
    Key(Qt::Key_Up);
    EXPECT_EQ(Field(), "9.0000000e+00");

    // Clearing a cell hides the rows below it from the table, not from the grid.
    view->Grid()->SetEditCell(1, 0, true);
    view->EditField()->clear();
    Key(Qt::Key_Up);
    EXPECT_EQ(view->RowCount(), 1);
    EXPECT_EQ(Cell(2, 0), "3.00e+00");
    EXPECT_EQ(Background(2, 0), kGrey);
}

TEST_F(Grids, KeysScrollAtTheEdgesBeepAtTheTableEndAndTheEditResumesWhereItLeft)
{
    Build(3, 5, 5);
    Key(Qt::Key_X, Qt::ControlModifier);   // control keys only show their notes
    Key(Qt::Key_I, Qt::ControlModifier);
    EXPECT_EQ(platform.Texts(xPlatform::kNote),
              (std::vector<std::string>{"Row deletion not implemented yet.", "Row insertion not implemented yet."}));
    Key(Qt::Key_Down);
    Key(Qt::Key_Down);
    EXPECT_EQ(Count(3333), 0);
    Key(Qt::Key_Down);   // scrolls one row
    EXPECT_EQ(*static_cast<QPoint*>(card.DataOf(3333)), QPoint(0, 1));
    EXPECT_EQ(Cell(0, 0), "2.00e+00");
    EXPECT_EQ(At(), "4,1");
    Key(Qt::Key_Down);
    Key(Qt::Key_Tab);
    Key(Qt::Key_Tab);   // the last cell: stays, quietly
    EXPECT_EQ(At(), "5,2");
    EXPECT_EQ(platform.beeps, 0);
    Key(Qt::Key_Return);
    EXPECT_EQ(platform.beeps, 1);
    FloatMatrix back(1, 1, 1, 2);   // untouched by the visits
    view->GetTable(back);
    EXPECT_EQ(back, Column2(5));

    // The focus goes away (a message box, another control) and comes back.
    QLineEdit elsewhere(&card);
    elsewhere.show();
    elsewhere.setFocus();
    QApplication::processEvents();
    EXPECT_EQ(At(), "");
    view->EditField()->setFocus();
    QApplication::processEvents();
    EXPECT_EQ(At(), "5,2");
    EXPECT_EQ(Field(), "5.0000000e+01");
}

TEST_F(Grids, BarsWheelClicksAndPageKeysMoveAsInATableView)
{
    Build(3, 20, 20);
    QWheelEvent down(QPointF(20, 30), Grid()->mapToGlobal(QPointF(20, 30)), QPoint(), QPoint(0, -120),
                     Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(Grid(), &down);
    EXPECT_EQ(Grid()->VerticalBar()->value(), QApplication::wheelScrollLines());
    Grid()->ScrollTo(QPoint(0, 0));

    Key(Qt::Key_PageDown);
    EXPECT_EQ(At(), "4,1");
    EXPECT_EQ(Grid()->ScrollOrigin(), QPoint(0, 3));
    Key(Qt::Key_End);
    EXPECT_EQ(At(), "4,2");
    Key(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(At(), "20,2");
    Key(Qt::Key_PageUp);
    EXPECT_EQ(At(), "17,2");
    Key(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(At(), "1,1");
    EXPECT_EQ(Grid()->ScrollOrigin(), QPoint(0, 0));

    view->EditField()->clearFocus();
    Grid()->VerticalBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_EQ(Grid()->ScrollOrigin(), QPoint(0, 3));
    Grid()->Scroll(Qt::Vertical, xTxtGrd::kThumb, 99);   // clamped to rows - visible
    Grid()->Scroll(Qt::Vertical, xTxtGrd::kLineBack);
    EXPECT_EQ(Grid()->VerticalBar()->value(), 16);
    EXPECT_EQ(Cell(2, 1), "1.90e+02");

    // A click on a cell of the inactive grid takes the focus and edits that cell.
    QLabel* cell = Grid()->Cell(1, 1);
    QTest::mouseClick(Grid(), Qt::LeftButton, Qt::NoModifier, cell->geometry().center());
    EXPECT_EQ(At(), "18,2");
    EXPECT_EQ(Field(), "1.8000000e+02");
    EXPECT_EQ(Grid()->EditFrame()->geometry(), cell->geometry().adjusted(-1, -1, 1, 1));   // over its lines
}

TEST_F(Grids, OneLineBetweenCellsTheEditInTheHighlightAndBarsOnlyWhenNeeded)
{
    Build(5, 10, 3);
    Key(Qt::Key_Tab);   // the edit on (0, 1)
    QApplication::processEvents();
    const QImage shot = Grid()->grab().toImage();
    const qreal scale = shot.devicePixelRatio();
    // From the middle of one cell to the middle of the next: the one line
    // between them, in the style's grid colour, and nothing else.
    const QRect first = Grid()->Cell(1, 0)->geometry(), second = Grid()->Cell(1, 1)->geometry();
    const int y = qRound(first.center().y() * scale);
    int lineWidth = 0;
    for (int x = qRound(first.right() * scale) - 2; x <= qRound(second.left() * scale) + 2; ++x)
        if (shot.pixelColor(x, y) != kWhite) {
            ++lineWidth;
            EXPECT_GT(shot.pixelColor(x, y).lightness(), 100);
        }
    EXPECT_EQ(lineWidth, qRound(scale));
    const QRect edit = Grid()->EditFrame()->geometry();
    EXPECT_EQ(shot.pixelColor(qRound((edit.left() + 1) * scale), qRound(edit.center().y() * scale)),
              Grid()->palette().color(QPalette::Active, QPalette::Highlight));

    EXPECT_FALSE(Grid()->HorizontalBar()->isVisible());   // both columns fit, the rows take its room
    EXPECT_EQ(Grid()->VerticalBar()->width(),
              Grid()->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, Grid()));
    EXPECT_GT(Grid()->Cell(4, 1)->geometry().bottom(), Grid()->height() - 8);
    FloatMatrix four(1, 5, 1, 4);
    xTxtGrd wide(&card, QRect(0, 0, 300, 120), 3, 2, true, false, &four);
    wide.AddScrollBars();
    wide.show();
    EXPECT_TRUE(wide.HorizontalBar()->isVisible());   // four columns, two in view
    // The labels are as tall as the font needs, and widen with the grid.
    const int before = wide.ColumnLabels()[1]->width();
    EXPECT_GE(wide.ColumnLabels()[0]->height(), wide.ColumnLabels()[0]->fontMetrics().height());
    wide.resize(500, 120);
    EXPECT_GT(wide.ColumnLabels()[1]->width(), before);
    EXPECT_EQ(wide.ColumnLabels()[1]->x(), wide.Cell(0, 1)->x() - 1);
}

TEST(TextGrid, ColumnLabelsFollowTheOriginAndRowLabelsWarn)
{
    xRecordingPlatform platform;
    xCommandRecorder card;
    FloatMatrix records(0, 1, 0, 11);
    *records.Element(1, 11) = 7.0f;
    {
        xTxtGrd grid(&card, QRect(0, 0, 400, 80), 2, 8, true, true, &records);
        grid.ScrollTo(QPoint(4, 0));
        EXPECT_EQ(grid.ColumnLabels()[0]->text(), "5");
        EXPECT_EQ(grid.CellText(1, 7), "7.00e+00");
        grid.ScrollTo(QPoint(9, 5));   // clamped: 12 columns, 8 visible, 2 rows
        EXPECT_EQ(grid.ScrollOrigin(), QPoint(4, 0));
        EXPECT_EQ(card.Commands(), std::vector<long>{3333});
    }
    EXPECT_EQ(platform.Texts(xPlatform::kWarning),
              (std::vector<std::string>{"xTxtGrd::BuildLabels() row labelling not implemented yet.",
                                        "xTxtGrd::ScrollLabels() row labelling not implemented yet.",
                                        "xTxtGrd::DeleteLabels() row labelling not implemented yet."}));
}
