#include "widgets/xModalEdWin.h"

#include "gui/xPlatform.h"
#include "widgets/xCommandView.h"

#include <QPushButton>

#include <algorithm>

bool xModalEdWin::Cancelled = false;

xModalEdWin::xModalEdWin(QWidget* parent, const std::string& title, QPoint centre, int width, int height)
    : QDialog(parent), clientHeight(std::max(height - kButtonRow, 0))
{
    Cancelled = false;
    setModal(true);
    setWindowTitle(QString::fromStdString(title));
    okButton = new QPushButton(QStringLiteral("OK"), this);
    cancelButton = new QPushButton(QStringLiteral("Cancel"), this);
    okButton->setDefault(true);
    okButton->setAutoDefault(true);
    cancelButton->setAutoDefault(false);
    QObject::connect(okButton, &QPushButton::clicked, this, [this] { DoCommand(kOk, okButton); });
    QObject::connect(cancelButton, &QPushButton::clicked, this, [this] { DoCommand(kCancel, cancelButton); });
    if (centre == QPoint(-1, -1)) {
        if (parent) {
            QWidget* window = parent->window();
            centre = window->mapToGlobal(window->rect().center());
        } else {
            int w = 0, h = 0;
            Platform().ScreenSize(w, h);
            centre = QPoint(w / 2, h / 2);
        }
    }
    QRect frame = FrameAround(centre, width, height);
    // Kept inside the screen with a margin on each side.
    int screenWidth = 0, screenHeight = 0;
    Platform().ScreenSize(screenWidth, screenHeight);
    frame.moveLeft(std::max(kMargin, std::min(frame.left(), screenWidth - kMargin - frame.width())));
    frame.moveTop(std::max(kMargin, std::min(frame.top(), screenHeight - kMargin - frame.height())));
    setGeometry(frame);
    setFixedSize(frame.size());
    PlaceButtons();
}

QRect xModalEdWin::FrameAround(QPoint centre, int width, int height) const
{
    return QRect(centre.x() - width / 2, centre.y() - height / 2, width, height);
}

void xModalEdWin::PlaceButtons()
{
    int top = height() - kButtonRow + 8;
    cancelButton->setGeometry(10, top, 80, 25);
    okButton->setGeometry(width() - 90, top, 80, 25);
    clientHeight = std::max(height() - kButtonRow, 0);
}

bool xModalEdWin::ResizeToFit(int width, int height)
{
    QRect frame = FrameAround(geometry().center(), width, height);
    int screenWidth = 0, screenHeight = 0;
    Platform().ScreenSize(screenWidth, screenHeight);
    if (frame.left() < 0 || frame.top() < 0 || frame.right() >= screenWidth || frame.bottom() >= screenHeight)
        return false;
    setFixedSize(frame.size());
    setGeometry(frame);
    PlaceButtons();
    return true;
}

void xModalEdWin::DoCommand(long command, void* data)
{
    switch (command) {
    case kOk:
        if (Accept())
            accept();
        return;
    case kCancel:
        Cancelled = true;
        QDialog::reject();
        return;
    default:
        if (NextTarget())
            NextTarget()->DoCommand(command, data);
        else if (xCommandTarget* above = xCommandView::TargetAbove(this))
            above->DoCommand(command, data);
    }
}

void xModalEdWin::reject()
{
    // Escape and the window's close button count as Cancel.
    DoCommand(kCancel, nullptr);
}
