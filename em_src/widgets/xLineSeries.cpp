#include "widgets/xLineSeries.h"

#include "widgets/x2DGLine.h"

void xLineSeries::SetData(const FloatMatrix& table)
{
    line->SetData(table);
}

void xLineSeries::ComputePixels()
{
    line->ComputePixels();
}

void xLineSeries::Clear()
{
    line->Clear();
}

void xLineSeries::InvalidateArea()
{
    line->Invalidate();
}
