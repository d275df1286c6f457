#include "cards/xEMGCard.h"

#include "cards/xBipoleIcon.h"
#include "cards/xDipoleIcon.h"
#include "cards/xEMGCardLegend.h"
#include "cards/xLoopIcon.h"
#include "cards/xTROrientationSelector.h"
#include "frame/xDWin.h"
#include "frame/xEMWinDesc.h"
#include "frame/xListButton.h"
#include "model/xEMGDesc.h"
#include "widgets/xEditBox.h"
#include "widgets/xFltGrd.h"
#include "widgets/xPointEdWin.h"

#include <QFontMetrics>
#include <QFrame>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>

#include <algorithm>
#include <initializer_list>

const char* const xEMGCard::kTransmitterPrompt =
    "Transmitter.\nDouble click transmitter icon to edit Tx parameters (directional cosines in case of dipole,\n"
    "loop corner xyz positions in case of loop, end xyz points in case of bipole).";
const char* const xEMGCard::kReceiverPrompt =
    "Receiver.\nDouble click receiver icon to edit Rx parameters (directional cosines in case of dipole,\n"
    "loop corner xyz positions in case of loop,end xyz points in case of bipole).";

namespace {

using Logic = xEMGCardLogic;

const char* const kTxPositionPrompt =
    "Transmitter position.\nxyz position of Tx must be specified in meters; make sure that Rx offset is also "
    "specified in meters.\nFor viewing purposes, Tx always occupies centre of window. Anytime Tx positionis "
    "changed,\nviewpoint is shifted to accomodate this requirement.";
const char* const kRxOffsetPrompt =
    "Receiver offset.\nEdit receiver offset (dx,dy,dz) relative to transmitter (in meters).";
const char* const kOffsetPrompt =
    "Receiver offset.\nDisplay of current Rx offset relative to transmitter (in meters).";
const char* const kCursorPrompt =
    "Current cursor position.\nCurrent cursor position in units/coordinates of Tx position. You can toggle view "
    "between xy and xz planes\n(horizontal, vertical) using button at the bottom of the window. Origin of window "
    "coordinate system is controlled\nby position of Tx, which is always maintained in the centre of the window by "
    "shifting the viewpoint.";
const char* const kViewPrompt =
    "Horizontal / Vertical view.\nToggle view between xy and xz planes (horizontal, vertical).\nOrigin of window "
    "coordinate system is controled by position of Tx, which is always maintained in the centre of window\nby "
    "shifting the viewpoint.";
const char* const kCoordinateText =
    "Coordinate system used to describe Transmitter/Receiver positions is a right hand\n"
    "coordinate system centered on survey point (east,north,elevation + flight altitude)\n"
    "with x increasing alongside the survey (flight) direction.\n"
    "All distances should be in meters.";

const QColor kReceiverColour(0, 0, 255);
const QColor kTransmitterColour(255, 0, 0);

constexpr int kMargin = 12;
constexpr int kGap = 8;
// The drawing at one metre a unit: room for the usual towed and slung
// receivers a hundred metres or two off the transmitter.
constexpr int kDrawingWidth = 330;
constexpr int kDrawingHeight = 270;
// The widest number a label shows.
const char* const kWidestNumber = "-2147483648";

// Every motion and kind the sensors know, so that a list never clips the
// choice of another orientation.
const char* const kKnownChoices[] = {"fixed", "moving", "dipole", "large loop", "el. bipole"};

QLabel* MakeLabel(QWidget* parent, const QString& text, const QColor* colour = nullptr)
{
    auto* label = new QLabel(text, parent);
    if (colour) {
        QPalette palette = label->palette();
        palette.setColor(QPalette::WindowText, *colour);
        label->setPalette(palette);
    }
    label->resize(label->sizeHint());
    return label;
}

QPushButton* MakeButton(xCard* card, long id, const QString& text)
{
    auto* button = new QPushButton(text, card);
    button->setAutoDefault(false);
    QObject::connect(button, &QPushButton::clicked, card,
                     [button, id] { xCommandView::Send(button, id, button); });
    card->AddView(id, button);
    return button;
}

} // namespace

xCard* xEMGCard::Make(xEMWinDesc& document, xDWin& window)
{
    return new xEMGCard(document, &window, window.CardFrame(), document.format->clasf, document.current);
}

