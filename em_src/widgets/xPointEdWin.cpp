#include "widgets/xPointEdWin.h"

#include "widgets/xMultipleBEditBox.h"

xPointEdWin::xPointEdWin(QWidget* parent, const std::string& title, QPoint centre)
    : xPointEdWin(parent, title, centre, 170, 130)
{
}

xPointEdWin::xPointEdWin(QWidget* parent, const std::string& title, QPoint centre, int width, int height)
    : xModalEdWin(parent, title, centre, width, height)
{
}

void xPointEdWin::BuildColumn(float* point, bool withChecks)
{
    value = point;
    FloatArray values(1, 3);
    LongArray checks(1, 3);
    checks = 0;
    for (int i = 0; i < 3; ++i) {
        values[i + 1] = point[i];
        if (withChecks)
            checks[i + 1] = static_cast<int32_t>(point[i]) != 0;   // truncated, as a flag
    }
    column = new xMultipleBEditBox(this, QRect(10, clientTop + 5, width() - 20, clientHeight - 5), values,
                                   {"x", "y", "z"}, checks, fieldWidth, static_cast<int>(itemGap), format);
    FitToContents();
}

void xPointEdWin::SetUpUserItem(float* point)
{
    BuildColumn(point, false);
}

bool xPointEdWin::Accept()
{
    auto* point = static_cast<float*>(value);
    if (!point || !column)
        return true;
    // A number no float holds keeps the window open and the point as it was.
    FloatArray values;
    if (!column->GetValues(values))
        return false;
    point[0] = point[1] = point[2] = 0.0f;
    for (int i = 0; i < 3 && values.InRange(i + 1); ++i)
        point[i] = values[i + 1];
    return true;
}
