#include "app/xEditorApp.h"

#include "app/xAboutDlg.h"
#include "app/xStartDlg.h"
#include "app/xTaskWin.h"
#include "frame/xEMWinDesc.h"

#include <QApplication>
#include <QStyle>

xEditorApp::xEditorApp() = default;

xEditorApp::~xEditorApp()
{
    // The documents and their windows go before the application's window,
    // which doesn't come up for the moment between.
    destroying = true;
    DestroyAllDocuments();
}

void xEditorApp::StartUp()
{
    xEdit2App::StartUp();
    // No document after a wrong name or a failed start: New and Open stay at hand.
    DocumentsChanged();
}

int xEditorApp::Run()
{
    running = true;
    int result = QApplication::exec();
    running = false;
    return result;
}

void xEditorApp::DoAboutBox()
{
    xAboutDlg about;
    about.Run();
}

xTaskWin* xEditorApp::TaskWindow() const
{
    return taskWindow && taskWindow->isVisible() ? taskWindow.get() : nullptr;
}

std::unique_ptr<xDoc> xEditorApp::MakeDocument()
{
    return std::make_unique<xEMWinDesc>();
}

bool xEditorApp::RunStartDialog(long& command)
{
    long result = 0;
    xStartDlg dialog(&result);
    dialog.Run();
    if (xModalEdWin::Cancelled)
        return false;
    command = result;
    return true;
}

void xEditorApp::EndEventLoop()
{
    xEdit2App::EndEventLoop();
    if (taskWindow)
        taskWindow->hide();
    // Only a running loop is ended: an exit before it would stop every
    // dialog's loop that comes later.
    if (running)
        QCoreApplication::exit(0);
}

void xEditorApp::DocumentsChanged()
{
    if (HasEnded() || destroying)
        return;
    if (DocumentCount() > 0) {
        if (taskWindow)
            taskWindow->hide();
        return;
    }
    if (!taskWindow)
        taskWindow = std::make_unique<xTaskWin>(*this);
    taskWindow->show();
}

int xEditorApp::TitleBarHeight() const
{
    return QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight);
}
