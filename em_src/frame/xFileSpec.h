#ifndef TOLVAD_FRAME_XFILESPEC_H
#define TOLVAD_FRAME_XFILESPEC_H

#include <string>

// The identity of a document's file: the directory as a path text, the name,
// the type (the extension the file dialog filters by) and the creator. Name,
// type and creator keep the widths of their fixed fields (a C string of 257, 6
// and 6 bytes); the setters of xDoc cut to them, the file dialog and the file
// queries take whatever a caller put in.
struct xFileSpec {
    static constexpr size_t kNameSize = 257;
    static constexpr size_t kTypeSize = 6;
    static constexpr size_t kCreatorSize = 6;
    // Longest path the file queries accept, less one.
    static constexpr size_t kMaxPath = 1024;

    xFileSpec();   // the platform's default directory, empty name and type, creator "????"

    std::string directory;   // empty: no directory that converts to a path
    std::string type;
    std::string name;
    std::string creator;

    // The directory as a path text; false when it can't be converted.
    bool DirectoryText(std::string& text) const;
    // Takes a path text as the directory, a relative one from the current
    // directory; false (and no change) when it can't be converted: an empty
    // text, an embedded null, or one too long for a path.
    bool SetDirectoryText(const std::string& text);
    // Directory text, the separator, the name; the name alone when the
    // directory can't be converted.
    std::string FullPath() const;

    // Splits a path at its last separator into directory and name. A path
    // written on Windows counts its backslashes as separators. No separator:
    // the directory is the current one; a directory that can't be converted
    // also gives the current one.
    void SetPath(const std::string& path);

    // A text cut to a field of the given size in bytes (the last byte ends the C string).
    static std::string Fit(const std::string& text, size_t fieldSize);
};

#endif
