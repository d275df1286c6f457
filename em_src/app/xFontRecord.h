#ifndef TOLVAD_APP_XFONTRECORD_H
#define TOLVAD_APP_XFONTRECORD_H

#include <string>

// A font as the settings file names it: a family ("system", "courier",
// "helvetica", "times"), a style (0 none, 1 bold, 2 italic) and a size in
// points. The screen turns it into a real font.
struct xFontRecord {
    std::string family = "system";
    int style = 1;
    int size = 10;
};

#endif
