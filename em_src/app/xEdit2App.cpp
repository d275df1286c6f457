#include "app/xEdit2App.h"

#include "frame/xFileDialog.h"
#include "gui/xMenuBar.h"
#include "gui/xPlatform.h"
#include "model/xEMDesc.h"

#include <algorithm>
#include <new>
#include <regex>

xEdit2App::xEdit2App() = default;

xEdit2App::~xEdit2App()
{
    DestroyAllDocuments();
}

void xEdit2App::SetStartupFiles(const std::vector<std::string>& names)
{
    startupFiles = names;
    startupFileCount = static_cast<int32_t>(names.size());
}

void xEdit2App::StartUp()
{
    // One string of all names: the command line takes one file, and a name
    // with blanks may come in pieces.
    std::string names;
    for (int32_t i = 0; i < startupFileCount && i < static_cast<int32_t>(startupFiles.size()); ++i) {
        if (i > 0)
            names += ' ';
        names += startupFiles[i];
    }
    startupFileCount = 0;

    if (!names.empty()) {
        StartWithFile(names);
        return;
    }
    long command = 0;
    if (RunStartDialog(command)) {
        DoMenuCommand(command, false, false);
        return;
    }
    if (DoCloseAll())
        EndEventLoop();
}

void xEdit2App::StartWithFile(const std::string& names)
{
    xFileSpec spec;
    spec.SetPath(names);
    spec.type = "DSC";
    spec.creator.clear();

    static const std::regex extension(".[dD][sS][cC]$");
    if (!std::regex_search(names, extension)) {
        PostError("Wrong file selection! <***.DSC> file has to be selected. Please try again.");
        return;
    }
    if (GetFileAttribute(&spec, 1) != 1)
        return;
    xDoc* doc = CreateDocument();
    doc->SetFileSpec(spec);
    doc->Load();
    doc->BuildWindow();
}

void xEdit2App::DoNew()
{
    CreateDocument()->BuildWindow();
}

bool xEdit2App::DoOpen()
{
    xDoc* doc = CreateDocument();
    for (;;) {
        if (doc->DoOpen())
            return true;
        int answer = PostAsk("Quit", "Try again", nullptr, "You have to select a DSC file at this stage.");
        if (answer != 1)
            break;
    }
    // Quit ends it all, changed documents included.
    DestroyAllDocuments();
    EndEventLoop();
    return false;
}

void xEdit2App::DoAboutBox()
{
    PostNote("%s", AboutText().c_str());
}

bool xEdit2App::DoCloseAll()
{
    while (!documents.empty()) {
        xDoc* doc = documents.front().get();
        if (!doc->DoClose())
            return false;
        DestroyDocument(doc);
    }
    return true;
}

void xEdit2App::DoSaveAll()
{
    for (size_t i = 0; i < documents.size(); ++i) {
        if (documents[i]->IsChanged())
            documents[i]->DoSave();
    }
}

void xEdit2App::DoMenuCommand(long command, bool shift, bool control)
{
    if (command == kImportOld)
        PostNote("xEdit2App::DoMenuCommand() Import of old format descriptors not supported.");
    // Past the window commands of the base, on purpose.
    ApplicationMenuCommand(command, shift, control);
}

void xEdit2App::ApplicationMenuCommand(long command, bool /*shift*/, bool /*control*/)
{
    switch (command) {
    case xDoc::kNew:
        DoNew();
        break;
    case xDoc::kOpen:
        DoOpen();
        break;
    case xDoc::kClose:
        DoCloseAll();
        break;
    case xDoc::kSave:
        DoSaveAll();
        break;
    case xDoc::kExit:
        if (DoCloseAll())
            EndEventLoop();
        break;
    case xDoc::kAbout:
        DoAboutBox();
        break;
    default:
        // Save As, Revert, Print Setup and Print have nothing to work on
        // without a document.
        break;
    }
}

void xEdit2App::RouteMenuCommand(long command, xDoc* doc, bool shift, bool control)
{
    if (doc) {
        if (command == xDoc::kClose) {
            if (doc->DoClose())
                DestroyDocument(doc);
            return;
        }
        if (doc->DoMenuCommand(command, shift, control))
            return;
    }
    DoMenuCommand(command, shift, control);
}

void xEdit2App::RouteFromDocument(xDoc& doc, long command)
{
    if (auto* app = dynamic_cast<xEdit2App*>(doc.NextTarget())) {
        app->RouteMenuCommand(command, &doc);
        return;
    }
    if (command == xDoc::kClose)
        doc.DoClose();
    else
        doc.DoMenuCommand(command, false, false);
}

void xEdit2App::DoCommand(long command, void* data)
{
    // Past the base's handler: its window commands mean nothing here.
    ApplicationCommand(command, data);
}

void xEdit2App::ApplicationCommand(long command, void* /*data*/)
{
    DoMenuCommand(command, false, false);
}

void xEdit2App::DoSetUpMenus(xMenuBar& menuBar)
{
    menuBar.Remove(kFontMenu);
    menuBar.Remove(kHelpMenuA);
    menuBar.Remove(kHelpMenuB);
    menuBar.Enable(xDoc::kOpen, true);
    menuBar.Enable(xDoc::kNew, true);
    menuBar.Update();
}

void xEdit2App::DoUpdateMenus(xMenuBar& menuBar)
{
    menuBar.Enable(xDoc::kOpen, true);
    menuBar.Enable(kImportOldMenu, false);
    menuBar.Enable(xDoc::kNew, true);
    menuBar.Enable(kImportOld, true);
}

std::string xEdit2App::AboutText()
{
    return FormatText("Tolvad v.%5.2f (file v.%d)", static_cast<double>(kProgramVersion), kFileVersion);
}

void xEdit2App::ReportPower(long number, const char* file, int line)
{
    PostFatalExit("XVT-Power++ Error: #%ld, File:%s, Line:%d", number, file ? file : "", line);
}

void xEdit2App::DestroyDocument(xDoc* doc)
{
    auto found = std::find_if(documents.begin(), documents.end(),
                              [doc](const std::unique_ptr<xDoc>& d) { return d.get() == doc; });
    if (found == documents.end())
        return;
    // Out of the list before it goes, so nothing reaches a half-destroyed document.
    std::unique_ptr<xDoc> gone = std::move(*found);
    documents.erase(found);
    gone.reset();
    DocumentsChanged();
}

void xEdit2App::DestroyAllDocuments()
{
    if (documents.empty())
        return;
    while (!documents.empty()) {
        std::unique_ptr<xDoc> gone = std::move(documents.back());
        documents.pop_back();
    }
    DocumentsChanged();
}

std::unique_ptr<xDoc> xEdit2App::MakeDocument()
{
    // A new descriptor names itself "untitled.DSC" and is an ASCII file.
    return std::make_unique<xEMDesc>();
}

bool xEdit2App::RunStartDialog(long& command)
{
    command = xDoc::kNew;
    return true;
}

void xEdit2App::EndEventLoop()
{
    ended = true;
}

xDoc* xEdit2App::CreateDocument()
{
    std::unique_ptr<xDoc> doc;
    try {
        doc = MakeDocument();
    } catch (const std::bad_alloc&) {
        doc.reset();
    }
    if (!doc)
        ReportPower(kOutOfMemory, __FILE__, __LINE__);
    doc->SetNextTarget(this);
    doc->SetId(static_cast<long>(documents.size()) + 1);
    documents.push_back(std::move(doc));
    DocumentsChanged();
    return documents.back().get();
}