xEMGCard::xEMGCard(xEMDesc& document, xDWin* window, const QRect& frame, const xTRClasf& clasf, int code)
    : xCard(window, frame), logic(document, this)
{
    selector = new xTROrientationSelector(this, clasf);
    selector->SetCode(code);
    AddView(xTROrientationSelector::kId, selector);
    Build();
    LoadLists();
    BuildIcon(false);
    BuildIcon(true);
    ShowOffset();
    ShowCursor(QPoint(static_cast<int>(logic.Origin().x), static_cast<int>(logic.Origin().y)));
}

void xEMGCard::Build()
{
    const QFontMetrics metrics(font());
    const int rowHeight = std::max({xEditBox::kFieldHeight, metrics.height() + 6, selector->sizeHint().height()});
    const int line = metrics.height();
    auto width = [&metrics](const QString& text) { return metrics.horizontalAdvance(text); };

    // At the left the selector and under it the drawing.
    selector->setGeometry(kMargin, kMargin, selector->sizeHint().width(), rowHeight);
    drawing = new QFrame(this);
    drawing->setFrameStyle(QFrame::Box | QFrame::Plain);
    drawing->setAutoFillBackground(true);
    QPalette paper = drawing->palette();
    paper.setColor(QPalette::Window, Qt::white);
    paper.setColor(QPalette::WindowText, QColor(128, 128, 128));
    drawing->setPalette(paper);
    const int drawingTop = kMargin + rowHeight + kGap;

    // At the right the two sensors' rows, the edit buttons, the offset and
    // the cursor, and the view button.
    const int right = kMargin + std::max(kDrawingWidth, selector->width()) + 2 * kGap;
    sensorRowsLeft = right;
    sensorRowsTop = kMargin;
    sensorRowHeight = rowHeight;
    sensorLabels[0] = MakeLabel(this, QStringLiteral("Receiver"), &kReceiverColour);
    sensorLabels[1] = MakeLabel(this, QStringLiteral("Transmitter"), &kTransmitterColour);
    const std::vector<std::string> none;
    for (long id : {kRxMotionList, kRxKindList, kTxMotionList, kTxKindList}) {
        long command = id == kRxMotionList   ? Logic::kRxMotionChosen
                       : id == kRxKindList   ? Logic::kRxKindChosen
                       : id == kTxMotionList ? Logic::kTxMotionChosen
                                             : Logic::kTxKindChosen;
        auto* list = new xListButton(this, id, command, none);
        list->setSizeAdjustPolicy(QComboBox::AdjustToContents);
        AddView(id, list);
    }
    int y = kMargin + 2 * (rowHeight + 6) + kGap;

    QPushButton* rxOffset = MakeButton(this, kRxOffsetButton, QStringLiteral("Edit Rx Offset"));
    QPushButton* txPosition = MakeButton(this, kTxPositionButton, QStringLiteral("Edit Tx Position"));
    const int buttonWidth =
        std::max({120, width(rxOffset->text()) + 24, width(txPosition->text()) + 24, rxOffset->sizeHint().width(),
                  txPosition->sizeHint().width()});
    const int buttonHeight = std::max(rowHeight, rxOffset->sizeHint().height());
    const int noteLeft = right + buttonWidth + kGap;
    rxOffset->setGeometry(right, y, buttonWidth, buttonHeight);
    QLabel* rxNote = MakeLabel(this, QStringLiteral("(with respect to Tx)"));
    rxNote->move(noteLeft, y + (buttonHeight - rxNote->height()) / 2);
    AddPromptItem(rxOffset->geometry().united(rxNote->geometry()), kRxOffsetPrompt);
    y += std::max(buttonHeight, rxNote->height()) + kGap;

    QLabel* txNote = MakeLabel(this, QStringLiteral("(with respect to survey position as\n"
                                                    "determined by east,north,(elev+alt))"));
    const int txRow = std::max(buttonHeight, txNote->height());
    txPosition->setGeometry(right, y + (txRow - buttonHeight) / 2, buttonWidth, buttonHeight);
    txNote->move(noteLeft, y + (txRow - txNote->height()) / 2);
    AddPromptItem(txPosition->geometry().united(txNote->geometry()), kTxPositionPrompt);
    y += txRow + 2 * kGap;

    // "Tx/Rx Offset" and "Current Position", side by side, a label a line.
    const int numberWidth = width(QStringLiteral("dx : ") + kWidestNumber) + 4;
    auto group = [&](const char* heading, int left, std::initializer_list<long> ids, const char* prompt) {
        QLabel* title = MakeLabel(this, QString::fromUtf8(heading));
        title->move(left, y);
        QFont bold = title->font();
        bold.setBold(true);
        title->setFont(bold);
        title->resize(title->sizeHint());
        int top = y + title->height() + 2;
        int groupWidth = std::max(title->width(), numberWidth);
        for (long id : ids) {
            QLabel* label = MakeLabel(this, QString());
            label->setGeometry(left, top, numberWidth, line + 2);
            AddView(id, label);
            top += line + 2;
        }
        AddPromptItem(QRect(left, y, groupWidth, top - y), prompt);
        return std::make_pair(groupWidth, top);
    };
    auto offsets = group("Tx/Rx Offset", right, {kOffsetX, kOffsetY, kOffsetZ}, kOffsetPrompt);
    auto cursor = group("Current Position", right + offsets.first + 2 * kGap, {kCursorX, kCursorY}, kCursorPrompt);
    y = std::max(offsets.second, cursor.second) + 2 * kGap;

    QPushButton* view = MakeButton(this, kViewButton, QString::fromStdString(Logic::ViewButtonText(false)));
    const int viewWidth = std::max({width(QString::fromStdString(Logic::ViewButtonText(false))),
                                    width(QString::fromStdString(Logic::ViewButtonText(true)))}) + 24;
    view->setGeometry(right, y, std::max(viewWidth, view->sizeHint().width()), buttonHeight);
    AddPromptItem(view->geometry(), kViewPrompt);
    y += buttonHeight;

    // The drawing reaches down as far as the column beside it.
    const int drawingHeight = std::max(kDrawingHeight, y - drawingTop);
    drawing->setGeometry(kMargin, drawingTop, kDrawingWidth, drawingHeight);
    logic.SetOrigin(kDrawingWidth / 2.0, drawingHeight / 2.0);
    legend = new xEMGCardLegend(drawing);
    QPalette ink = legend->palette();
    ink.setColor(QPalette::WindowText, Qt::black);
    legend->setPalette(ink);
    legend->move(3, drawingHeight - legend->height() - 3);
    AddView(xEMGCardLegend::kId, legend);

    // The notes of a loop under the drawing, then the coordinate system.
    int bottom = std::max(y, drawing->geometry().bottom() + 1) + kGap;
    loopNotes[0] = MakeLabel(this, QStringLiteral("Double click icon to edit loop corner positions"));
    loopNotes[1] = MakeLabel(this, QStringLiteral("(with respect to Transmitter position)"));
    for (QLabel* note : loopNotes) {
        note->move(kMargin, bottom);
        note->hide();
        bottom += note->height();
    }
    QLabel* coordinates = MakeLabel(this, QString::fromUtf8(kCoordinateText));
    coordinates->move(kMargin, bottom + kGap);

    // The icons' prompts come first: where they overlap the receiver, drawn on
    // top, wins. They move with their icons.
    AddPromptItem(QRect(), kReceiverPrompt);
    AddPromptItem(QRect(), kTransmitterPrompt);

    // Moves over every control reach the card, for its cursor labels and prompts.
    for (QWidget* child : findChildren<QWidget*>())
        child->setMouseTracking(true);
}

