#ifndef TOLVAD_FRAME_XFILEDIALOG_H
#define TOLVAD_FRAME_XFILEDIALOG_H

#include "frame/xFileSpec.h"

#include <string>

// Results of the file dialog.
enum { kFileDialogFailed = 0, kFileDialogCancelled = 1, kFileDialogChosen = 2 };

// Shows the platform's file dialog for the xFileSpec's type, starting in its
// directory; a choice goes into its name and directory, a cancel leaves the
// xFileSpec as it was. The current directory is the same after as before.
int FileDialog(xFileSpec* spec, const std::string& prompt, bool isOpen, void* parent = nullptr);
int FileOpenDialog(xFileSpec* spec, const std::string& prompt, void* parent = nullptr);
// After a choice, asks before replacing a file of the chosen name in the
// current directory; "No" counts as a cancel.
int FileSaveDialog(xFileSpec* spec, const std::string& prompt, void* parent = nullptr);

// A property of the xFileSpec's file by code: 1 regular file, 2/3/4 owner may
// read/write/execute, 5 directory (1 or 0 each), 6 link count, 7 size, 8 last
// access, 9 last change of contents, 10 creation time, 11 zero; 12, 13 and 14
// put the directory, the name and the type into text and give 1. A null xFileSpec,
// an unknown code, a directory that can't be converted, a path too long or a
// failing status query give -1.
long GetFileAttribute(const xFileSpec* spec, int code, std::string* text = nullptr);

#endif
