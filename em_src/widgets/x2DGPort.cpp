#include "widgets/x2DGPort.h"

#include "widgets/x2DGLine.h"
#include "widgets/x2DGPainterSurface.h"
#include "widgets/xCommandView.h"

#include <QApplication>
#include <QEnterEvent>
#include <QFontDatabase>
#include <QFontInfo>
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

x2DGRect ToRect(const QRect& r)
{
    return {r.left(), r.top(), r.left() + r.width(), r.top() + r.height()};
}

QRect ToQRect(const x2DGRect& r)
{
    return QRect(r.left, r.top, r.Width(), r.Height());
}

x2DGRect Inset(const x2DGRect& r, int by)
{
    x2DGRect inner{r.left + by, r.top + by, r.right - by, r.bottom - by};
    inner.right = std::max(inner.left, inner.right);
    inner.bottom = std::max(inner.top, inner.bottom);
    return inner;
}

}   // namespace

x2DGPort::x2DGPort(QWidget* parent, const QRect& frame, int width, int height,
                   xCommandTarget* next)
    : QWidget(parent),
      x2DGPlot(next, Inset(ToRect(QRect(QPoint(), frame.size())), Margin()), width, height)
{
    setGeometry(frame);
    laidOutSize = frame.size();
    SetPaper(ToRect(rect()));
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

int x2DGPort::Margin()
{
    return QFontMetrics(QApplication::font()).height() / 2;
}

QFont x2DGPort::ReadOutFont() const
{
    // The read-out pads its numbers with blanks: they line up only in a
    // font of one width for all characters.
    QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (!QFontInfo(fixed).fixedPitch()) {
        fixed = QFont(QStringLiteral("monospace"));
        fixed.setStyleHint(QFont::TypeWriter);
    }
    if (font().pointSizeF() > 0)
        fixed.setPointSizeF(font().pointSizeF());
    return fixed;
}

int x2DGPort::LabelStripHeight() const
{
    const QFont& font = SharedLabelFont() ? *SharedLabelFont() : this->font();
    return QFontMetrics(font).height() + 2;
}

bool x2DGPort::NeedsScrollBar() const
{
    return VirtualWidth() > width() - 2 * Margin();
}

x2DGRect x2DGPort::PaperArea(bool zoomKept) const
{
    // From the bottom up: the scroll bar, the label strip, then the paper.
    x2DGRect area = ToRect(rect());
    if (zoomKept && NeedsScrollBar())
        area.bottom -= scrollBar->sizeHint().height();
    if (labelsAtBottom && HasEndLabels())
        area.bottom -= LabelStripHeight();
    area.bottom = std::max(area.top, area.bottom);
    return area;
}

bool x2DGPort::FollowDrawingFrame(bool resized)
{
    if (following)
        return false;
    following = true;
    // A resize starts unzoomed, without the scroll bar.
    const x2DGRect area = PaperArea(!resized);
    const x2DGRect wanted = Inset(area, Margin());
    SetPaper(area);
    const bool changed = wanted.left != Frame().left || wanted.top != Frame().top ||
                         wanted.right != Frame().right || wanted.bottom != Frame().bottom;
    if (changed) {
        if (resized)
            Resize(wanted, isVisible());
        else
            Reframe(wanted);
    }
    following = false;
    return changed;
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
    // The bar shows under the labels, and the drawing gives up its height.
    FollowDrawingFrame(false);
    if (NeedsScrollBar()) {
        const QSignalBlocker block(scrollBar);
        scrollBar->setRange(0, VirtualWidth() - Frame().Width());
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
    // Taking or giving back the label strip changes the frame; Reframe comes
    // back here with the new one.
    if (FollowDrawingFrame(false) && startLabel)
        return;
    if (!startLabel) {
        startLabel = new QLabel(this);
        endLabel = new QLabel(this);
        startLabel->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        endLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        for (QLabel* label : {startLabel, endLabel}) {
            // Filled with the paper, so that no trace runs through the text.
            label->setAutoFillBackground(true);
            QPalette p = label->palette();
            p.setColor(QPalette::Window, Qt::white);
            p.setColor(QPalette::WindowText, Qt::black);
            label->setPalette(p);
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
    // In their strip under the paper, or over the paper's lower corners.
    const x2DGRect& paper = Paper();
    const int top = labelsAtBottom ? paper.bottom : paper.bottom - h;
    startLabel->setGeometry(0, top, w, h);
    endLabel->setGeometry(width() - w, top, w, h);
}

void x2DGPort::SetCrossHairCursor(bool crossHair)
{
    setCursor(crossHair ? Qt::CrossCursor : Qt::ArrowCursor);
}

void x2DGPort::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.setRenderHint(QPainter::Antialiasing);
    x2DGPainterSurface surface(painter);
    DrawContents(surface);
    if (readOutText.isEmpty())
        return;
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setFont(ReadOutFont());
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
    // change of the size gives up the virtual size and the scale.
    const bool resized = size() != laidOutSize;
    laidOutSize = size();
    FollowDrawingFrame(resized);
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
    const QSize text = QFontMetrics(ReadOutFont()).size(0, readOutText);
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
