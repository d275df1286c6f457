#include "frame/xDoc.h"

#include "frame/xFileDialog.h"
#include "frame/xFileReplacer.h"
#include "gui/xMenuBar.h"
#include "gui/xPlatform.h"

#include <algorithm>
#include <climits>
#include <ctime>
#include <istream>
#include <ostream>
#include <sstream>
#include <utility>

namespace {

std::string LocalDate(long seconds)
{
    if (seconds < 0)
        return std::string();
    std::time_t time = static_cast<std::time_t>(seconds);
    std::tm local{};
    if (!localtime_r(&time, &local))
        return std::string();
    char buffer[64];
    size_t length = std::strftime(buffer, sizeof buffer, "%x", &local);
    return std::string(buffer, length);
}

} // namespace

xDoc::xDoc(xCommandTarget* boss, long id)
    : xCommandTarget(boss), fileSpec(new xFileSpec), id(id)
{
}

xDoc::~xDoc()
{
    // Windows go first: they may still ask their document on the way out.
    while (!windows.empty()) {
        std::unique_ptr<xDocWindow> window = std::move(windows.back());
        windows.pop_back();
        window->document = nullptr;
    }
    CloseFile();
    DeleteStreams();
}

// --- The file's identity ---

void xDoc::SetFileName(const std::string& name)
{
    std::string fitted = xFileSpec::Fit(name, xFileSpec::kNameSize);
    size_t point = fitted.rfind('.');
    if (point != std::string::npos && fitted.size() - point < 5)
        SetFileType(fitted.substr(point + 1));
    fileSpec->name = fitted;
}

void xDoc::SetFileType(const std::string& type)
{
    fileSpec->type = xFileSpec::Fit(type, xFileSpec::kTypeSize);
}

void xDoc::SetFileCreator(const std::string& creator)
{
    if (creator.size() >= 5) {
        PostWarning("xDoc::Attempt to set illegal file creator string.");
        return;
    }
    fileSpec->creator = creator.empty() ? std::string("????") : creator;
}

void xDoc::SetDirectory(const xFileSpec& spec)
{
    fileSpec->directory = spec.directory;
}

void xDoc::SetFileSpec(const xFileSpec& spec)
{
    if (&spec == fileSpec.get())
        return;
    SetDirectory(spec);
    SetFileName(spec.name);
    SetFileType(spec.type);
}

void xDoc::SetFileParts(const char* name, const char* directory, const char* type)
{
    if (directory && *directory)
        fileSpec->SetDirectoryText(directory);
    if (name && *name)
        SetFileName(name);
    if (type && *type)
        SetFileType(type);
}

void xDoc::SetFilePath(const std::string& path)
{
    xFileSpec parts;
    parts.SetPath(path);
    fileSpec->directory = parts.directory;
    SetFileName(parts.name);
}

void xDoc::GetFileSpec(xFileSpec& spec) const
{
    spec.directory = fileSpec->directory;
    spec.name = fileSpec->name;
    spec.type = fileSpec->type;
}

std::string xDoc::GetFullPath() const
{
    return fileSpec->FullPath();
}

// --- File queries ---

int32_t xDoc::GetFileSize()
{
    // Close around the query so that what was written counts, then come back
    // open at the start.
    bool attached = IsAttached();
    CloseFile();
    long size = GetFileAttribute(fileSpec.get(), 7);
    if (attached) {
        OpenBuffer(readOnly ? std::ios::in : std::ios::in | std::ios::out);
        if (inStream)
            inStream->clear();
        if (outStream)
            outStream->clear();
        if (!IsAttached()) {
            if (inStream)
                inStream->setstate(std::ios::failbit);
            if (outStream)
                outStream->setstate(std::ios::failbit);
        }
    }
    if (size < 0)
        return 0;
    return static_cast<int32_t>(std::min<long>(size, INT32_MAX));
}

std::string xDoc::GetCreationDate() const
{
    return LocalDate(GetFileAttribute(fileSpec.get(), 10));
}

std::string xDoc::GetAccessDate() const
{
    return LocalDate(GetFileAttribute(fileSpec.get(), 8));
}

bool xDoc::FileExists() const
{
    long regular = GetFileAttribute(fileSpec.get(), 1);
    return regular != 0 && regular != -1;
}

// --- Opening ---

