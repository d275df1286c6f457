#ifndef TOLVAD_FRAME_XDOC_H
#define TOLVAD_FRAME_XDOC_H

#include "frame/xDocWindow.h"
#include "frame/xFileSpec.h"
#include "gui/xCommandTarget.h"

#include <cstdint>
#include <fstream>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

class xMenuBar;

// A document bound to one file. It keeps the file's identity, one file buffer
// with an input and an output stream over it, the rules of opening for reading
// and writing, and the file side of Open, Save, Save As and Close. What is read
// and written is left to Read and Write.
class xDoc : public xCommandTarget {
public:
    // Menu commands a document takes or passes on.
    enum {
        kNew = 32001,
        kOpen = 32002,
        kClose = 32003,
        kSave = 32004,
        kSaveAs = 32005,
        kRevert = 32006,
        kPrintSetup = 32007,
        kPrint = 32008,
        kExit = 32009,
        kAbout = 32010
    };

    // The boss is the next link of the command chain (the application); the
    // application numbers its documents from 1.
    explicit xDoc(xCommandTarget* boss = nullptr, long id = 0);
    ~xDoc() override;
    xDoc(const xDoc&) = delete;
    xDoc& operator=(const xDoc&) = delete;

    long Id() const { return id; }
    void SetId(long newId) { id = newId; }

    // --- The file's identity ---
    // Stores the whole name; an extension of at most 3 characters becomes the
    // type, a longer one leaves the type as it was.
    void SetFileName(const std::string& name);
    void SetFileType(const std::string& type);
    // Refuses (with a warning) a creator of 5 or more characters; empty stores "????".
    void SetFileCreator(const std::string& creator);
    void SetDirectory(const xFileSpec& spec);
    void SetFileSpec(const xFileSpec& spec);
    // Each part that is neither null nor empty; the directory as a path text.
    void SetFileParts(const char* name, const char* directory, const char* type);
    void SetFilePath(const std::string& path);
    std::string GetFileName() const { return fileSpec->name; }
    std::string GetFileType() const { return fileSpec->type; }
    std::string GetFileCreator() const { return fileSpec->creator; }
    void GetFileSpec(xFileSpec& spec) const;
    const xFileSpec& FileSpec() const { return *fileSpec; }
    std::string GetFullPath() const;

    // --- File queries ---
    int32_t GetFileSize();
    std::string GetCreationDate() const;
    std::string GetAccessDate() const;
    bool FileExists() const;

    // --- Opening, reading and writing the whole file ---
    bool OpenForRead(const xFileSpec* spec = nullptr);
    bool OpenForRead(const char* name, const char* directory, const char* type);
    bool OpenForRead(const std::string& path);
    bool OpenForWrite(const xFileSpec* spec = nullptr);
    bool OpenForWrite(const char* name, const char* directory, const char* type);
    // File dialog, then open. An empty prompt keeps the last one; a null
    // directory keeps the document's.
    bool SelectForRead(const std::string& prompt = std::string(), const char* directory = nullptr);
    bool SelectForWrite(const std::string& prompt = std::string(), const char* directory = nullptr);
    // Read or write the whole file through Read and Write; both end with the
    // buffer closed.
    bool Load();
    bool Store();

    // --- Lines and bytes ---
    // Reads the next line of a stream up to LF, CR or CR LF; the end is not
    // part of the text. Returns 0 at the end of the stream (which stays good,
    // so a last line without an end reads normally), 1 for CR LF, 2 for LF, 3
    // for CR. A null text drops the characters; a failed stream gives an
    // empty text and 0.
    static int ReadLine(std::istream& in, std::string* text);
    static std::string GetLine(std::istream& in);
    // The same on the document's input stream; without one, an empty text and 0.
    int ReadLine(std::string* text);
    // Binary access to the open file; true while the stream is good.
    // WriteBytes does nothing on a read-only file.
    bool ReadBytes(char* buffer, long count);
    bool WriteBytes(const char* buffer, long count);
    // Both streams to one byte position; true when they got there.
    bool Seek(long position);
    long Tell();
    void Flush();
    bool IsWritable() const;

    bool DeleteFile();
    bool IsAttached() const { return fileBuf.is_open(); }
    void CloseFile();
    bool StreamGood() const;
    // Clears both streams and puts them back at the start, opening the file
    // when it is closed; a stream that can't be reset is fatal.
    void ResetStream();

    // --- Changes and windows ---
    bool IsChanged() const { return changed; }
    // A new value makes every window update its menus; the same value does nothing.
    void SetChanged(bool value);

    xDocWindow* AddWindow(std::unique_ptr<xDocWindow> window);
    // Lets go of a window without destroying it.
    std::unique_ptr<xDocWindow> TakeWindow(xDocWindow* window);
    size_t WindowCount() const { return windows.size(); }
    xDocWindow* Window(size_t index) const { return windows[index].get(); }

    // --- Commands ---
    virtual void CloseWindows();
    virtual bool DoPrint();
    virtual bool DoOpen();
    virtual bool DoSave();
    virtual bool DoSaveAs();
    virtual void DoUpdateMenus(xMenuBar& menuBar);
    // Asked whenever a window of the document closes; window may be null when
    // the document is closed with no window.
    virtual bool CanCloseWindow(xDocWindow* window);
    // The close with question: every window closes with the document's
    // consent; true when the document may go.
    virtual bool DoClose();
    // Takes its share of the menu commands (Save, Save As, Print); true when
    // it took one. Close is routed by the owner of the document, which runs
    // DoClose and destroys the document when it agreed.
    virtual bool DoMenuCommand(long command, bool shift, bool control);
    // Builds the document's window; none here.
    virtual void BuildWindow();
    // What is read from inStream and written to outStream; nothing here.
    virtual void Read();
    virtual void Write();

    // Kind of file: 1 binary, 0 ASCII.
    int32_t fileKind = 1;
    bool readOnly = false;
    // true: opening for writing truncates without a question.
    bool overwrite = true;
    // true: Store never writes over the file in place. The whole text is made
    // first and replaces the old file at once (xFileReplacer), so a save that
    // fails leaves the old file as it was; Save As opens nothing before that.
    bool replaceWhole = false;
    // true: opening a missing file for reading warns.
    bool reportMissing = true;
    std::string saveAsPrompt = "Save As :";
    std::string selectPrompt = "Select file :";

protected:
    // A question with three buttons: 0, 1 or 2; an answer that is none of
    // them is told as the error "Invalid return from ask." and gives -1.
    static int AskOfThree(const char* first, const char* second, const char* third, const std::string& text);

    // Owned; made by the openings over fileBuf.
    std::istream* inStream = nullptr;
    std::ostream* outStream = nullptr;

private:
    bool StoreWhole();
    void DeleteStreams();
    void MakeStreams();
    void OpenBuffer(std::ios::openmode mode);
    void ReleaseWindow(xDocWindow* window);
    friend class xDocWindow;

    std::filebuf fileBuf;
    std::unique_ptr<xFileSpec> fileSpec;
    std::vector<std::unique_ptr<xDocWindow>> windows;
    bool changed = false;
    long id;
    // Save As chose the file that a whole store is to create.
    bool writeChosen = false;
};

#endif
