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
    PlaceInsideScreen(FrameAround(centre, std::max(width, ButtonsWidth()),
                                  std::max(height, ButtonRowHeight())));
}

void xModalEdWin::PlaceInsideScreen(QRect frame)
{
    int screenWidth = 0, screenHeight = 0;
    Platform().ScreenSize(screenWidth, screenHeight);
    frame.moveLeft(std::max(kMargin, std::min(frame.left(), screenWidth - kMargin - frame.width())));
    frame.moveTop(std::max(kMargin, std::min(frame.top(), screenHeight - kMargin - frame.height())));
    setFixedSize(frame.size());
    setGeometry(frame);
    PlaceButtons();
}

QRect xModalEdWin::FrameAround(QPoint centre, int width, int height) const
{
    return QRect(centre.x() - width / 2, centre.y() - height / 2, width, height);
}

QSize xModalEdWin::ButtonSize(QPushButton* button) const
{
    const QSize natural = button->sizeHint();
    return QSize(std::max(kButtonWidth, natural.width()), std::max(kButtonHeight, natural.height()));
}

int xModalEdWin::ButtonsWidth() const
{
    return 3 * kMargin + ButtonSize(cancelButton).width() + ButtonSize(okButton).width();
}

int xModalEdWin::ButtonRowHeight() const
{
    return std::max(kButtonRow, std::max(ButtonSize(okButton).height(), ButtonSize(cancelButton).height()) + 15);
}

void xModalEdWin::PlaceButtons()
{
    const int row = ButtonRowHeight();
    const QSize cancel = ButtonSize(cancelButton);
    const QSize ok = ButtonSize(okButton);
    cancelButton->setGeometry(kMargin, height() - row + 8, cancel.width(), cancel.height());
    okButton->setGeometry(width() - kMargin - ok.width(), height() - row + 8, ok.width(), ok.height());
    clientHeight = std::max(height() - row, 0);
}

void xModalEdWin::PlaceCaptioned(QWidget* caption, QWidget* control)
{
    const int across = width() - 2 * kMargin;
    const QSize captionSize = caption->sizeHint();
    caption->setGeometry(kMargin, clientTop + 8, std::max(across, captionSize.width()),
                         std::max(20, captionSize.height()));
    const QSize controlSize = control->sizeHint();
    control->setGeometry(kMargin, caption->geometry().bottom() + 5, std::max(across, controlSize.width()),
                         std::max(fieldHeight, controlSize.height()));
    FitToContents();
}

void xModalEdWin::FitToContents()
{
    QRect used;
    for (QWidget* child : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        if (child != okButton && child != cancelButton && !child->isHidden())
            used |= child->geometry();
    if (used.isNull())
        return;
    const int width = std::max({this->width(), ButtonsWidth(), used.right() + 1 + kMargin});
    const int height = std::max(this->height(), used.bottom() + 1 + kMargin / 2 + ButtonRowHeight());
    if (width == this->width() && height == this->height())
        return;
    PlaceInsideScreen(FrameAround(geometry().center(), width, height));
}

bool xModalEdWin::ResizeToFit(int width, int height)
{
    QRect frame = FrameAround(geometry().center(), std::max(width, ButtonsWidth()),
                              std::max(height, ButtonRowHeight()));
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