void xDoc::OpenBuffer(std::ios::openmode mode)
{
    if (fileKind == 1)
        mode |= std::ios::binary;
    // The full path names the same file as the bare name in the directory just
    // made current, and still does when that directory could not be entered.
    fileBuf.open(GetFullPath(), mode);
}

void xDoc::MakeStreams()
{
    inStream = new std::istream(&fileBuf);
    if (!readOnly)
        outStream = new std::ostream(&fileBuf);
    if (!IsAttached()) {
        inStream->setstate(std::ios::failbit);
        if (outStream)
            outStream->setstate(std::ios::failbit);
    }
}

void xDoc::DeleteStreams()
{
    delete inStream;
    inStream = nullptr;
    delete outStream;
    outStream = nullptr;
}

bool xDoc::OpenForRead(const xFileSpec* spec)
{
    if (spec)
        SetFileSpec(*spec);
    if (GetFileAttribute(fileSpec.get(), 1) != 1) {
        if (reportMissing)
            PostWarning("File %s does not exist.", GetFullPath().c_str());
        return false;
    }
    readOnly = GetFileAttribute(fileSpec.get(), 3) == 0;
    std::string directory;
    if (fileSpec->DirectoryText(directory))
        Platform().SetCurrentDirectory(directory);
    CloseFile();
    DeleteStreams();
    // Opening for reading never creates a file: in|out without trunc refuses to.
    OpenBuffer(readOnly ? std::ios::in : std::ios::in | std::ios::out);
    MakeStreams();
    return StreamGood();
}

bool xDoc::OpenForRead(const char* name, const char* directory, const char* type)
{
    SetFileParts(name, directory, type);
    return OpenForRead();
}

bool xDoc::OpenForRead(const std::string& path)
{
    SetFilePath(path);
    return OpenForRead();
}

bool xDoc::OpenForWrite(const xFileSpec* spec)
{
    if (spec)
        SetFileSpec(*spec);
    std::string directory;
    if (fileSpec->DirectoryText(directory))
        Platform().SetCurrentDirectory(directory);
    CloseFile();
    DeleteStreams();

    std::ios::openmode mode = std::ios::in | std::ios::out;
    if (overwrite)
        mode |= std::ios::trunc;
    if (!overwrite && FileExists()) {
        switch (AskOfThree("No", "Yes", "Cancel", fileSpec->name + " already exists. Do you want to overwrite it?")) {
        case 0:
            SelectForWrite();
            break;
        case 1:
            mode |= std::ios::trunc;
            break;
        case 2:
            return false;
        default:
            break;
        }
    }
    // The other name chosen after "No" is open already.
    if (IsAttached())
        return StreamGood();
    // Nothing is ever written through a document opened read-only, so the
    // file it is pointed at keeps its bytes.
    if (readOnly)
        mode &= ~std::ios::trunc;
    // Writing creates a missing file; in|out alone would refuse.
    if (!FileExists())
        mode |= std::ios::trunc;
    OpenBuffer(mode);
    DeleteStreams();
    MakeStreams();
    return StreamGood();
}

bool xDoc::OpenForWrite(const char* name, const char* directory, const char* type)
{
    SetFileParts(name, directory, type);
    return OpenForWrite();
}

bool xDoc::SelectForRead(const std::string& prompt, const char* directory)
{
    if (directory)
        fileSpec->SetDirectoryText(directory);
    if (!prompt.empty())
        selectPrompt = prompt;
    if (FileOpenDialog(fileSpec.get(), selectPrompt) != kFileDialogChosen)
        return false;
    SetFileName(fileSpec->name);
    writeChosen = false;
    return OpenForRead();
}

bool xDoc::SelectForWrite(const std::string& prompt, const char* directory)
{
    if (directory)
        fileSpec->SetDirectoryText(directory);
    if (!prompt.empty())
        saveAsPrompt = prompt;
    if (FileSaveDialog(fileSpec.get(), saveAsPrompt) != kFileDialogChosen)
        return false;
    SetFileName(fileSpec->name);
    if (replaceWhole) {
        // The chosen file is replaced by Store, not opened (and cut) now.
        std::string chosenDirectory;
        if (fileSpec->DirectoryText(chosenDirectory))
            Platform().SetCurrentDirectory(chosenDirectory);
        writeChosen = true;
        return true;
    }
    return OpenForWrite();
}

