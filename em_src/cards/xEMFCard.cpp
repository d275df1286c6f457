#include "cards/xEMFCard.h"

#include "app/xQtMenuBar.h"
#include "frame/xDWin.h"
#include "frame/xEMWinDesc.h"
#include "frame/xListButton.h"
#include "model/xEMFDesc.h"
#include "widgets/xChoiceEdWin.h"
#include "widgets/xEditBox.h"
#include "widgets/xModalEdWin.h"
#include "widgets/xTextEdWin.h"
#include "widgets/xTxtGrd.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyle>
#include <QStringListModel>

#include <algorithm>
#include <initializer_list>

namespace {

using Logic = xEMFCardLogic;

constexpr int kMargin = 12;
constexpr int kGap = 8;
// Lines of the sample the view shows at a time; it scrolls through the rest.
constexpr int kSampleRows = 8;
const char* const kCommentLabel = "No. of comment lines at the beginning of file";
const char* const kItemLabel = "No. of items per each data record";
// The widest text a count box and a grid cell show.
const char* const kWidestCount = "-2147483648";
const char* const kWidestCell = "-8.88e+88";

int TextWidth(const QFontMetrics& metrics, const char* text)
{
    return metrics.horizontalAdvance(QString::fromUtf8(text));
}

} // namespace

xCard* xEMFCard::Make(xEMWinDesc& document, xDWin& window)
{
    return new xEMFCard(document, &window, window.CardFrame());
}

xEMFCard::xEMFCard(xEMDesc& document, xDWin* window, const QRect& frame)
    : xCard(window, frame), logic(document, this)
{
    logic.ShareStale(stale);
    sampleButton = new QPushButton(QStringLiteral("Open Sample ASCII Data..."), this);
    AddView(Logic::kSampleButton, sampleButton);
    QObject::connect(sampleButton, &QPushButton::clicked, this, [this] { DoCommand(sampleCommand, sampleButton); });
    PlaceControls();
}

xEMFCard::~xEMFCard()
{
    DestroyGrid();
}

xEditBox* xEMFCard::Box(long id) const
{
    return dynamic_cast<xEditBox*>(View(id));
}

QCheckBox* xEMFCard::Toggle(long id) const
{
    return qobject_cast<QCheckBox*>(View(id));
}

xListButton* xEMFCard::List(int index) const
{
    return index >= 0 && index < ListCount() ? lists[static_cast<size_t>(index)] : nullptr;
}

void xEMFCard::BuildControls()
{
    if (!sampleView) {
        sampleView = new QPlainTextEdit(this);
        sampleView->setReadOnly(true);
        sampleView->setLineWrapMode(QPlainTextEdit::NoWrap);
        sampleView->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        AddView(Logic::kSampleView, sampleView);

        QFontMetrics metrics(font());
        const int labelWidth = std::max(TextWidth(metrics, kCommentLabel), TextWidth(metrics, kItemLabel)) + 12;
        const int fieldWidth = std::max(60, TextWidth(metrics, kWidestCount) + 16);
        const QRect place(0, 0, labelWidth + 8 + fieldWidth, xEditBox::kFieldHeight);
        commentBox = new xEditBox(this, place, fieldWidth, 0L, kCommentLabel);
        commentBox->SetId(Logic::kCommentLines);
        AddView(Logic::kCommentLines, commentBox);
        itemBox = new xEditBox(this, place, fieldWidth, 0L, kItemLabel);
        itemBox->SetId(Logic::kItemCount);
        AddView(Logic::kItemCount, itemBox);

        randomToggle = new QCheckBox(QStringLiteral("EM channels/frequencies positioned at random"), this);
        AddView(Logic::kRandomToggle, randomToggle);
        QObject::connect(randomToggle, &QCheckBox::clicked, this,
                         [this](bool on) { DoCommand(on ? Logic::kRandomOn : Logic::kRandomOff, randomToggle); });
        geosoftToggle = new QCheckBox(QStringLiteral("Geosoft data format"), this);
        AddView(Logic::kGeosoftToggle, geosoftToggle);
        QObject::connect(geosoftToggle, &QCheckBox::clicked, this,
                         [this](bool on) { DoCommand(on ? Logic::kGeosoftOn : Logic::kGeosoftOff, geosoftToggle); });

        sampleButton->setText(QStringLiteral("Parse data"));
        sampleCommand = Logic::kParse;
        replaceButton = new QPushButton(QStringLiteral("Replace sample data"), this);
        AddView(Logic::kReplaceButton, replaceButton);
        QObject::connect(replaceButton, &QPushButton::clicked, this,
                         [this] { DoCommand(Logic::kReplaceSample, replaceButton); });

        PlaceControls();
        for (QWidget* view : std::initializer_list<QWidget*>{sampleView, commentBox, itemBox, randomToggle,
                                                             geosoftToggle, replaceButton})
            view->show();
        prompted = {{sampleView, Logic::kSamplePrompt, QRect()},
                    {commentBox, Logic::kCommentLinesPrompt, QRect()},
                    {itemBox, Logic::kItemCountPrompt, QRect()},
                    {sampleButton, Logic::kParsePrompt, QRect()}};
        PromptsFollow();
    }
    const xEMFDesc& format = logic.Format();
    {
        const QSignalBlocker quietRandom(randomToggle);
        const QSignalBlocker quietGeosoft(geosoftToggle);
        randomToggle->setChecked(logic.randomChannels != 0);
        geosoftToggle->setChecked(format.geosoft != 0);
    }
    commentBox->SetValue(static_cast<long>(format.commentLines));
    itemBox->SetValue(static_cast<long>(format.itemCount));
    ShowSample();
    if (Window())
        Window()->FitToCards();
}

