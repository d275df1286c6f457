#include "app/xTaskWin.h"

#include "app/xEdit2App.h"
#include "app/xQtMenuBar.h"
#include "frame/xPWin.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

xTaskWin::xTaskWin(xEdit2App& app) : app(app)
{
    setWindowTitle(QStringLiteral("Tolvad"));
    menuBar = std::make_unique<xQtMenuBar>(
        this, [this](long id) { Command(id); }, [this] { this->app.DoUpdateMenus(*menuBar); });
    this->app.DoSetUpMenus(*menuBar);
    menuBar->AddMenu(xPWin::kHelpMenu, "&Help");
    menuBar->AddEntry(xPWin::kHelpMenu, xPWin::kAbout, "&About...");
    this->app.DoUpdateMenus(*menuBar);

    auto* client = new QWidget(this);
    auto* layout = new QVBoxLayout(client);
    auto* text = new QLabel(QStringLiteral("No descriptor is open."), client);
    text->setAlignment(Qt::AlignCenter);
    newButton = new QPushButton(QStringLiteral("&New"), client);
    openButton = new QPushButton(QStringLiteral("&Open..."), client);
    layout->addWidget(text);
    layout->addWidget(newButton);
    layout->addWidget(openButton);
    QObject::connect(newButton, &QPushButton::clicked, this, [this] { Command(xDoc::kNew); });
    QObject::connect(openButton, &QPushButton::clicked, this, [this] { Command(xDoc::kOpen); });
    setCentralWidget(client);
    resize(std::max(360, sizeHint().width()), std::max(200, sizeHint().height()));
}

xTaskWin::~xTaskWin() = default;

void xTaskWin::Command(long id)
{
    // From the event loop: a command may close this very window.
    xEdit2App* application = &app;
    QTimer::singleShot(0, qApp, [application, id] { application->RouteMenuCommand(id, nullptr); });
}

void xTaskWin::closeEvent(QCloseEvent* event)
{
    event->ignore();
    Command(xDoc::kExit);
}
