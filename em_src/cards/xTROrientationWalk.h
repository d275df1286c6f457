#ifndef TOLVAD_CARDS_XTRORIENTATIONWALK_H
#define TOLVAD_CARDS_XTRORIENTATIONWALK_H

#include "model/xTRClasf.h"

#include <cstdint>

// What the orientation selector of a card knows: its own copy of the
// classification and the orientation it stands on. Next and Previous walk the
// orientations with a count, wrapping round the codes 100 to 109.
class xTROrientationWalk {
public:
    // Stands on the lowest code with a count.
    explicit xTROrientationWalk(const xTRClasf& clasf);

    int32_t Code() const { return code; }
    const xTRClasf& Clasf() const { return clasf; }

    // Moves to code without a word; false when it stood there already.
    bool SetCode(int32_t newCode);
    // The next code with a count above the current one (from 100 when
    // fromStart, or past 109); true when that is another code than before.
    bool Next(bool fromStart);
    // The next code with a count below the current one, wrapping from 100 to 109.
    bool Previous();
    // The orientation leaves the copy; when it was the current one, other
    // becomes current.
    void RemoveOrientation(int32_t removed, int32_t other);
    // The orientation joins the copy with its count.
    void AddOrientation(int32_t added, int32_t count);

    int TxComponent() const;
    int RxComponent() const;

private:
    bool HasCount(int32_t at) const;
    // The first code with a count from start, stepping by step (+1 or -1)
    // and wrapping; the current code when no code has a count.
    int32_t FindFrom(int32_t start, int step) const;
    bool MoveTo(int32_t target);

    xTRClasf clasf;
    int32_t code;
};

#endif