void xEMFCard::ShowSample()
{
    if (!sampleView)
        return;
    QStringList lines;
    for (const std::string& line : logic.SampleLines())
        lines << QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size()));
    sampleView->setPlainText(lines.join(QLatin1Char('\n')));
    sampleView->verticalScrollBar()->setValue(0);
    sampleView->horizontalScrollBar()->setValue(0);
}

void xEMFCard::PlaceControls()
{
    if (!sampleView) {
        // Only the first button, in the middle of the card.
        const QSize size(sampleButton->sizeHint().width() + 2 * kGap, sampleButton->sizeHint().height());
        sampleButton->setGeometry(QRect(QPoint((width() - size.width()) / 2, (height() - size.height()) / 2), size));
        return;
    }
    QFontMetrics metrics(font());
    const int rowHeight = std::max(xEditBox::kFieldHeight, metrics.height() + 6);
    const int area = std::max(width() - 2 * kMargin, listsRegion.width());
    QFontMetrics fixed(sampleView->font());
    const int viewHeight = kSampleRows * fixed.lineSpacing() + 2 * sampleView->frameWidth() + 8 +
                           sampleView->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, sampleView);
    sampleView->setGeometry(kMargin, kMargin, area, viewHeight);

    int y = sampleView->geometry().bottom() + 1 + kGap;
    commentBox->move(kMargin, y);
    itemBox->move(kMargin, y + rowHeight + 6);
    int x = commentBox->geometry().right() + 3 * kGap;
    for (QCheckBox* toggle : {randomToggle, geosoftToggle}) {
        const int top = toggle == randomToggle ? y : y + rowHeight + 6;
        toggle->setGeometry(x, top, toggle->sizeHint().width(), std::max(rowHeight, toggle->sizeHint().height()));
    }
    x = std::max(randomToggle->geometry().right(), geosoftToggle->geometry().right()) + 3 * kGap;
    const int buttonWidth =
        std::max(sampleButton->sizeHint().width(), replaceButton->sizeHint().width()) + 2 * kGap;
    const int buttonHeight = std::max(rowHeight, sampleButton->sizeHint().height());
    sampleButton->setGeometry(x, y, buttonWidth, buttonHeight);
    replaceButton->setGeometry(x, y + rowHeight + 6, buttonWidth, buttonHeight);
    listsTop = std::max(itemBox->geometry().bottom(), replaceButton->geometry().bottom()) + 1 + 2 * kGap;
    PromptsFollow();
}

void xEMFCard::PromptsFollow()
{
    for (Prompted& view : prompted) {
        const QRect now = view.view->geometry();
        if (now == view.region)
            continue;
        if (!view.region.isNull())
            RemovePromptItem(view.region.center());
        AddPromptItem(now, view.text);
        view.region = now;
    }
}

void xEMFCard::resizeEvent(QResizeEvent* event)
{
    xCard::resizeEvent(event);
    PlaceControls();
}

