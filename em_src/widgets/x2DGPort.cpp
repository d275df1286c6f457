#include "widgets/x2DGPort.h"

#include "widgets/x2DGLine.h"
#include "widgets/x2DGPainterSurface.h"
#include "widgets/xCommandView.h"

#include <QEnterEvent>
#include <QFontMetrics>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QRubberBand>
#include <QScrollBar>

#include <memory>

namespace {

// Set once by the application; until then the labels take the port's font.
std::unique_ptr<QFont>& SharedLabelFont()
{
    static std::unique_ptr<QFont> font;
    return font;
}

x2DGRect LocalFrame(const QRect& frame)
{
    return {0, 0, frame.width(), frame.height()};
}

QRect ToQRect(const x2DGRect& r)
{
    return QRect(r.left, r.top, r.Width(), r.Height());
}

}   // namespace

x2DGPort::x2DGPort(QWidget* parent, const QRect& frame, int width, int height,
                   xCommandTarget* next)
    : QWidget(parent), x2DGPlot(next, LocalFrame(frame), width, height)
{
    setGeometry(frame);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(false);
    scrollBar = new QScrollBar(Qt::Horizontal, this);
    scrollBar->hide();
    connect(scrollBar, &QScrollBar::valueChanged, this, [this](int value) {
        if (-value != ScrollPosition())
            ScrollTo(-value);
    });
    // A port built wider than its frame scrolls from the start.
    ScrollChanged();
}

x2DGPort::~x2DGPort() = default;

void x2DGPort::SetLabelFont(const QFont& font)
{
    SharedLabelFont() = std::make_unique<QFont>(font);
}

int x2DGPort::LabelStripHeight() const
{
    const QFont& font = SharedLabelFont() ? *SharedLabelFont() : this->font();
    return QFontMetrics(font).height() + 2;
}

x2DGRect x2DGPort::DrawingFrame() const
{
    x2DGRect frame = LocalFrame(rect());
    if (labelsAtBottom && HasEndLabels())
        frame.bottom = std::max(frame.top, frame.bottom - LabelStripHeight());
    return frame;
}

bool x2DGPort::FollowDrawingFrame()
{
    const x2DGRect wanted = DrawingFrame();
    if (wanted.right == Frame().right && wanted.bottom == Frame().bottom)
        return false;
    Resize(wanted, isVisible());
    return true;
}

void x2DGPort::DoCommand(long command, void* data)
{
    if (!NextTarget())
        SetNextTarget(xCommandView::TargetAbove(this));
    x2DGPlot::DoCommand(command, data);
}

void x2DGPort::InvalidateRect(const x2DGRect& r)
{
    update(ToQRect(r));
}

void x2DGPort::ScrollChanged()
{
    const int hidden = VirtualWidth() - Frame().Width();
    if (hidden > 0) {
        const QSignalBlocker block(scrollBar);
        scrollBar->setRange(0, hidden);
        scrollBar->setPageStep(Frame().Width());
        scrollBar->setValue(-ScrollPosition());
        const int h = scrollBar->sizeHint().height();
        scrollBar->setGeometry(0, height() - h, width(), h);
        scrollBar->show();
    } else {
        scrollBar->hide();
    }
    if (startLabel)
        PlaceLabels();
}

void x2DGPort::EndLabelsChanged()
{
    if (!HasEndLabels())
        return;
    // Taking or giving back the label strip changes the frame; Resize comes
    // back here with the new one.
    if (FollowDrawingFrame())
        return;
    if (!startLabel) {
        startLabel = new QLabel(this);
        endLabel = new QLabel(this);
        startLabel->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        endLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        for (QLabel* label : {startLabel, endLabel}) {
            label->setAttribute(Qt::WA_TransparentForMouseEvents);
            label->show();
        }
    }
    PlaceLabels();
}

