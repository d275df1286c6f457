#include "gui/xRecordingPlatform.h"
#include "numeric/FloatMatrix.h"
#include "widgets/x2DGLine.h"
#include "widgets/x2DGPlot.h"
#include "widgets/xDependentSeries.h"
#include "widgets/xEditField.h"
#include "widgets/xFltGrd.h"
#include "widgets/xGridEdView.h"
#include "xCommandRecorder.h"

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QStyle>
#include <QWheelEvent>
#include <QTest>

#include <gtest/gtest.h>

namespace {

FloatMatrix Column2(int rows)
{
    FloatMatrix m(1, rows, 1, 2);
    for (int r = 1; r <= rows; ++r) {
        *m.Element(r, 1) = static_cast<float>(r);
        *m.Element(r, 2) = static_cast<float>(r) * 10.0f;
    }
    return m;
}

struct SeriesCount : xDependentSeries {
    int clears = 0, rows = 0;
    void SetData(const FloatMatrix& t) override { rows = t.Rows(); }
    void ComputePixels() override {}
    void Clear() override { ++clears; }
    void InvalidateArea() override {}
};

struct Grids : ::testing::Test {
    xRecordingPlatform platform;
    xCommandRecorder card;
    xGridEdView* view = nullptr;
    FloatMatrix table;

    // A view of two columns holding the first rows of Column2.
    void Build(int visibleRows, int capacityRows, int tableRows)
    {
        view = new xGridEdView(&card, QRect(10, 10, 300, 360), visibleRows, 2, capacityRows, 2);
        view->SetId(5000);
        table = Column2(tableRows);
        view->SetTable(&table, true);
        card.show();
        QApplication::setActiveWindow(&card);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&card));
    }
    xFltGrd* Grid() const { return view->Grid(); }
    std::string Cell(int r, int c) const { return Grid()->CellText(r, c); }
    std::string Field() const { return view->EditField()->text().toStdString(); }
    QColor Background(int r, int c) const { return Grid()->Cell(r, c)->palette().color(QPalette::Window); }
    void Focus()
    {
        view->EditField()->setFocus();
        QApplication::processEvents();
    }
    void Key(int key, Qt::KeyboardModifiers mods = Qt::NoModifier)
    {
        QTest::keyClick(view->EditField(), static_cast<Qt::Key>(key), mods);
    }
    void Type(const char* text)
    {
        view->EditField()->selectAll();
        QTest::keyClicks(view->EditField(), text);
    }
    int Count(long command) const
    {
        int n = 0;
        for (long c : card.Commands())
            n += c == command;
        return n;
    }
};

} // namespace

TEST_F(Grids, HoldFieldsOnlyForTheVisibleCellsAndFeedThePlottedLine)
{
    Build(13, 2250, 2250);
    EXPECT_EQ(Grid()->findChildren<QLabel*>().size(), 26);
    EXPECT_EQ(view->RowCount(), 2250);
    EXPECT_EQ(Grid()->VerticalBar()->maximum(), 2250 - 13);
    EXPECT_EQ(Grid()->HorizontalBar()->maximum(), 0);

    x2DGPlot port(nullptr, x2DGRect{0, 0, 600, 300}, 0, 0);
    auto* line = new x2DGLine(&port);
    view->SetDependentPort(line);
    table = Column2(3);
    view->SetTable(&table, true);
    EXPECT_EQ(line->PixelCount(), 3);
    view->SetTable(nullptr, true);
    EXPECT_EQ(line->PixelCount(), 0);
}

TEST_F(Grids, ShowShortNumbersAndOfferTheFirstEmptyRow)
{
    Build(5, 10, 3);
    SeriesCount series;
    view->SetDependentPort(&series);
    *table.Element(2, 2) = 1234.5f;
    view->SetTable(&table, true);
    EXPECT_EQ(Cell(1, 1), "1.23e+03");
    EXPECT_EQ(Cell(3, 0), "");
    EXPECT_EQ(Background(3, 1), QColor(Qt::white));   // the first empty row
    EXPECT_EQ(Background(4, 0), QColor(192, 192, 192));
    EXPECT_EQ(series.rows, 3);

    FloatMatrix empty(0, 0, 0, 1);
    view->SetTable(nullptr, true);
    view->GetTable(empty);
    EXPECT_EQ(empty.Rows(), 1);   // an empty grid reads as one row
    EXPECT_EQ(series.clears, 1);
    EXPECT_EQ(Background(0, 0), QColor(Qt::white));
    EXPECT_EQ(Background(1, 0), QColor(192, 192, 192));
}

