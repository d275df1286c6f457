#include "cards/xEMTableCard.h"

#include "app/xQtMenuBar.h"
#include "cards/xTROrientationSelector.h"
#include "frame/xDWin.h"
#include "frame/xEMEditDesc.h"
#include "gui/xPlatform.h"
#include "model/xTRClasf.h"
#include "widgets/xFltGrd.h"
#include "widgets/xGridEdView.h"
#include "widgets/xGridEdViewWin.h"
#include "widgets/xModalEdWin.h"
#include "widgets/xVectorEdWin.h"

#include <QCheckBox>
#include <QClipboard>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QPushButton>

#include <algorithm>

namespace {

// The strip above a grid's cells (position and edit field) and its scroll bar.
constexpr int kGridStrip = 25;
constexpr int kGridBar = 16;
// What the strip gives its position label and the edit field beside it.
constexpr int kStripLabel = 66;
// The widest texts a cell and the edit field show.
const char* const kWidestCell = "-8.88e-88";
const char* const kWidestEdit = "-8.8888888e-88";

// A grid on the card as the logic reaches it.
class ViewTable : public xEMTableCardLogic::Grid {
public:
    explicit ViewTable(xGridEdView* view) : view(view) {}
    void GetTable(FloatMatrix& matrix) const override { view->GetTable(matrix); }
    void SetTable(const FloatMatrix& table, bool redraw) override { view->SetTable(&table, redraw); }
    int RowCount() const override { return view->RowCount(); }

private:
    xGridEdView* view;
};

} // namespace

xEMTableCard::xEMTableCard(xDWin* window, const QRect& frame) : xCard(window, frame)
{
    // The pastes and the viewer follow the clipboard while the card is on top,
    // whoever puts text there.
    QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, [this] {
        if (Window() && Window()->IsSelected(this))
            UpdateMenu(Window()->MenuBar());
    });
}

xEMTableCard::~xEMTableCard() = default;

int xEMTableCard::LineHeight() const
{
    return QFontMetrics(font()).height();
}

int xEMTableCard::TextWidth(const char* text) const
{
    return QFontMetrics(font()).horizontalAdvance(QString::fromUtf8(text));
}

int xEMTableCard::CellWidth() const
{
    return std::max(64, TextWidth(kWidestCell) + 14);
}

int xEMTableCard::GridWidth(int columns) const
{
    return std::max(columns * CellWidth() + kGridBar, kStripLabel + TextWidth(kWidestEdit) + 14);
}

int xEMTableCard::GridHeight(int rows) const
{
    return kGridStrip + rows * (LineHeight() + 6) + kGridBar;
}

QSize xEMTableCard::SelectorSize() const
{
    xTROrientationSelector probe(nullptr, xTRClasf());
    probe.setFont(font());
    return probe.sizeHint();
}

int xEMTableCard::ButtonHeight() const
{
    QPushButton probe(QStringLiteral("X"));
    probe.setFont(font());
    return std::max(probe.sizeHint().height(), LineHeight() + 10);
}

xGridEdView* xEMTableCard::AddGrid(long id, const QRect& frame, int visibleRows, int visibleColumns,
                                   int capacityRows, int capacityColumns, const char* title)
{
    auto* view = new xGridEdView(this, frame, visibleRows, visibleColumns, capacityRows, capacityColumns);
    view->SetId(id);
    view->setWindowTitle(QString::fromUtf8(title));
    view->SetFont(font());
    AddView(id, view);
    tables.push_back(std::make_unique<ViewTable>(view));
    TableLogic().SetGrid(id, tables.back().get());
    return view;
}

QPushButton* xEMTableCard::AddButton(long id, const char* text, long command)
{
    auto* button = new QPushButton(QString::fromUtf8(text), this);
    button->setAutoDefault(false);
    AddView(id, button);
    QObject::connect(button, &QPushButton::clicked, this, [this, command] { DoCommand(command, nullptr); });
    return button;
}

QCheckBox* xEMTableCard::AddCommonBox(const char* subject)
{
    const std::string text = std::string("Make currently selected") + subject;
    auto* box = new QCheckBox(QString::fromStdString(text), this);
    AddView(xEMTableCardLogic::kCommonBox, box);
    QObject::connect(box, &QCheckBox::clicked, this, [box](bool on) {
        xCommandView::Send(box, on ? xEMEditDesc::kCommonOn : xEMEditDesc::kCommonOff, nullptr);
    });
    return box;
}

void xEMTableCard::AddOrientationSelector(const xTRClasf& clasf)
{
    delete View(xEMTableCardLogic::kSelector);
    auto* selector = new xTROrientationSelector(this, clasf);
    selector->setGeometry(QRect(selectorPlace, selector->sizeHint()));
    AddView(xEMTableCardLogic::kSelector, selector);
}

xGridEdView* xEMTableCard::Grid(long id) const
{
    return dynamic_cast<xGridEdView*>(View(id));
}

xTROrientationSelector* xEMTableCard::Selector() const
{
    return dynamic_cast<xTROrientationSelector*>(View(xEMTableCardLogic::kSelector));
}

QCheckBox* xEMTableCard::CommonBox() const
{
    return qobject_cast<QCheckBox*>(View(xEMTableCardLogic::kCommonBox));
}

