#include "frame/xPWin.h"

#include "app/xEdit2App.h"
#include "app/xQtMenuBar.h"
#include "frame/xDoc.h"
#include "gui/xPlatform.h"

#include <QApplication>
#include <QFontMetrics>
#include <QFrame>
#include <QLabel>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QTimer>

#include <algorithm>

bool xPWin::helpOn = true;

namespace {

// The client area: it follows the mouse for the window's prompts and lays
// the window's views out when its size changes.
class ClientArea : public QWidget {
public:
    explicit ClientArea(xPWin* window) : QWidget(window), window(window) { setMouseTracking(true); }

protected:
    void mouseMoveEvent(QMouseEvent* event) override
    {
        window->MouseMovedTo(event->position().toPoint());
        QWidget::mouseMoveEvent(event);
    }
    void resizeEvent(QResizeEvent* event) override
    {
        QWidget::resizeEvent(event);
        window->LayOut(size());
    }

private:
    xPWin* window;
};

const char* const kTurnHelpOn = "Turn Help On";
const char* const kTurnHelpOff = "Turn Help Off";

QFont LineFont(int line)
{
    QFont font(QStringLiteral("helvetica"), line == 0 ? 10 : 8);
    font.setStyleHint(QFont::SansSerif);
    return font;
}

} // namespace

xPWin::xPWin(xDoc* document, bool help) : xCommandTarget(document), xPromptHost("xPWin"), document(document)
{
    client = new ClientArea(this);
    setCentralWidget(client);
    if (help) {
        panel = new QFrame(client);
        panel->setAutoFillBackground(true);
        QPalette grey = panel->palette();
        grey.setColor(QPalette::Window, QColor(192, 192, 192));
        panel->setPalette(grey);
        for (int i = 0; i < kLineCount; ++i) {
            lines[i] = new QLabel(panel);
            lines[i]->setFont(LineFont(i));
        }
        MakePromptLists();
    } else {
        helpOn = false;
    }
    menuBar = std::make_unique<xQtMenuBar>(
        this, [this](long id) { MenuChosen(id); }, [this] { RefreshMenus(); });
    DoSetUpMenus(*menuBar);
}

xPWin::~xPWin() = default;

QRect xPWin::PlacementFrame(int otherDocuments) const
{
    int titleBar = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    int menuBarHeight = QMainWindow::menuBar()->sizeHint().height();
    QRect frame(QPoint(2, titleBar), QPoint(638, 500 - titleBar - menuBarHeight));
    int width = 0, height = 0;
    Platform().ScreenSize(width, height);
    frame.moveCenter(QPoint(width / 2, height / 2));
    frame.translate(20 * otherDocuments, 20 * otherDocuments);
    return frame;
}

int xPWin::PanelHeight() const
{
    if (!panel)
        return 0;
    int height = 2;
    for (QLabel* line : lines)
        height += QFontMetrics(line->font()).height();
    return std::max(kPanelHeight, height + 2);
}

int xPWin::PanelWidthFor(const std::vector<std::string>& texts) const
{
    if (!panel)
        return 0;
    int widest = 0;
    for (const std::string& text : texts) {
        size_t start = 0;
        for (int i = 0; i < kLineCount && start <= text.size(); ++i) {
            size_t end = text.find('\n', start);
            QString part = QString::fromStdString(text.substr(start, end == std::string::npos ? end : end - start));
            widest = std::max(widest, QFontMetrics(lines[i]->font()).horizontalAdvance(part));
            if (end == std::string::npos)
                break;
            start = end + 1;
        }
    }
    // The line's place in the panel, and a little air.
    return widest + 2 + 8;
}

int xPWin::LayOutPanel(const QSize& clientSize)
{
    if (!panel)
        return clientSize.height();
    int right = clientSize.width() - kPanelMargin;
    if (okButton) {
        // The buttons stand in the bottom right corner, the panel beside them.
        int buttonWidth = std::max({80, okButton->sizeHint().width(), cancelButton->sizeHint().width()});
        int buttonHeight = std::max(25, okButton->sizeHint().height());
        int bottom = clientSize.height() - kPanelMargin;
        okButton->setGeometry(right - buttonWidth, bottom - buttonHeight, buttonWidth, buttonHeight);
        cancelButton->setGeometry(right - buttonWidth, bottom - 2 * buttonHeight - 5, buttonWidth, buttonHeight);
        right -= buttonWidth + kPanelMargin;
    }
    int height = PanelHeight();
    int top = clientSize.height() - kPanelMargin - height;
    panel->setGeometry(kPanelMargin, top, std::max(0, right - kPanelMargin), height);
    int y = 2;
    for (QLabel* line : lines) {
        int lineHeight = QFontMetrics(line->font()).height();
        line->setGeometry(2, y, std::max(0, panel->width() - 4), lineHeight);
        y += lineHeight;
    }
    return top;
}