void xEMFCard::DestroyGrid()
{
    for (xListButton* list : lists)
        delete list;
    lists.clear();
    delete grid;
    grid = nullptr;
    delete names;
    names = nullptr;
    if (!listsRegion.isNull())
        RemovePromptItem(listsRegion.center());
    listsRegion = QRect();
}

void xEMFCard::BuildGrid()
{
    DestroyGrid();
    const int visible = logic.visibleColumns;
    if (!logic.parsed || visible <= 0)
        return;
    QStringList entries;
    for (const std::string& name : logic.itemList.Names())
        entries << QString::fromStdString(name);
    names = new QStringListModel(entries, this);
    for (int k = 0; k < visible; ++k) {
        auto* list = new xListButton(this, Logic::kFirstList + k, Logic::kItemChosen, {});
        list->setModel(names);
        lists.push_back(list);
    }

    // Eight columns share the width, each at least as wide as its list and
    // a cell need; fewer columns stand in the middle.
    QFontMetrics metrics(font());
    const int listWidth = lists.front()->NeededWidth();
    const int columnWidth = std::max({(width() - 2 * kMargin) / Logic::kListCount, listWidth,
                                      TextWidth(metrics, kWidestCell) + 2 * kGap});
    const int area = Logic::kListCount * columnWidth;
    const int left = kMargin + (area - visible * columnWidth) / 2;
    const bool scrolls = logic.Format().itemCount > Logic::kListCount;
    const int bar = scrolls ? 16 : 0;
    const int listHeight = lists.front()->sizeHint().height();
    const int cellHeight = metrics.height() + 8;
    const int labelHeight = std::max(18, metrics.height() + 2);
    const QRect frame(left, listsTop + listHeight + 4, visible * columnWidth + bar, labelHeight + 2 * cellHeight + bar);
    grid = new xTxtGrd(this, frame, 2, visible, true, false, &logic.sampleRecords);
    grid->SetId(Logic::kGrid);
    AddView(Logic::kGrid, grid);
    if (scrolls)
        grid->AddScrollBars();
    // Both rows are records of the sample, shown alike.
    for (int k = 0; k < visible; ++k) {
        QLabel* cell = grid->Cell(1, k);
        QPalette palette = cell->palette();
        palette.setColor(QPalette::Window, Qt::white);
        cell->setPalette(palette);
    }
    for (int k = 0; k < visible; ++k) {
        const QRect cell = grid->Cell(0, k)->geometry();
        lists[static_cast<size_t>(k)]->setGeometry(frame.left() + cell.left(), listsTop, cell.width(), listHeight);
        AddView(Logic::kFirstList + k, lists[static_cast<size_t>(k)]);
    }
    listsRegion = QRect(kMargin, listsTop, area, frame.bottom() - listsTop + 1);
    AddPromptItem(listsRegion, Logic::kListsPrompt);
    ShowLists();
    if (logic.firstColumn > 0)
        grid->ScrollTo(QPoint(logic.firstColumn, 0));
    grid->show();
    for (xListButton* list : lists)
        list->show();
    PlaceControls();
    if (Window())
        Window()->FitToCards();
}

void xEMFCard::ShowLists()
{
    for (int k = 0; k < ListCount(); ++k) {
        const QSignalBlocker quiet(lists[static_cast<size_t>(k)]);
        lists[static_cast<size_t>(k)]->setCurrentIndex(logic.ListEntry(k));
    }
}

void xEMFCard::Rebuilt()
{
    BuildGrid();
    if (sampleView)
        sampleButton->setEnabled(false);
}

xEMFCardLogic::Values xEMFCard::Values() const
{
    if (!commentBox)
        return Logic::ValuesOf(logic.Format());
    xEMFCardLogic::Values values;
    int number = 0;
    commentBox->GetInt(number);
    values.commentLines = number;
    number = 0;
    itemBox->GetInt(number);
    values.itemCount = number;
    return values;
}

bool xEMFCard::Apply(std::string& message)
{
    return logic.Apply(Values(), message);
}

void xEMFCard::Activate()
{
    // A saved descriptor brings its sample back by itself.
    if (!logic.parsed && !sampleView && !logic.Format().sampleFile.empty()) {
        if (logic.ReopenSample()) {
            BuildControls();
            if (logic.Format().itemCount != 0)
                DoCommand(Logic::kParse, sampleButton);
        }
    } else if (stale && logic.parsed) {
        stale = false;
        logic.Rebuild();
        BuildGrid();
    }
    xCard::Activate();
}