void xEMGCard::PlaceSensorRows()
{
    auto listWidth = [this](long id) { return std::max(List(id)->sizeHint().width(), List(id)->minimumWidth()); };
    const int labelWidth = std::max(sensorLabels[0]->sizeHint().width(), sensorLabels[1]->sizeHint().width());
    const int motionWidth = std::max(listWidth(kRxMotionList), listWidth(kTxMotionList));
    const int kindWidth = std::max(listWidth(kRxKindList), listWidth(kTxKindList));
    for (int row = 0; row < 2; ++row) {
        const int top = sensorRowsTop + row * (sensorRowHeight + 6);
        int x = sensorRowsLeft;
        sensorLabels[row]->setGeometry(x, top, labelWidth, sensorRowHeight);
        x += labelWidth + kGap;
        List(row == 0 ? kRxMotionList : kTxMotionList)->setGeometry(x, top, motionWidth, sensorRowHeight);
        x += motionWidth + kGap;
        List(row == 0 ? kRxKindList : kTxKindList)->setGeometry(x, top, kindWidth, sensorRowHeight);
    }
}

void xEMGCard::LoadLists()
{
    const xEMGDesc* geometry = logic.Geometry();
    for (long id : {kRxMotionList, kRxKindList, kTxMotionList, kTxKindList}) {
        xListButton* list = List(id);
        const bool motion = id == kRxMotionList || id == kTxMotionList;
        const bool receiver = id == kRxMotionList || id == kRxKindList;
        list->clear();
        if (!geometry) {
            list->setEnabled(false);
            continue;
        }
        // Every text is a choice first, so that the list is wide enough for
        // any of them; then only the record's own choices stay.
        for (const char* text : kKnownChoices)
            list->addItem(QString::fromLatin1(text));
        const int needed = list->sizeHint().width();
        list->clear();
        for (const std::string& text : motion ? geometry->motions : geometry->kinds)
            list->addItem(QString::fromStdString(text));
        const xEMSensorType& sensor = receiver ? geometry->rx : geometry->tx;
        list->Select(motion ? sensor.motion : sensor.kind);
        list->setMinimumWidth(std::max(needed, list->sizeHint().width()));
        list->setEnabled(true);
    }
    for (long id : {kRxOffsetButton, kTxPositionButton})
        Button(id)->setEnabled(geometry != nullptr);
    const QSize before = NeededSize();
    PlaceSensorRows();
    if (Window() && NeededSize() != before)
        Window()->FitToCards();
}

