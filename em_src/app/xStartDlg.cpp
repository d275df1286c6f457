#include "app/xStartDlg.h"

#include "app/xEdit2App.h"

#include <QButtonGroup>
#include <QRadioButton>

#include <algorithm>

xStartDlg::xStartDlg(long* result, QWidget* parent)
    : xModalEdWin(parent, "Tolvad", QPoint(-1, -1), kWidth, kHeight)
{
    value = result;
    if (result)
        *result = 0;
    createNew = new QRadioButton(QStringLiteral("Create new .DSC descriptor file"), this);
    openExisting = new QRadioButton(QStringLiteral("Open existing .DSC descriptor file"), this);
    group = new QButtonGroup(this);
    group->addButton(createNew);
    group->addButton(openExisting);
    createNew->setChecked(true);

    int buttonWidth = std::max(createNew->sizeHint().width(), openExisting->sizeHint().width());
    int buttonHeight = createNew->sizeHint().height();
    int top = (clientHeight - 2 * buttonHeight - 12) / 2;
    createNew->setGeometry(20, top, buttonWidth, buttonHeight);
    openExisting->setGeometry(20, top + buttonHeight + 12, buttonWidth, buttonHeight);
    // A font that needs more room widens the window.
    if (buttonWidth + 40 > width())
        ResizeToFit(buttonWidth + 40, height());
}

bool xStartDlg::Accept()
{
    auto* result = static_cast<long*>(value);
    if (!result)
        return true;
    QAbstractButton* chosen = group->checkedButton();
    if (chosen == createNew)
        *result = xDoc::kNew;
    else if (chosen == openExisting)
        *result = xDoc::kOpen;
    else if (third && chosen == third)
        *result = xEdit2App::kImportOld;
    return true;
}
