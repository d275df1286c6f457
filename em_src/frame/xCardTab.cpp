#include "frame/xCardTab.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPainter>

#include <utility>

namespace {

constexpr int kLabelMargin = 6;

} // namespace

xCardTab::xCardTab(QWidget* parent, xCard* card, const std::string& text, int row)
    : xCommandView(parent, kPressed), card(card), row(row)
{
    label = new QLabel(QString::fromStdString(text), this);
    label->setAlignment(Qt::AlignCenter);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
}

std::string xCardTab::LabelText() const
{
    return label->text().toStdString();
}

void xCardTab::SetSelected(bool on)
{
    selected = on;
    QFont font = label->font();
    font.setBold(on);
    label->setFont(font);
    update();
}

void xCardTab::SwapWith(xCardTab& other)
{
    std::swap(card, other.card);
    QString text = label->text();
    label->setText(other.label->text());
    other.label->setText(text);
}

int xCardTab::NeededWidth() const
{
    // Measured in bold: the selected tab's label is the widest it gets.
    QFont bold = label->font();
    bold.setBold(true);
    return QFontMetrics(bold).horizontalAdvance(label->text()) + 2 * kLabelMargin + 2;
}

void xCardTab::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    Send(this, kPressed, this);
}

void xCardTab::resizeEvent(QResizeEvent* event)
{
    xCommandView::resizeEvent(event);
    label->setGeometry(kLabelMargin, 2, std::max(0, width() - 2 * kLabelMargin), std::max(0, height() - 4));
}

void xCardTab::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    QRect area = rect().adjusted(0, 0, -1, -1);
    painter.fillRect(area, QColor(192, 192, 192));
    // Three light grey frame lines; the selected tab is drawn heavier.
    painter.setPen(QPen(selected ? QColor(64, 64, 64) : QColor(128, 128, 128), selected ? 2 : 1));
    painter.drawLine(area.bottomLeft(), area.topLeft());
    painter.drawLine(area.topLeft(), area.topRight());
    painter.drawLine(area.topRight(), area.bottomRight());
}