std::string xEMGCard::ListText(long id) const
{
    return List(id)->SelectedText();
}

int xEMGCard::Component(bool receiver) const
{
    if (!selector)
        return 3;
    return receiver ? selector->RxComponent() : selector->TxComponent();
}

QRect xEMGCard::IconRegion(const xSensorIcon* icon) const
{
    if (!icon)
        return QRect();
    return icon->geometry().translated(drawing->pos()).intersected(drawing->geometry());
}

void xEMGCard::BuildIcon(bool receiver)
{
    const long id = receiver ? xEMGCardLogic::kReceiverIcon : xEMGCardLogic::kTransmitterIcon;
    if (QWidget* old = View(id)) {
        drawing->update(old->geometry());
        AddView(id, nullptr);
        delete old;
    }
    xSensorIcon* icon = nullptr;
    if (xEMSensorType* sensor = logic.Sensor(receiver)) {
        const xEMGCardLogic::Place place = logic.IconPlace(receiver);
        xSensorIcon::Setup setup{id, &logic, sensor, Component(receiver), logic.PlanView(),
                                 receiver ? kReceiverColour : kTransmitterColour,
                                 QPoint(Logic::PixelOf(place.x), Logic::PixelOf(place.y))};
        switch (Logic::KindOf(*sensor)) {
        case Logic::IconKind::kLoop:
            icon = new xLoopIcon(drawing, setup);
            break;
        case Logic::IconKind::kBipole:
            icon = new xBipoleIcon(drawing, setup);
            break;
        case Logic::IconKind::kDipole:
            icon = new xDipoleIcon(drawing, setup);
            break;
        }
        icon->SetDraggable(receiver);
        AddView(id, icon);
        icon->show();
        // The receiver, which drags, stays on top of the transmitter.
        if (xSensorIcon* rx = Icon(true))
            rx->raise();
    }
    MovePromptItem(receiver ? kReceiverPrompt : kTransmitterPrompt, IconRegion(icon));
    const bool loop = (Icon(true) && dynamic_cast<xLoopIcon*>(Icon(true))) ||
                      (Icon(false) && dynamic_cast<xLoopIcon*>(Icon(false)));
    for (QLabel* note : loopNotes)
        note->setVisible(loop);
}

xSensorIcon* xEMGCard::Icon(bool receiver) const
{
    return static_cast<xSensorIcon*>(View(receiver ? xEMGCardLogic::kReceiverIcon : xEMGCardLogic::kTransmitterIcon));
}

xListButton* xEMGCard::List(long id) const
{
    return dynamic_cast<xListButton*>(View(id));
}

QLabel* xEMGCard::Label(long id) const
{
    return qobject_cast<QLabel*>(View(id));
}

QPushButton* xEMGCard::Button(long id) const
{
    return qobject_cast<QPushButton*>(View(id));
}

void xEMGCard::ShowOffset()
{
    const auto texts = logic.OffsetTexts();
    const long ids[] = {kOffsetX, kOffsetY, kOffsetZ};
    for (int i = 0; i < 3; ++i)
        Label(ids[i])->setText(QString::fromStdString(texts[static_cast<size_t>(i)]));
}