TEST_F(Grids, EditInTheFieldAndStoreOnLeavingTheCell)
{
    Build(5, 10, 3);
    Focus();
    EXPECT_EQ(Field(), "1.0000000e+00");
    EXPECT_EQ(view->PositionLabel()->text(), "1,1");
    Type("2.5");
    Key(Qt::Key_Return);
    EXPECT_EQ(Cell(0, 0), "2.50e+00");
    EXPECT_EQ(view->PositionLabel()->text(), "2,1");
    Key(Qt::Key_Tab);
    EXPECT_EQ(view->PositionLabel()->text(), "2,2");
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
    EXPECT_EQ(view->RowCount(), 4);
    EXPECT_EQ(Background(4, 0), QColor(Qt::white));

    // Clearing a cell hides the rows below it from the table, not from the grid.
    view->Grid()->SetEditCell(1, 0, true);
    Type("");
    view->EditField()->clear();
    Key(Qt::Key_Up);
    EXPECT_EQ(Count(9400), 2);
    EXPECT_EQ(view->RowCount(), 1);
    EXPECT_EQ(Cell(2, 0), "3.00e+00");
    FloatMatrix back(0, 0, 0, 1);
    view->GetTable(back);
    EXPECT_EQ(back.Rows(), 1);
    EXPECT_EQ(back.Row(0)[0], 2.5f);
    EXPECT_EQ(Background(2, 0), QColor(192, 192, 192));
}

TEST_F(Grids, ControlKeysOnlyShowTheirNotes)
{
    Build(5, 10, 3);
    Focus();
    Key(Qt::Key_X, Qt::ControlModifier);
    Key(Qt::Key_I, Qt::ControlModifier);
    EXPECT_EQ(platform.Texts(xPlatform::kNote),
              (std::vector<std::string>{"Row deletion not implemented yet.", "Row insertion not implemented yet."}));
    EXPECT_EQ(Field(), "1.0000000e+00");
    Key(Qt::Key_Down);
    Key(Qt::Key_Tab);
    FloatMatrix back(1, 1, 1, 2);
    view->GetTable(back);
    EXPECT_EQ(back, Column2(3));

    // The focus goes away (a message box, another control) and comes back:
    // the edit resumes at the cell it left.
    QLineEdit elsewhere(&card);
    elsewhere.show();
    elsewhere.setFocus();
    QApplication::processEvents();
    EXPECT_EQ(view->PositionLabel()->text(), "");
    Focus();
    EXPECT_EQ(view->PositionLabel()->text(), "2,2");
    EXPECT_EQ(Field(), "2.0000000e+01");
}

TEST_F(Grids, KeysScrollAtTheEdgesAndBeepAtTheTableEnd)
{
    Build(3, 5, 5);
    Focus();
    Key(Qt::Key_Down);
    Key(Qt::Key_Down);
    EXPECT_EQ(Count(3333), 0);
    Key(Qt::Key_Down);   // scrolls one row
    EXPECT_EQ(Grid()->ScrollOrigin(), QPoint(0, 1));
    EXPECT_EQ(*static_cast<QPoint*>(card.DataOf(3333)), QPoint(0, 1));
    EXPECT_EQ(Grid()->VerticalBar()->value(), 1);
    EXPECT_EQ(Cell(0, 0), "2.00e+00");
    EXPECT_EQ(view->PositionLabel()->text(), "4,1");
    Key(Qt::Key_Down);
    Key(Qt::Key_Tab);
    EXPECT_EQ(view->PositionLabel()->text(), "5,2");
    Key(Qt::Key_Tab);   // the last cell: stays, quietly
    EXPECT_EQ(view->PositionLabel()->text(), "5,2");
    EXPECT_EQ(platform.beeps, 0);
    Key(Qt::Key_Return);
    EXPECT_EQ(platform.beeps, 1);
    EXPECT_EQ(view->PositionLabel()->text(), "5,2");
    // The table is untouched by the visits.
    FloatMatrix back(1, 1, 1, 2);
    view->GetTable(back);
    EXPECT_EQ(back, Column2(5));
}

