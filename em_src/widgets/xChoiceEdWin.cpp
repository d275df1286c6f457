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
    list = new QComboBox(this);
    for (const auto& choice : choices)
        list->addItem(QString::fromStdString(choice));
    PlaceCaptioned(caption, list);
    if (index && *index >= 0 && *index < list->count())
        list->setCurrentIndex(*index);
}

bool xChoiceEdWin::Accept()
{
    if (list && value)
        *static_cast<int*>(value) = list->currentIndex();
    return true;
}
