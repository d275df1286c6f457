#include "widgets/x2DGBars.h"

#include "numeric/FloatArray.h"
#include "numeric/FloatMatrix.h"
#include "widgets/x2DGPlot.h"

#include <memory>

void x2DGBars::SetData(const FloatMatrix& table)
{
    if (!HasTwoColumns(table, "x2DGBars"))
        return;
    const int first = table.RowLower(), rows = table.RowUpper() - first + 1;
    const int startColumn = table.ColLower(), endColumn = startColumn + 1;
    const int count = rows > 0 ? 2 * rows : 0;
    auto x = std::make_unique<FloatArray>(0, count - 1);
    auto y = std::make_unique<FloatArray>(0, count - 1);
    for (int k = 0; k < rows; ++k) {
        const FloatArray& row = table.Row(first + k);
        (*x)[2 * k] = row[startColumn];
        (*x)[2 * k + 1] = row[endColumn];
    }
    ReplaceArrays(std::move(x), std::move(y));
}

void x2DGBars::Draw(x2DGSurface& surface) const
{
    if (!port || pixels.size() < 2)
        return;
    const x2DGRect& frame = port->Frame();
    const int middle = (frame.bottom - frame.top) / 2 + frame.top;
    surface.SetPen(pen);
    surface.SetClip(&port->Paper());
    const int windows = PixelCount() / 2;
    for (int k = 0; k < windows; ++k) {
        const int level = k % 2 == 0 ? middle + 5 : middle - 5;
        surface.DrawSetPos(pixels[2 * k].h, level);
        surface.DrawLine(pixels[2 * k + 1].h, level);
    }
    surface.SetClip(nullptr);
}
