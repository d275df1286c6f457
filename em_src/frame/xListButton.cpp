#include "frame/xListButton.h"

#include "widgets/xCommandView.h"

xListButton::xListButton(QWidget* parent, long id, long command, const std::vector<std::string>& choices)
    : QComboBox(parent), id(id), command(command)
{
    for (const std::string& choice : choices)
        addItem(QString::fromStdString(choice));
    QObject::connect(this, QOverload<int>::of(&QComboBox::activated), this, [this](int) {
        if (this->command)
            xCommandView::Send(this, this->command, this);
    });
}

std::string xListButton::SelectedText() const
{
    return currentText().toStdString();
}

void xListButton::Select(const std::string& text)
{
    QString wanted = QString::fromStdString(text);
    int index = findText(wanted, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index < 0) {
        addItem(wanted);
        index = count() - 1;
    }
    setCurrentIndex(index);
}

int xListButton::NeededWidth() const
{
    return sizeHint().width();
}
