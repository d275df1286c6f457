#include "cards/xTROrientationWalk.h"

#include "model/xTROrientation.h"

xTROrientationWalk::xTROrientationWalk(const xTRClasf& clasf) : clasf(clasf), code(kFirstOrientationCode)
{
    code = FindFrom(kFirstOrientationCode, 1);
}

bool xTROrientationWalk::HasCount(int32_t at) const
{
    return clasf[at] != 0;
}

int32_t xTROrientationWalk::FindFrom(int32_t start, int step) const
{
    int32_t at = start;
    // Ten steps visit every code once; a table with no count at all leaves
    // the selector where it stands rather than walking for ever.
    for (int i = 0; i < kOrientationCodeCount; ++i) {
        if (HasCount(at))
            return at;
        at += step;
        if (at > kLastOrientationCode)
            at = kFirstOrientationCode;
        if (at < kFirstOrientationCode)
            at = kLastOrientationCode;
    }
    return code;
}

bool xTROrientationWalk::MoveTo(int32_t target)
{
    if (target == code)
        return false;
    code = target;
    return true;
}

bool xTROrientationWalk::SetCode(int32_t newCode)
{
    return MoveTo(newCode);
}

bool xTROrientationWalk::Next(bool fromStart)
{
    int32_t start = code + 1;
    if (fromStart || start > kLastOrientationCode)
        start = kFirstOrientationCode;
    return MoveTo(FindFrom(start, 1));
}

bool xTROrientationWalk::Previous()
{
    int32_t start = code - 1;
    if (start < kFirstOrientationCode)
        start = kLastOrientationCode;
    return MoveTo(FindFrom(start, -1));
}

void xTROrientationWalk::RemoveOrientation(int32_t removed, int32_t other)
{
    if (removed >= kFirstOrientationCode && removed <= kLastOrientationCode)
        clasf[removed] = 0;
    if (removed == code)
        code = other;
}

void xTROrientationWalk::AddOrientation(int32_t added, int32_t count)
{
    if (added >= kFirstOrientationCode && added <= kLastOrientationCode)
        clasf[added] = count;
}

int xTROrientationWalk::TxComponent() const
{
    return ::TxComponent(code);
}

int xTROrientationWalk::RxComponent() const
{
    return ::RxComponent(code);
}
