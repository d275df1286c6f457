#ifndef TOLVAD_TESTS_X2DGRECORDER_H
#define TOLVAD_TESTS_X2DGRECORDER_H

// Test doubles of the graph port: a surface that writes down every drawing
// call, a command target that keeps what reaches it, a plot that counts its
// invalidations, and a maker of (x, y) tables.

#include "gui/xPlatform.h"
#include "numeric/FloatMatrix.h"
#include "widgets/x2DGPlot.h"
#include "widgets/x2DGSurface.h"

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

class x2DGRecordingSurface : public x2DGSurface {
public:
    void SetClip(const x2DGRect* r) override
    {
        calls.push_back(r ? FormatText("clip %d,%d,%d,%d", r->left, r->top, r->right, r->bottom)
                          : std::string("clip none"));
    }
    void SetPen(const x2DGPen& pen) override
    {
        calls.push_back(FormatText("pen %06x %d", pen.colour, pen.width));
    }
    void DrawPolyline(const x2DGPixel* points, int count) override
    {
        calls.push_back(FormatText("polyline %d", count));
        polyline.assign(points, points + count);
    }
    void DrawOval(const x2DGRect& b) override
    {
        calls.push_back(FormatText("oval %d,%d,%d,%d", b.left, b.top, b.right, b.bottom));
    }
    void DrawSetPos(int h, int v) override { calls.push_back(FormatText("pos %d,%d", h, v)); }
    void DrawLine(int h, int v) override { calls.push_back(FormatText("line %d,%d", h, v)); }

    std::vector<std::string> calls;
    std::vector<x2DGPixel> polyline;
};

class x2DGCommandLog : public xCommandTarget {
public:
    void DoCommand(long command, void* data) override { received.emplace_back(command, data); }
    std::vector<std::pair<long, void*>> received;
};

class x2DGCountingPlot : public x2DGPlot {
public:
    using x2DGPlot::x2DGPlot;
    void InvalidateRect(const x2DGRect&) override { ++invalidations; }
    int invalidations = 0;
};

// A table of two columns, x then y, with rows from 1.
inline FloatMatrix x2DGTable(std::initializer_list<std::pair<float, float>> rows)
{
    FloatMatrix table(1, static_cast<int>(rows.size()), 1, 2);
    int r = 1;
    for (const auto& row : rows) {
        *table.Element(r, 1) = row.first;
        *table.Element(r++, 2) = row.second;
    }
    return table;
}

// Pixels as (h, v) pairs, to compare whole caches at once.
inline std::vector<std::pair<int, int>> x2DGPairs(const std::vector<x2DGPixel>& pixels)
{
    std::vector<std::pair<int, int>> pairs;
    for (const x2DGPixel& p : pixels)
        pairs.emplace_back(p.h, p.v);
    return pairs;
}

#endif