bool xDoc::Load()
{
    if (!IsAttached())
        OpenForRead();
    // Streams left from an earlier Load stay good over the closed buffer; a
    // file that could not be opened again must not reach Read through them.
    if (!IsAttached() || !inStream || !inStream->good())
        return false;
    inStream->seekg(0);
    Read();
    CloseFile();
    return !inStream->fail();
}

bool xDoc::Store()
{
    if (readOnly) {
        PostWarning("Attempt to write to read only file.");
        return false;
    }
    if (replaceWhole)
        return StoreWhole();
    if (!IsAttached())
        OpenForWrite();
    if (!outStream || !outStream->good())
        return false;
    outStream->seekp(0);
    Write();
    outStream->flush();
    CloseFile();
    return !outStream->fail();
}

int xDoc::AskOfThree(const char* first, const char* second, const char* third, const std::string& text)
{
    int answer = PostAsk(first, second, third, "%s", text.c_str());
    if (answer >= 0 && answer <= 2)
        return answer;
    PostError("Invalid return from ask.");
    return -1;
}

bool xDoc::StoreWhole()
{
    CloseFile();
    std::string directory;
    if (fileSpec->DirectoryText(directory))
        Platform().SetCurrentDirectory(directory);
    // The text is made whole in memory first: a fault while it is made never
    // leaves a file half written.
    std::ostringstream text;
    std::ostream* saved = std::exchange(outStream, &text);
    try {
        Write();
    } catch (...) {
        outStream = saved;
        throw;
    }
    outStream = saved;

    xFileReplacer replacer(GetFullPath());
    bool written = replacer.Begin();
    if (written) {
        const std::string bytes = text.str();
        replacer.Stream().write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        written = replacer.Commit();
    }
    if (!written)
        PostError("Cannot save the file - %s: %s.", GetFullPath().c_str(), replacer.Reason().c_str());
    return written;
}

// --- Lines and bytes ---

int xDoc::ReadLine(std::istream& in, std::string* text)
{
    typedef std::char_traits<char> Traits;
    if (text)
        text->clear();
    std::streambuf* buffer = in.rdbuf();
    if (in.fail() || !buffer)
        return 0;
    // Straight from the buffer, so that the end of the file leaves the stream good.
    for (;;) {
        Traits::int_type c = buffer->sbumpc();
        if (Traits::eq_int_type(c, Traits::eof()))
            return 0;
        if (c == '\n')
            return 2;
        if (c == '\r') {
            if (buffer->sgetc() == '\n') {
                buffer->sbumpc();
                return 1;
            }
            return 3;
        }
        if (text)
            text->push_back(Traits::to_char_type(c));
    }
}

std::string xDoc::GetLine(std::istream& in)
{
    std::string text;
    ReadLine(in, &text);
    return text;
}

int xDoc::ReadLine(std::string* text)
{
    if (!inStream) {
        if (text)
            text->clear();
        return 0;
    }
    return ReadLine(*inStream, text);
}

bool xDoc::ReadBytes(char* buffer, long count)
{
    if (!inStream)
        return false;
    if (count > 0)
        inStream->read(buffer, count);
    return !inStream->fail();
}

bool xDoc::WriteBytes(const char* buffer, long count)
{
    if (readOnly || !outStream)
        return false;
    if (count > 0)
        outStream->write(buffer, count);
    return !outStream->fail();
}

bool xDoc::Seek(long position)
{
    if (!inStream)
        return false;
    inStream->clear();
    inStream->seekg(position);
    if (outStream) {
        outStream->clear();
        outStream->seekp(position);
    }
    return !inStream->fail() && (!outStream || !outStream->fail());
}

long xDoc::Tell()
{
    if (!inStream)
        return -1;
    return static_cast<long>(inStream->tellg());
}

void xDoc::Flush()
{
    if (outStream)
        outStream->flush();
}

bool xDoc::IsWritable() const
{
    return IsAttached() && outStream && !readOnly;
}

bool xDoc::DeleteFile()
{
    CloseFile();
    if (!FileExists())
        return true;
    return Platform().RemoveFile(GetFullPath());
}

void xDoc::CloseFile()
{
    if (!fileBuf.is_open())
        return;
    if (outStream)
        outStream->flush();
    fileBuf.close();
}

