#include "widgets/xTableViewWin.h"

#include "numeric/FloatArray.h"
#include "widgets/xNumberText.h"

#include <QListWidget>

xTableViewWin::xTableViewWin(QWidget* parent, const std::string& title, QPoint centre)
    : xModalEdWin(parent, title, centre, 170, 260)
{
}

void xTableViewWin::SetUpUserItem(const FloatArray* table)
{
    list = new QListWidget(this);
    list->setGeometry(5, clientTop + 5, width() - 10, clientHeight - 5);
    list->setSelectionMode(QAbstractItemView::NoSelection);
    if (!table)
        return;
    for (int i = table->Lower(); i <= table->Upper(); ++i)
        list->addItem(QString::fromStdString(xNumberText::Format(format, (*table)[i])));
}