void x2DGPort::PlaceLabels()
{
    if (SharedLabelFont()) {
        startLabel->setFont(*SharedLabelFont());
        endLabel->setFont(*SharedLabelFont());
    }
    startLabel->setText(QString::fromStdString(EndLabelText(false)));
    endLabel->setText(QString::fromStdString(EndLabelText(true)));
    const int w = width() / 3;
    const int h = LabelStripHeight();
    int bottom = height();
    if (scrollBar->isVisible())
        bottom = std::min(bottom, scrollBar->y());
    startLabel->setGeometry(0, bottom - h, w, h);
    endLabel->setGeometry(width() - w, bottom - h, w, h);
}

void x2DGPort::SetCrossHairCursor(bool crossHair)
{
    setCursor(crossHair ? Qt::CrossCursor : Qt::ArrowCursor);
}

void x2DGPort::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    x2DGPainterSurface surface(painter);
    DrawContents(surface);
    if (readOutText.isEmpty())
        return;
    for (int i = 0; i < SeriesCount(); ++i) {
        const std::optional<x2DGRect>& box = Series(i)->readOutBox;
        if (!box)
            continue;
        const QRect area = ToQRect(*box);
        painter.setPen(Qt::black);
        painter.fillRect(area, Qt::white);
        painter.drawRect(area.adjusted(0, 0, -1, -1));
        painter.drawText(area, Qt::AlignCenter, readOutText);
    }
}

void x2DGPort::resizeEvent(QResizeEvent*)
{
    // The first show delivers the size the port was built with; only a real
    // change of the frame gives up the virtual size and the scale.
    FollowDrawingFrame();
}

void x2DGPort::showEvent(QShowEvent*)
{
    // A port resized while hidden has not told its series yet.
    RecomputeSeries(false);
}

void x2DGPort::ShowReadOut(const QPoint& at)
{
    x2DGLine* owner = nullptr;
    for (int i = 0; i < SeriesCount() && !owner; ++i)
        if (Series(i)->PixelCount() > 0)
            owner = Series(i);
    if (!owner)
        return;
    HideReadOut();
    readOutText = QString::fromStdString(ReadOutText(at.x(), at.y()));
    const QSize text = fontMetrics().size(0, readOutText);
    const int w = text.width() + 20, h = text.height() + 20;
    owner->readOutBox = x2DGRect{at.x(), at.y() - 8 - h, at.x() + w, at.y() - 8};
    InvalidateRect(*owner->readOutBox);
}

void x2DGPort::HideReadOut()
{
    for (int i = 0; i < SeriesCount(); ++i) {
        x2DGLine* line = Series(i);
        if (line->readOutBox) {
            InvalidateRect(*line->readOutBox);
            line->readOutBox.reset();
        }
    }
    readOutText.clear();
}

void x2DGPort::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return QWidget::mousePressEvent(event);
    const QPoint at = event->position().toPoint();
    if (itsSketchPad) {
        BeginBand(at.x(), at.y());
        if (!rubberBand)
            rubberBand = new QRubberBand(QRubberBand::Rectangle, this);
        rubberBand->setGeometry(QRect(at, QSize()));
        rubberBand->show();
    } else if (readOut) {
        ShowReadOut(at);
    }
}

void x2DGPort::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint at = event->position().toPoint();
    if (itsSketchPad && itsSketchPad->dragging) {
        ExtendBand(at.x(), at.y());
        const QPoint start(itsSketchPad->startH + Frame().left, itsSketchPad->startV + Frame().top);
        rubberBand->setGeometry(QRect(start, at).normalized());
    }
}

void x2DGPort::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return QWidget::mouseReleaseEvent(event);
    const QPoint at = event->position().toPoint();
    if (itsSketchPad && itsSketchPad->dragging) {
        rubberBand->hide();
        FinishBand(at.x(), at.y());
    }
    HideReadOut();
}

void x2DGPort::enterEvent(QEnterEvent*)
{
    DoCommand(kCrossHairCursor, nullptr);
}

void x2DGPort::leaveEvent(QEvent*)
{
    HideReadOut();
    DoCommand(kArrowCursor, nullptr);
}
