#ifndef TOLVAD_APP_XEDIT2APP_H
#define TOLVAD_APP_XEDIT2APP_H

#include "app/xShellApp.h"
#include "frame/xDoc.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class xMenuBar;

// The one application object of the editor: decides at start what the first
// document is, creates documents on New and Open, closes them all on Exit and
// routes the menu commands. It owns its documents. The screen form derives
// from it and replaces the hooks (start dialog, about window, end of the
// event loop). The window commands of its base have no effect here: its
// menu and command handlers pass that base over.
class xEdit2App : public xShellApp {
public:
    // Menu commands beyond those of the document.
    enum {
        kImportOld = 10245,        // import of old descriptors, which does not exist
        kImportOldMenu = 10246,
        kFontMenu = 32050,         // tags of menus the editor doesn't show
        kHelpMenuA = 32350,
        kHelpMenuB = 32450
    };
    static constexpr float kProgramVersion = 5.0f;
    static constexpr int kFileVersion = 9;
    // Error number of a failed allocation in the application.
    static constexpr long kOutOfMemory = 311;

    xEdit2App();
    ~xEdit2App() override;
    xEdit2App(const xEdit2App&) = delete;
    xEdit2App& operator=(const xEdit2App&) = delete;

    // The file names of the command line, argument 0 left out.
    void SetStartupFiles(const std::vector<std::string>& names);
    // Start-up names not yet consumed.
    int32_t StartupFileCount() const { return startupFileCount; }

    // Runs once when the application exists: opens the file named at start,
    // or asks with the start dialog.
    virtual void StartUp();
    // The document of a name given at start; a wrong extension is said, a
    // name that is no regular file ends in silence.
    void StartWithFile(const std::string& names);

    virtual void DoNew();
    // False once the user chose "Quit" (and everything has ended).
    virtual bool DoOpen();
    virtual void DoAboutBox();
    // Closes every document with its question; stops at the first refusal,
    // those that agreed before it are gone.
    bool DoCloseAll();
    void DoSaveAll();
    void DoMenuCommand(long command, bool shift, bool control) override;
    // A menu command from the window of doc (none: the task window): the
    // document takes its share, the application the rest.
    void RouteMenuCommand(long command, xDoc* doc, bool shift = false, bool control = false);
    // The same from a window that knows only its document: through the
    // document's application, or to the document alone when it has none.
    static void RouteFromDocument(xDoc& doc, long command);
    // Commands that come up the chain from the documents.
    void DoCommand(long command, void* data) override;

    virtual void DoSetUpMenus(xMenuBar& menuBar);
    virtual void DoUpdateMenus(xMenuBar& menuBar);

    // "Tolvad v. 5.00 (file v.9)".
    static std::string AboutText();
    // Where the fatal faults of the application come to; ends the process.
    [[noreturn]] static void ReportPower(long number, const char* file, int line);

    size_t DocumentCount() const override { return documents.size(); }
    xDoc* Document(size_t index) const override { return documents[index].get(); }
    void DestroyDocument(xDoc* doc);
    // Destroys every document with no question.
    void DestroyAllDocuments();

    // Whether the end of the event loop was asked for.
    bool HasEnded() const { return ended; }

protected:
    // The document class the application creates: a descriptor (xEMDesc).
    virtual std::unique_ptr<xDoc> MakeDocument();
    // Start dialog: true on OK with the command of the choice (32001 new,
    // 32002 open); without a screen the first choice is taken.
    virtual bool RunStartDialog(long& command);
    // Ends the event loop and the application.
    virtual void EndEventLoop();
    // After a document came or went.
    virtual void DocumentsChanged() {}

    void ApplicationMenuCommand(long command, bool shift, bool control) override;
    void ApplicationCommand(long command, void* data) override;

private:
    // A new document of MakeDocument, linked and numbered; an allocation that
    // fails is fatal.
    xDoc* CreateDocument();

    std::vector<std::string> startupFiles;
    std::vector<std::unique_ptr<xDoc>> documents;
    bool ended = false;
};

#endif
