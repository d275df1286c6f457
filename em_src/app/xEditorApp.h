#ifndef TOLVAD_APP_XEDITORAPP_H
#define TOLVAD_APP_XEDITORAPP_H

#include "app/xEdit2App.h"

#include <memory>

class xTaskWin;

// The application on screen: descriptors in windows of cards, the start
// dialog, the about window, and a task window while no descriptor is open.
// Needs a running QApplication.
class xEditorApp : public xEdit2App {
public:
    xEditorApp();
    ~xEditorApp() override;

    void StartUp() override;
    // The event loop, until the application ends.
    int Run();
    void DoAboutBox() override;
    // Null while a descriptor is open.
    xTaskWin* TaskWindow() const;

protected:
    std::unique_ptr<xDoc> MakeDocument() override;
    bool RunStartDialog(long& command) override;
    void EndEventLoop() override;
    void DocumentsChanged() override;
    int TitleBarHeight() const override;

private:
    std::unique_ptr<xTaskWin> taskWindow;
    bool running = false;
    bool destroying = false;
};

#endif
