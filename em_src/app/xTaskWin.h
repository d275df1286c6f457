#ifndef TOLVAD_APP_XTASKWIN_H
#define TOLVAD_APP_XTASKWIN_H

#include <QMainWindow>

#include <memory>

class QPushButton;
class xEdit2App;
class xQtMenuBar;

// The window of the application while no descriptor is open: the menu bar of
// resource 9001 as the application sets it up, and buttons for New and Open.
// Closing it is Exit.
class xTaskWin : public QMainWindow {
public:
    explicit xTaskWin(xEdit2App& app);
    ~xTaskWin() override;

    xQtMenuBar& MenuBar() const { return *menuBar; }
    QPushButton* NewButton() const { return newButton; }
    QPushButton* OpenButton() const { return openButton; }
    // Runs a command of the application from the event loop.
    void Command(long id);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    xEdit2App& app;
    std::unique_ptr<xQtMenuBar> menuBar;
    QPushButton* newButton;
    QPushButton* openButton;
};

#endif