TEST_F(Grids, BarsAndClicksMoveTheEdit)
{
    Build(3, 20, 20);
    Grid()->VerticalBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_EQ(Grid()->ScrollOrigin(), QPoint(0, 3));
    Grid()->Scroll(Qt::Vertical, xTxtGrd::kThumb, 99);   // clamped to rows - visible
    EXPECT_EQ(Grid()->ScrollOrigin(), QPoint(0, 17));
    EXPECT_EQ(Cell(2, 1), "2.00e+02");
    Grid()->Scroll(Qt::Vertical, xTxtGrd::kLineBack);
    EXPECT_EQ(Grid()->VerticalBar()->value(), 16);

    // A click on a cell of the inactive grid takes the focus and edits that cell.
    QLabel* cell = Grid()->Cell(1, 1);
    QTest::mouseClick(Grid(), Qt::LeftButton, Qt::NoModifier, cell->geometry().center());
    EXPECT_TRUE(view->EditField()->hasFocus());
    EXPECT_EQ(view->PositionLabel()->text(), "18,2");
    EXPECT_EQ(Field(), "1.8000000e+02");
    EXPECT_EQ(Grid()->EditFrame()->geometry(), cell->geometry().adjusted(-1, -1, 1, 1));   // over its lines
}

TEST_F(Grids, OneLineBetweenCellsAndTheEditedCellInTheHighlight)
{
    Build(5, 10, 3);
    Focus();
    Key(Qt::Key_Tab);   // the edit on (0, 1)
    QApplication::processEvents();
    const QImage shot = Grid()->grab().toImage();
    const qreal scale = shot.devicePixelRatio();
    // Across the row of the first cells, from the middle of one cell to the
    // middle of the next: the one line between them and nothing else.
    const QRect first = Grid()->Cell(1, 0)->geometry(), second = Grid()->Cell(1, 1)->geometry();
    const int y = qRound(first.center().y() * scale);
    int lineWidth = 0;
    QColor line;
    for (int x = qRound(first.right() * scale) - 2; x <= qRound(second.left() * scale) + 2; ++x)
        if (shot.pixelColor(x, y) != QColor(Qt::white)) {
            ++lineWidth;
            line = shot.pixelColor(x, y);
        }
    EXPECT_EQ(lineWidth, qRound(scale));
    EXPECT_GT(line.lightness(), 100);   // the style's grid line, not a black box
    EXPECT_EQ(Grid()->Cell(1, 0)->frameShape(), QFrame::NoFrame);
    // The edited cell's frame is drawn in the style's highlight.
    const QRect edit = Grid()->EditFrame()->geometry();
    EXPECT_EQ(shot.pixelColor(qRound((edit.left() + 1) * scale), qRound(edit.center().y() * scale)),
              Grid()->palette().color(QPalette::Active, QPalette::Highlight));
}

TEST_F(Grids, BarsShowOnlyWhenNeededInTheStylesSizeAndLabelsFollowResizes)
{
    Build(5, 10, 3);
    EXPECT_FALSE(Grid()->HorizontalBar()->isVisible());   // both columns fit
    EXPECT_TRUE(Grid()->VerticalBar()->isVisible());
    EXPECT_EQ(Grid()->VerticalBar()->width(),
              Grid()->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, Grid()));
    EXPECT_GT(Grid()->Cell(4, 1)->geometry().bottom(), Grid()->height() - 8);   // the rows take the bar's room

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

