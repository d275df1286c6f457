#include "cards/xBipoleIcon.h"

#include <QPainter>

namespace {

// The dialog: the icon's frame grown by 60 at least, both ends shown.
constexpr int kDialogMargin = 60;

} // namespace

void xBipoleIcon::Draw(QPainter& painter)
{
    DrawArrowLine(painter, QPointF(kSize / 2.0, 0.0), QPointF(kSize / 2.0, kSize), true, true);
}

void xBipoleIcon::Edit()
{
    const FloatMatrix before = xEMGCardLogic::BipoleTable(*Sensor(), Component());
    FloatMatrix table = before;
    if (EditTable(xEMGCardLogic::kBipoleTitle, table, 2, 2, kDialogMargin) &&
        Logic().TakeBipole(*Sensor(), Component(), before, table))
        update();
}
