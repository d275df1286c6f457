#include "widgets/xTableViewWin.h"

#include "numeric/FloatArray.h"
#include "widgets/xNumberText.h"

#include <QListWidget>
#include <QScrollBar>
#include <QStyle>

xTableViewWin::xTableViewWin(QWidget* parent, const std::string& title, QPoint centre)
    : xModalEdWin(parent, title, centre, 170, 260)
{
}

void xTableViewWin::SetUpUserItem(const FloatArray* table)
{
    list = new QListWidget(this);
    list->setGeometry(5, clientTop + 5, width() - 10, clientHeight - 5);
    list->setSelectionMode(QAbstractItemView::NoSelection);
    if (table)
        for (int i = table->Lower(); i <= table->Upper(); ++i)
            list->addItem(QString::fromStdString(xNumberText::Format(format, (*table)[i])));
    // As wide as the widest number of the format, beside the list's scroll bar.
    const QString widest = QString::fromStdString(xNumberText::WidestText(format));
    const int needed = list->fontMetrics().horizontalAdvance(widest) + 2 * list->frameWidth() +
                       list->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, list) +
                       2 * list->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, list) + 8;
    list->resize(std::max(list->width(), needed), list->height());
    FitToContents();
}