void xPWin::LayOut(const QSize& clientSize)
{
    LayOutPanel(clientSize);
}

void xPWin::MouseMovedTo(const QPoint& point)
{
    const char* text = nullptr;
    if (PromptMoved(point, text))
        DoCommand(kShowPrompt, const_cast<char*>(text));
}

void xPWin::ShowPrompt(const char* text)
{
    if (!panel)
        return;
    for (QLabel* line : lines)
        line->clear();
    if (helpOn && text) {
        // The heading and three lines; anything behind them is not shown.
        std::string all(text);
        size_t start = 0;
        for (int i = 0; i < kLineCount && start <= all.size(); ++i) {
            size_t end = all.find('\n', start);
            std::string part = all.substr(start, end == std::string::npos ? std::string::npos : end - start);
            lines[i]->setText(QString::fromStdString(part));
            if (end == std::string::npos)
                break;
            start = end + 1;
        }
    }
    panel->update();
}

void xPWin::AddOkCancel()
{
    if (okButton)
        return;
    okButton = new QPushButton(QStringLiteral("OK"), client);
    cancelButton = new QPushButton(QStringLiteral("Cancel"), client);
    QObject::connect(okButton, &QPushButton::clicked, this, [this] { DoCommand(kOk, okButton); });
    QObject::connect(cancelButton, &QPushButton::clicked, this, [this] { DoCommand(kCancel, cancelButton); });
    okButton->show();
    cancelButton->show();
    LayOut(client->size());
}

void xPWin::DoCommand(long command, void* data)
{
    switch (command) {
    case kOk:
    case kCancel:
        CloseWindow();
        return;
    case kShowPrompt:
        ShowPrompt(static_cast<const char*>(data));
        return;
    case kToggleHelp:
    case kNullCommand:
        DoMenuCommand(command);
        return;
    default:
        xCommandTarget::DoCommand(command, data);
    }
}

void xPWin::DoMenuCommand(long command)
{
    switch (command) {
    case kToggleHelp:
        // The lines on the screen stay until the mouse moves on.
        helpOn = !helpOn;
        menuBar->SetText(kToggleHelp, helpOn ? kTurnHelpOff : kTurnHelpOn);
        menuBar->Update();
        return;
    case kNullCommand:
        return;
    default:
        // Down to the document, and from it to the application.
        if (document)
            xEdit2App::RouteFromDocument(*document, command);
        else
            xCommandTarget::DoCommand(command, nullptr);
    }
}

void xPWin::DoSetUpMenus(xQtMenuBar& bar)
{
    bar.Remove(xQtMenuBar::kFontMenu);
    bar.Remove(xQtMenuBar::kHelpMenu);
    bar.AddMenu(kHelpMenu, "Help");
    bar.AddEntry(kHelpMenu, kToggleHelp, helpOn ? kTurnHelpOff : kTurnHelpOn);
    // The about window has no entry of its own in the resource; here it is
    // where a desktop user looks for it.
    bar.AddSeparator(kHelpMenu);
    bar.AddEntry(kHelpMenu, kAbout, "&About...");
}

void xPWin::DoUpdateMenus(xQtMenuBar& bar)
{
    if (helpOn)
        bar.Enable(kToggleHelp, true);
    // Another window may have turned prompts over since.
    bar.SetText(kToggleHelp, helpOn ? kTurnHelpOff : kTurnHelpOn);
    bar.Enable(xDoc::kClose, true);
}

void xPWin::MenuChosen(long command)
{
    QPointer<xPWin> self(this);
    QTimer::singleShot(0, qApp, [self, command] {
        if (self)
            self->DoMenuCommand(command);
        // The command may have closed the window.
        if (self)
            self->RefreshMenus();
    });
}

void xPWin::RefreshMenus()
{
    DoUpdateMenus(*menuBar);
    if (!document)
        return;
    document->DoUpdateMenus(*menuBar);
    if (auto* app = dynamic_cast<xEdit2App*>(document->NextTarget()))
        app->DoUpdateMenus(*menuBar);
    setWindowModified(document->IsChanged());
}
