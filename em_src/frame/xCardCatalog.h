#ifndef TOLVAD_FRAME_XCARDCATALOG_H
#define TOLVAD_FRAME_XCARDCATALOG_H

#include <string>

class xCard;
class xDWin;
class xEMWinDesc;

// The cards that exist, by title. A card joins with one line in the table of
// xCardCatalog.cpp: its title and the function that makes it on the
// document's current records, in the window's card frame, ready to be
// appended (its selector added, its tables loaded). A title without a card
// is simply not shown. Register puts a card in (or replaces one) at run time.
class xCardCatalog {
public:
    using Maker = xCard* (*)(xEMWinDesc& document, xDWin& window);

    static bool Exists(const std::string& title);
    // The new card, or null for a title that has no card.
    static xCard* Make(const std::string& title, xEMWinDesc& document, xDWin& window);
    // A maker for a title; null takes the title out.
    static void Register(const std::string& title, Maker make);
};

#endif
