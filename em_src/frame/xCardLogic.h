#ifndef TOLVAD_FRAME_XCARDLOGIC_H
#define TOLVAD_FRAME_XCARDLOGIC_H

#include "gui/xCommandTarget.h"

#include <string>

class xEMDesc;

// What a card does to the model, apart from its controls. A card's logic
// takes its records from the document (those of the current orientation),
// is fed the values the card's controls hold, stores what differs, marks the
// document changed, asks through the platform and sends its commands up the
// chain to the link it was given (the card on screen, and from there the
// window). With no controls at all, CheckRecord runs the same Apply on the
// values the record holds: nothing changes, and the result says whether the
// card would be complete.
class xCardLogic : public xCommandTarget {
public:
    // up: where the card's commands go; null drops them.
    explicit xCardLogic(xEMDesc& document, xCommandTarget* up = nullptr);

    // Apply's checks on the records as they stand; false with the reason.
    virtual bool CheckRecord(std::string& message) = 0;

    xEMDesc& Document() const { return document; }

protected:
    void MarkChanged();
    void Send(long command, void* data = nullptr);

private:
    xEMDesc& document;
};

#endif
