#ifndef TOLVAD_CARDS_XCARDCHECKS_H
#define TOLVAD_CARDS_XCARDCHECKS_H

#include "frame/xCardLogic.h"

#include <memory>
#include <string>
#include <vector>

class xEMEditDesc;

// The cards' checks with no screen: the logic of each card that a window on a
// descriptor holds, made on the document and asked whether the records as
// they stand would make the card complete. A card's logic joins with one line
// in the table of xCardChecks.cpp.
class xCardChecks {
public:
    struct Failure {
        int code;              // the orientation that was current
        std::string title;     // the card
        std::string message;   // what its Apply says
    };

    // The logic of the card of that title, made on the document's current
    // records; null for a card that has none.
    static std::unique_ptr<xCardLogic> MakeLogic(const std::string& title, xEMDesc& document);

    // For every orientation of the descriptor, in ascending code order, the
    // checks of every card its window would show. The orientation that was
    // current is current again afterwards. Empty: every card is complete.
    static std::vector<Failure> Run(xEMEditDesc& document);
};

#endif
