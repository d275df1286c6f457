#include "widgets/xChoiceEdWin.h"

#include <QComboBox>
#include <QLabel>

xChoiceEdWin::xChoiceEdWin(QWidget* parent, const std::string& title, const std::vector<std::string>& entries,
                           QPoint centre)
    : xModalEdWin(parent, title, centre, 340, 130), choices(entries)
{
}

void xChoiceEdWin::SetUpUserItem(int* index, const std::string& captionText)
{
    value = index;
    caption = new QLabel(QString::fromStdString(captionText), this);
    caption->setGeometry(10, clientTop + 8, width() - 20, 20);
    list = new QComboBox(this);
    for (const auto& choice : choices)
        list->addItem(QString::fromStdString(choice));
    list->setGeometry(10, clientTop + 32, width() - 20, fieldHeight + 2);
    if (index && *index >= 0 && *index < list->count())
        list->setCurrentIndex(*index);
}

bool xChoiceEdWin::Accept()
{
    if (list && value)
        *static_cast<int*>(value) = list->currentIndex();
    return true;
}