void xEMFCard::MarkStale()
{
    xCard::MarkStale();
    if (Window() && Window()->IsSelected(this) && logic.parsed) {
        stale = false;
        logic.Rebuild();
        BuildGrid();
    }
}

void xEMFCard::BuildMenu(xQtMenuBar& menuBar)
{
    menuBar.AddMenu(Logic::kUserItemMenu, "User Item", xQtMenuBar::kEditMenu);
    menuBar.AddEntry(Logic::kUserItemMenu, Logic::kAddUserItem, "Add");
    menuBar.AddEntry(Logic::kUserItemMenu, Logic::kRemoveUserItem, "Remove");
    menuBar.AddEntry(Logic::kUserItemMenu, Logic::kEditUserItem, "Edit");
}

void xEMFCard::UpdateMenu(xQtMenuBar& menuBar)
{
    if (QMenu* menu = menuBar.Menu(Logic::kUserItemMenu))
        menu->setEnabled(true);
    menuBar.Enable(Logic::kAddUserItem, true);
    const bool users = !logic.Format().userLabels.empty();
    menuBar.Enable(Logic::kRemoveUserItem, users);
    menuBar.Enable(Logic::kEditUserItem, users);
}

void xEMFCard::RemoveMenu(xQtMenuBar& menuBar)
{
    menuBar.Remove(Logic::kUserItemMenu);
}

void xEMFCard::AddUserItem()
{
    const bool added = logic.AddUserItem([this](std::string& name) {
        xTextEdWin dialog(this, "User Item");
        dialog.SetUpUserItem(&name, "Enter new user defined item label:");
        dialog.Run();
        return !xModalEdWin::Cancelled;
    });
    if (added)
        Rebuilt();
}

void xEMFCard::RemoveUserItem()
{
    const bool removed = logic.RemoveUserItem([this](const std::vector<std::string>& choices, int& index) {
        xChoiceEdWin dialog(this, "Remove User Item ", choices);
        dialog.SetUpUserItem(&index, "Select the item to remove:");
        dialog.Run();
        return !xModalEdWin::Cancelled;
    });
    if (removed)
        Rebuilt();
}

bool xEMFCard::DoMenuCommand(long command)
{
    switch (command) {
    case Logic::kAddUserItem:
        AddUserItem();
        return true;
    case Logic::kRemoveUserItem:
        RemoveUserItem();
        return true;
    case Logic::kEditUserItem:
        // The entry is offered and does nothing.
        return true;
    default:
        return false;
    }
}

void xEMFCard::DoCommand(long command, void* data)
{
    switch (command) {
    case Logic::kOpenSample:
    case Logic::kReplaceSample:
        // The first sample brings the controls; a record that knows its
        // items has the sample parsed at once.
        if (logic.OpenSample()) {
            if (command == Logic::kOpenSample)
                BuildControls();
            else
                ShowSample();
            if (logic.Format().itemCount != 0)
                DoCommand(Logic::kParse, sampleButton);
        }
        return;
    case Logic::kParse:
        if (logic.Parse(Values()))
            Rebuilt();
        return;
    case Logic::kRandomOn:
    case Logic::kRandomOff:
        if (logic.ChangeMode(command == Logic::kRandomOn ? 1 : 0)) {
            Rebuilt();
        } else if (randomToggle) {
            const QSignalBlocker quiet(randomToggle);
            randomToggle->setChecked(logic.randomChannels != 0);
        }
        return;
    case Logic::kGeosoftOn:
    case Logic::kGeosoftOff:
        logic.SetGeosoft(command == Logic::kGeosoftOn);
        return;
    case Logic::kItemChosen: {
        auto found = std::find(lists.begin(), lists.end(), static_cast<xListButton*>(data));
        if (found == lists.end())
            return;
        logic.SelectItem(static_cast<int>(found - lists.begin()), (*found)->currentIndex());
        ShowLists();
        return;
    }
    case xTxtGrd::kScrolled:
        if (data && grid) {
            logic.ScrollTo(static_cast<QPoint*>(data)->x());
            ShowLists();
        }
        return;
    case xEditBox::kReturn:
        if (sampleView && !sampleButton->isEnabled())
            sampleButton->setEnabled(true);
        return;
    default:
        xCard::DoCommand(command, data);
    }
}