void xEMGCard::ShowCursor(const QPoint& point)
{
    lastCursor = point;
    const auto texts = logic.CursorTexts(point.x(), point.y());
    Label(kCursorX)->setText(QString::fromStdString(texts[0]));
    Label(kCursorY)->setText(QString::fromStdString(texts[1]));
}

bool xEMGCard::EditPoint(const char* title, float point[3])
{
    xPointEdWin dialog(this, title, mapToGlobal(rect().center()));
    dialog.SetUpUserItem(point);
    dialog.Run();
    return !xModalEdWin::Cancelled;
}

void xEMGCard::EditRxOffset()
{
    float offset[3] = {0.0f, 0.0f, 0.0f};
    logic.RxOffset(offset);
    if (EditPoint(Logic::kRxOffsetTitle, offset) && logic.EditRxOffset(offset))
        BuildIcon(true);
    ShowOffset();
}

void xEMGCard::EditTxPosition()
{
    float position[3] = {0.0f, 0.0f, 0.0f};
    logic.TxPosition(position);
    if (EditPoint(Logic::kTxPositionTitle, position) && logic.EditTxPosition(position)) {
        BuildIcon(false);
        BuildIcon(true);
    }
    ShowOffset();
}

void xEMGCard::Activate()
{
    selector->update();
    xCard::Activate();
}

bool xEMGCard::CanClose(bool& /*proceed*/)
{
    return true;
}

void xEMGCard::SetDescriptor(xEMEditDesc& document, int code)
{
    logic.SetGeometry(document.geometry);
    selector->SetCode(code);
    LoadLists();
    BuildIcon(false);
    BuildIcon(true);
    ShowOffset();
    ShowCursor(lastCursor);
}

void xEMGCard::OrientationAdded(int code)
{
    const xTRClasf& clasf = logic.Document().format->clasf;
    const int count = code >= kFirstOrientationCode && code <= kLastOrientationCode ? clasf[code] : 0;
    // The selector walks the orientations with a count.
    selector->AddOrientation(code, std::max(count, 1));
}

void xEMGCard::OrientationRemoved(int code, int other)
{
    selector->RemoveOrientation(code, other);
}

void xEMGCard::EnableSelector(bool on)
{
    selector->setEnabled(on);
}

void xEMGCard::mouseMoveEvent(QMouseEvent* event)
{
    ShowCursor(event->position().toPoint() - drawing->pos());
    xCard::mouseMoveEvent(event);
}

void xEMGCard::DoCommand(long command, void* data)
{
    switch (command) {
    case Logic::kRxMotionChosen:
    case Logic::kTxMotionChosen: {
        const bool receiver = command == Logic::kRxMotionChosen;
        logic.ChooseMotion(receiver, ListText(receiver ? kRxMotionList : kTxMotionList));
        return;
    }
    case Logic::kRxKindChosen:
    case Logic::kTxKindChosen: {
        const bool receiver = command == Logic::kRxKindChosen;
        const long id = receiver ? kRxKindList : kTxKindList;
        // From the list; the logic's own notice goes on up to the document.
        if (data != View(id))
            break;
        if (logic.ChooseKind(receiver, ListText(id), Component(receiver)))
            BuildIcon(receiver);
        return;
    }
    case Logic::kFlipView:
        logic.FlipView();
        Button(kViewButton)->setText(QString::fromStdString(Logic::ViewButtonText(logic.PlanView())));
        legend->SetPlanView(logic.PlanView());
        BuildIcon(false);
        BuildIcon(true);
        ShowCursor(lastCursor);
        return;
    case Logic::kReceiverDragged:
        if (const auto* centre = static_cast<const QPoint*>(data)) {
            const auto texts = logic.DragReceiverTo(centre->x(), centre->y());
            Label(kCursorX)->setText(QString::fromStdString(texts[0]));
            Label(kCursorY)->setText(QString::fromStdString(texts[1]));
            ShowOffset();
            MovePromptItem(kReceiverPrompt, IconRegion(Icon(true)));
            ShowCursor(*centre);
        }
        return;
    case Logic::kEditRxOffset:
        EditRxOffset();
        return;
    case Logic::kEditTxPosition:
        EditTxPosition();
        return;
    case xFltGrd::kRowsChanged:
        // The corners or ends table of a dialog changed its rows: the dialog
        // reads the table at its end.
        return;
    default:
        break;
    }
    xCard::DoCommand(command, data);
}
