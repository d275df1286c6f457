// The editor: `tolvad [FILE.DSC]` opens the descriptor in a window of cards;
// without a file the start dialog asks for a new or an existing one.
#include "app/xEditorApp.h"
#include "frame/xFileReplacer.h"
#include "gui/xQtPlatform.h"

#include <QApplication>
#include <QCommandLineParser>

#include <clocale>
#include <cstdio>
#include <string>
#include <vector>

int main(int argc, char** argv)
{
    {
        // Help and version need no screen: the command line is read first.
        QCoreApplication reader(argc, argv);
        QCoreApplication::setApplicationName(QStringLiteral("tolvad"));
        QCommandLineParser parser;
        parser.setApplicationDescription(QStringLiteral("Editor of EM system descriptors (.DSC files)."));
        parser.addHelpOption();
        QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                   QStringLiteral("Shows the version of the program and of its file format."));
        parser.addOption(version);
        parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("The descriptor to open."),
                                     QStringLiteral("[FILE.DSC]"));
        // Options of Qt's own (-platform, -style) are not the parser's: they
        // are left for the application below, which takes them out.
        parser.parse(QCoreApplication::arguments());
        if (parser.isSet(QStringLiteral("help")) || parser.isSet(QStringLiteral("help-all")))
            parser.showHelp(0);
        if (parser.isSet(version)) {
            std::printf("%s\n", xEdit2App::AboutText().c_str());
            return 0;
        }
    }

    QApplication qt(argc, argv);
    // Fields, the clipboard and the files read "0.25" in every language.
    std::setlocale(LC_NUMERIC, "C");
    QCoreApplication::setApplicationName(QStringLiteral("tolvad"));
    QCoreApplication::setApplicationVersion(QString::fromStdString(xEdit2App::AboutText()));
    QGuiApplication::setDesktopFileName(QStringLiteral("tolvad"));
    // Closing the last descriptor leaves the application running, with its task window.
    QApplication::setQuitOnLastWindowClosed(false);

    xQtPlatform platform;
    SetPlatform(&platform);
    xFileReplacer::RemoveTemporariesOnSignals();
    {
        xEditorApp app;
        // The names as given, argument 0 left out and Qt's options taken out.
        std::vector<std::string> names(argv + 1, argv + argc);
        app.SetStartupFiles(names);
        app.StartUp();
        // A start that ended (Cancel in the start dialog) has no loop to run.
        if (!app.HasEnded())
            app.Run();
    }
    SetPlatform(nullptr);
    return 0;
}