QPushButton* xEMTableCard::Button(long id) const
{
    return qobject_cast<QPushButton*>(View(id));
}

void xEMTableCard::StoreTypedCells()
{
    for (const xEMTableCardLogic::TableMenu& menu : TableLogic().Menus()) {
        xGridEdView* view = Grid(menu.grid);
        if (!view)
            continue;
        // Leaving the cell and coming back stores it, as a move would.
        const xCellPlace cell = view->Grid()->EditCell();
        if (cell.IsCell())
            view->Grid()->SetEditCell(cell.row, cell.column, true);
    }
}

void xEMTableCard::Deactivate()
{
    // Leaving stores what the user typed, complete or not.
    std::string scratch;
    Apply(scratch);
    xCard::Deactivate();
}

void xEMTableCard::Activate()
{
    xTROrientationSelector* selector = Selector();
    if (!selector) {
        PostFatalExit("xCard::Activate() - orientation selector undefined.");
        return;
    }
    selector->update();
    Load();
    xCard::Activate();
}

void xEMTableCard::BuildMenu(xQtMenuBar& menuBar)
{
    for (const xEMTableCardLogic::TableMenu& menu : TableLogic().Menus()) {
        menuBar.AddMenu(menu.tag, menu.title, xEMTableCardLogic::kEditMenu);
        menuBar.AddEntry(menu.tag, menu.cut, "Cut");
        menuBar.AddEntry(menu.tag, menu.copy, "Copy");
        menuBar.AddEntry(menu.tag, menu.paste, "Paste");
    }
}

void xEMTableCard::UpdateMenu(xQtMenuBar& menuBar)
{
    for (long id : TableLogic().AlwaysEnabledEntries())
        menuBar.Enable(id, true);
    const bool text = Platform().HasClipboardText();
    for (long id : TableLogic().ClipboardEntries())
        menuBar.Enable(id, text);
}

void xEMTableCard::RemoveMenu(xQtMenuBar& menuBar)
{
    for (const xEMTableCardLogic::TableMenu& menu : TableLogic().Menus())
        menuBar.Remove(menu.tag);
}

bool xEMTableCard::DoMenuCommand(long command)
{
    if (command == xEMTableCardLogic::kShowClipboard) {
        ShowClipboard();
        return true;
    }
    StoreTypedCells();
    if (!TableLogic().DoMenuCommand(command))
        return false;
    // A copy puts text on the clipboard: the pastes may now be chosen.
    if (Window())
        UpdateMenu(Window()->MenuBar());
    return true;
}

void xEMTableCard::SetDescriptor(xEMEditDesc& document, int code)
{
    // What the controls hold belongs to the record of the orientation left.
    std::string scratch;
    Apply(scratch);
    TableLogic().SetRecord(document.system);
    Load();
    if (xTROrientationSelector* selector = Selector())
        selector->SetCode(code);
}

void xEMTableCard::OrientationAdded(int code)
{
    if (xTROrientationSelector* selector = Selector())
        selector->AddOrientation(code, 1);
}

void xEMTableCard::OrientationRemoved(int code, int other)
{
    if (xTROrientationSelector* selector = Selector())
        selector->RemoveOrientation(code, other);
}

void xEMTableCard::EnableSelector(bool on)
{
    if (xTROrientationSelector* selector = Selector())
        selector->setEnabled(on);
    if (QCheckBox* box = CommonBox()) {
        const QSignalBlocker quiet(box);
        box->setChecked(!on);
    }
}

void xEMTableCard::DoCommand(long command, void* data)
{
    switch (command) {
    case xEMTableCardLogic::kEditScale:
        EditAmplitudeScale();
        return;
    case xEMTableCardLogic::kEditWeights:
        EditWeights();
        return;
    case xEMTableCardLogic::kRowsChanged:
        if (auto* view = dynamic_cast<xGridEdView*>(static_cast<QWidget*>(data)))
            TableLogic().RowsChanged(view->GetId(), view->RowCount());
        return;
    default:
        xCard::DoCommand(command, data);
    }
}

void xEMTableCard::EditAmplitudeScale()
{
    xEMTableCardLogic& logic = TableLogic();
    if (!logic.Record())
        return;
    FloatArray values = logic.AmplitudeScale();
    xVectorEdWin dialog(this, logic.ScaleTitle(), logic.ScaleWidth());
    dialog.SetUpUserItem(&values, logic.AmplitudeScaleLabels());
    dialog.Run();
    if (!xModalEdWin::Cancelled)
        logic.TakeAmplitudeScale(values);
}

void xEMTableCard::EditWeights()
{
    xEMTableCardLogic& logic = TableLogic();
    if (!logic.Record())
        return;
    FloatMatrix weights = logic.Weights();
    const int n = weights.Rows();
    xGridEdViewWin dialog(this, xEMTableCardLogic::kWeightsTitle);
    dialog.SetCapacity(n, 1);
    dialog.SetVisibleSize(std::min(n, 5), 1);
    dialog.SetUpUserItem(&weights);
    dialog.Run();
    if (!xModalEdWin::Cancelled)
        logic.TakeWeights(weights);
}