TEST_F(Grids, LoadingATableWhileScrolledColoursItsRowsFromTheTop)
{
    Build(5, 20, 20);
    Grid()->ScrollTo(QPoint(0, 10));
    table = Column2(3);
    view->SetTable(&table, true);
    EXPECT_EQ(Grid()->ScrollOrigin(), QPoint(0, 0));
    EXPECT_EQ(Background(1, 0), QColor(Qt::white));
    EXPECT_EQ(Background(3, 0), QColor(Qt::white));   // the first empty row
    EXPECT_EQ(Background(4, 0), QColor(192, 192, 192));
}

TEST_F(Grids, TheWheelAndThePageAndEndKeysMoveAsInATableView)
{
    Build(3, 20, 20);
    QWheelEvent down(QPointF(20, 30), Grid()->mapToGlobal(QPointF(20, 30)), QPoint(), QPoint(0, -120),
                     Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(Grid(), &down);
    EXPECT_EQ(Grid()->ScrollOrigin(), QPoint(0, QApplication::wheelScrollLines()));
    EXPECT_EQ(Grid()->VerticalBar()->value(), QApplication::wheelScrollLines());
    Grid()->ScrollTo(QPoint(0, 0));

    Focus();
    Key(Qt::Key_PageDown);
    EXPECT_EQ(view->PositionLabel()->text(), "4,1");
    EXPECT_EQ(Grid()->ScrollOrigin(), QPoint(0, 3));
    Key(Qt::Key_End);
    EXPECT_EQ(view->PositionLabel()->text(), "4,2");
    Key(Qt::Key_Home);
    EXPECT_EQ(view->PositionLabel()->text(), "4,1");
    Key(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(view->PositionLabel()->text(), "20,2");
    Key(Qt::Key_PageUp);
    EXPECT_EQ(view->PositionLabel()->text(), "17,2");
    Key(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(view->PositionLabel()->text(), "1,1");
    EXPECT_EQ(Grid()->ScrollOrigin(), QPoint(0, 0));
    EXPECT_EQ(platform.beeps, 0);
}

TEST_F(Grids, AnEditFromAnEmptyCellKeepsTheFieldSoReturnCopiesDown)
{
    Build(6, 10, 3);
    Focus();
    Key(Qt::Key_Down);
    Key(Qt::Key_Down);
    Key(Qt::Key_Down);   // the first empty row
    Type("9");
    Key(Qt::Key_Return);
    EXPECT_EQ(Field(), "9");
    Key(Qt::Key_Return);
    EXPECT_EQ(Cell(3, 0), "9.00e+00");
    EXPECT_EQ(Cell(4, 0), "9.00e+00");
    // A cell with a number shows its own.
    Key(Qt::Key_Up);
    EXPECT_EQ(Field(), "9.0000000e+00");
}

TEST(TextGrid, ColumnLabelsFollowTheOriginAndRowLabelsWarn)
{
    xRecordingPlatform platform;
    xCommandRecorder card;
    FloatMatrix records(0, 1, 0, 11);
    *records.Element(1, 11) = 7.0f;
    {
        xTxtGrd grid(&card, QRect(0, 0, 400, 80), 2, 8, true, true, &records);
        ASSERT_EQ(grid.ColumnLabels().size(), 8u);
        EXPECT_EQ(grid.ColumnLabels()[0]->text(), "1");
        grid.ScrollTo(QPoint(4, 0));
        EXPECT_EQ(grid.ColumnLabels()[0]->text(), "5");
        EXPECT_EQ(grid.CellText(1, 7), "7.00e+00");
        EXPECT_EQ(card.Commands(), std::vector<long>{3333});
        grid.ScrollTo(QPoint(9, 5));   // clamped: 12 columns, 8 visible, 2 rows
        EXPECT_EQ(grid.ScrollOrigin(), QPoint(4, 0));
        EXPECT_EQ(card.Commands().size(), 1u);
    }
    EXPECT_EQ(platform.Texts(xPlatform::kWarning),
              (std::vector<std::string>{"xTxtGrd::BuildLabels() row labelling not implemented yet.",
                                        "xTxtGrd::ScrollLabels() row labelling not implemented yet.",
                                        "xTxtGrd::DeleteLabels() row labelling not implemented yet."}));
}