bool xDoc::StreamGood() const
{
    if (!inStream)
        return false;
    if (readOnly)
        return inStream->good();
    return outStream && inStream->good() && outStream->good();
}

void xDoc::ResetStream()
{
    if (!IsAttached())
        OpenForRead();
    // A stream that read past the end or failed on a number is what a reset
    // is for; only a file that is not open is beyond it.
    if (!IsAttached() || !inStream)
        PostFatalExit("xDoc::Attempt to reset unattached stream for output.");
    inStream->clear();
    inStream->seekg(0);
    if (outStream) {
        outStream->clear();
        outStream->seekp(0);
    }
    if (!StreamGood())
        PostFatalExit("xDoc::Attempt to reset stream failed.");
}

// --- Changes and windows ---

void xDoc::SetChanged(bool value)
{
    if (changed == value)
        return;
    changed = value;
    for (size_t i = 0; i < windows.size(); ++i)
        windows[i]->UpdateMenus();
}

xDocWindow* xDoc::AddWindow(std::unique_ptr<xDocWindow> window)
{
    if (!window)
        return nullptr;
    window->document = this;
    windows.push_back(std::move(window));
    return windows.back().get();
}

std::unique_ptr<xDocWindow> xDoc::TakeWindow(xDocWindow* window)
{
    auto found = std::find_if(windows.begin(), windows.end(),
                              [window](const std::unique_ptr<xDocWindow>& w) { return w.get() == window; });
    if (found == windows.end())
        return nullptr;
    std::unique_ptr<xDocWindow> taken = std::move(*found);
    windows.erase(found);
    taken->document = nullptr;
    return taken;
}

void xDoc::ReleaseWindow(xDocWindow* window)
{
    // Out of the list first, so the window's destructor finds a consistent document.
    std::unique_ptr<xDocWindow> gone = TakeWindow(window);
}

// --- Commands ---

void xDoc::CloseWindows()
{
    SetChanged(false);
    while (!windows.empty()) {
        if (!windows.front()->Close())
            break;
    }
}

bool xDoc::DoPrint()
{
    if (fileKind == 1)
        PostWarning("xDoc::DoPrint() - currently supports printing of ASCII files only.");
    return false;
}

bool xDoc::DoOpen()
{
    if (!SelectForRead())
        return false;
    Load();
    BuildWindow();
    return true;
}

bool xDoc::DoSave()
{
    if (!FileExists() && !writeChosen)
        return DoSaveAs();
    if (!Store())
        return false;
    SetChanged(false);
    return true;
}

bool xDoc::DoSaveAs()
{
    if (!SelectForWrite())
        return false;
    for (size_t i = 0; i < windows.size(); ++i)
        windows[i]->SetTitle(GetFileName());
    return DoSave();
}

void xDoc::DoUpdateMenus(xMenuBar& menuBar)
{
    bool exists = FileExists();
    bool printable = exists && fileKind != 1;
    menuBar.Enable(kSaveAs, changed);
    menuBar.Enable(kSave, changed && exists);
    menuBar.Enable(kPrintSetup, printable);
    menuBar.Enable(kPrint, printable);
    // A document on screen can always be closed.
    menuBar.Enable(kClose, true);
}

bool xDoc::CanCloseWindow(xDocWindow* /*window*/)
{
    if (windows.size() >= 2 || !changed)
        return true;
    for (;;) {
        int answer = PostAsk("Save", "Discard", "Cancel", "%s has changed, save before closing?",
                             fileSpec->name.c_str());
        if (answer == 0) {
            if (DoSave())
                return true;
        } else if (answer == 1) {
            SetChanged(false);
            return true;
        } else {
            return false;
        }
    }
}

bool xDoc::DoClose()
{
    if (windows.empty())
        return CanCloseWindow(nullptr);
    while (!windows.empty()) {
        if (!windows.front()->Close())
            return false;
    }
    return true;
}

bool xDoc::DoMenuCommand(long command, bool /*shift*/, bool /*control*/)
{
    switch (command) {
    case kSave:
        DoSave();
        return true;
    case kSaveAs:
        DoSaveAs();
        return true;
    case kPrint:
        DoPrint();
        return true;
    default:
        return false;
    }
}

void xDoc::BuildWindow() {}

void xDoc::Read() {}

void xDoc::Write() {}
