#include "frame/xCard.h"

#include "frame/xDWin.h"
#include "gui/xPlatform.h"

#include <QMouseEvent>
#include <QPainter>

xCard::xCard(xDWin* window, const QRect& frame)
    : xCommandView(window ? window->Client() : nullptr), xPromptHost("xCard"), window(window)
{
    setGeometry(frame);
    setMouseTracking(true);
    setAutoFillBackground(true);
    if (window) {
        setPalette(window->Client()->palette());
        if (window->HasPanel())
            MakePromptLists();
    }
    hide();
}

xCard::~xCard() = default;

bool xCard::Apply(std::string& /*message*/)
{
    return true;
}

void xCard::Deactivate()
{
    if (window)
        RemoveMenu(window->MenuBar());
}

void xCard::Activate()
{
    if (!window)
        return;
    BuildMenu(window->MenuBar());
    UpdateMenu(window->MenuBar());
}

void xCard::BuildMenu(xQtMenuBar& /*menuBar*/) {}

void xCard::UpdateMenu(xQtMenuBar& /*menuBar*/) {}

void xCard::RemoveMenu(xQtMenuBar& /*menuBar*/) {}

bool xCard::FirstShown()
{
    return false;
}

bool xCard::CanClose(bool& proceed)
{
    std::string message;
    if (Apply(message))
        return true;
    switch (PostAsk("No", "Yes", "Cancel", "%s Do you want to proceed without saving?", message.c_str())) {
    case 1:
        proceed = true;
        return true;
    case 0:
    case 2:
        return false;
    default:
        PostError("xCard::Close() Invalid return from ask.");
        return false;
    }
}

bool xCard::DoMenuCommand(long /*command*/)
{
    return false;
}

void xCard::SetDescriptor(xEMEditDesc& /*document*/, int /*code*/) {}

void xCard::OrientationAdded(int /*code*/) {}

void xCard::OrientationRemoved(int /*code*/, int /*other*/) {}

void xCard::EnableSelector(bool /*on*/) {}

void xCard::SetFrequencyDomain(bool /*frequency*/) {}

void xCard::AddView(long id, QWidget* view)
{
    views[id] = view;
}

QWidget* xCard::View(long id) const
{
    auto found = views.find(id);
    return found == views.end() ? nullptr : found->second;
}

QSize xCard::NeededSize() const
{
    QRect used = childrenRect();
    return QSize(used.right() + 10, used.bottom() + 10);
}

void xCard::ShowCard()
{
    if (isHidden() && window)
        window->SelectCardOf(this);
    show();
}

void xCard::DoCommand(long command, void* data)
{
    switch (command) {
    case kOnTop:
        if (!shown)
            shown = FirstShown();
        Activate();
        return;
    case kLeaving:
        Deactivate();
        return;
    default:
        // The notices of the controls (focus, Return, values, grid cells and
        // scrolling) end here; a card that wants one takes it before.
        bool notice = (command >= 9440 && command <= 9442) || (command >= 9980 && command <= 9986) ||
                      (command >= 10020 && command <= 10029) || command == 3333;
        if (!notice)
            xCommandView::DoCommand(command, data);
    }
}

void xCard::mouseMoveEvent(QMouseEvent* event)
{
    const char* text = nullptr;
    if (PromptMoved(event->position().toPoint(), text))
        xCommandView::DoCommand(xPWin::kShowPrompt, const_cast<char*>(text));
    event->accept();
}

void xCard::paintEvent(QPaintEvent* event)
{
    xCommandView::paintEvent(event);
    // The card's frame; the tab on top joins it at its upper edge.
    QPainter painter(this);
    painter.setPen(QColor(96, 96, 96));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}
