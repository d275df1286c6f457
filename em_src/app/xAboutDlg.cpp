#include "app/xAboutDlg.h"

#include "app/xEdit2App.h"

#include <QLabel>
#include <QPushButton>

#include <algorithm>

xAboutDlg::xAboutDlg(QWidget* parent) : xModalEdWin(parent, "About Tolvad", QPoint(-1, -1), 340, 150)
{
    const std::string texts[] = {xEdit2App::AboutText(), "Editor of EM system descriptors (.DSC files)",
                                 std::string("Qt ") + qVersion()};
    int widest = 0;
    for (const std::string& text : texts) {
        auto* line = new QLabel(QString::fromStdString(text), this);
        line->setAlignment(Qt::AlignCenter);
        widest = std::max(widest, line->sizeHint().width());
        lines.push_back(line);
    }
    QFont first = lines.front()->font();
    first.setBold(true);
    lines.front()->setFont(first);
    widest = std::max(widest, lines.front()->sizeHint().width());
    if (widest + 40 > width())
        ResizeToFit(widest + 40, height());
    int y = 15;
    for (QLabel* line : lines) {
        line->setGeometry(10, y, width() - 20, line->sizeHint().height());
        y += line->sizeHint().height() + 6;
    }
    // Nothing to cancel here.
    CancelButton()->hide();
}
