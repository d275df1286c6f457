#include "widgets/xTextEdWin.h"

#include <QLabel>
#include <QLineEdit>

xTextEdWin::xTextEdWin(QWidget* parent, const std::string& title, QPoint centre)
    : xModalEdWin(parent, title, centre, 340, 130)
{
}

void xTextEdWin::SetUpUserItem(std::string* text, const std::string& captionText)
{
    value = text;
    caption = new QLabel(QString::fromStdString(captionText), this);
    field = new QLineEdit(QString::fromStdString(text ? *text : std::string()), this);
    PlaceCaptioned(caption, field);
    field->selectAll();
    field->setFocus();
}

bool xTextEdWin::Accept()
{
    if (field && value)
        *static_cast<std::string*>(value) = field->text().toStdString();
    return true;
}
