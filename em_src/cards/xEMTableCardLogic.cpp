#include "cards/xEMTableCardLogic.h"

#include "frame/xEMEditDesc.h"
#include "model/xEMSDesc.h"

#include <algorithm>
#include <utility>

const char* const xEMTableCardLogic::kWeightsTitle = "Edit Response Weights";

xEMTableCardLogic::xEMTableCardLogic(xEMDesc& document, xCommandTarget* up, const ScaleDialog& scale,
                                     std::vector<TableMenu> menus)
    : xCardLogic(document, up), descriptor(document.system), scale(scale), menus(std::move(menus))
{
}

xEMTableCardLogic::Grid* xEMTableCardLogic::GridOf(long id) const
{
    auto found = grids.find(id);
    return found == grids.end() ? nullptr : found->second;
}

const xEMTableCardLogic::TableMenu* xEMTableCardLogic::MenuOf(long command) const
{
    for (const TableMenu& menu : Menus())
        if (command == menu.cut || command == menu.copy || command == menu.paste)
            return &menu;
    return nullptr;
}

std::vector<long> xEMTableCardLogic::ClipboardEntries() const
{
    std::vector<long> ids{kShowClipboard};
    for (const TableMenu& menu : Menus())
        ids.push_back(menu.paste);
    return ids;
}

std::vector<long> xEMTableCardLogic::AlwaysEnabledEntries() const
{
    std::vector<long> ids;
    for (const TableMenu& menu : Menus()) {
        ids.push_back(menu.cut);
        ids.push_back(menu.copy);
    }
    return ids;
}

bool xEMTableCardLogic::DoMenuCommand(long command)
{
    const TableMenu* menu = MenuOf(command);
    Grid* grid = menu ? GridOf(menu->grid) : nullptr;
    if (!grid)
        return false;
    if (command == menu->cut) {
        Cut(*menu, *grid);
    } else if (command == menu->copy) {
        FloatMatrix table;
        grid->GetTable(table);
        clipboard.CopyTable(table);
    } else {
        Paste(*menu, *grid);
    }
    return true;
}

void xEMTableCardLogic::Cut(const TableMenu& menu, Grid& grid)
{
    FloatMatrix table;
    grid.GetTable(table);
    clipboard.CopyTable(table);
    FloatMatrix empty(1, menu.columns);
    const float zero = 0.0f;
    empty.Fill(&zero);
    grid.SetTable(empty, false);
    // The window hears of one row even when the grid had one already.
    if (menu.sendsCount)
        SendChannels(1);
}

bool xEMTableCardLogic::Paste(const TableMenu& menu, Grid& grid)
{
    const int before = grid.RowCount();
    // The table's column count decides how the numbers make rows.
    FloatMatrix table(1, 2, 1, menu.columns);
    if (!clipboard.PasteTable(table))
        return false;
    grid.SetTable(table, true);
    if (menu.sendsCount && grid.RowCount() != before)
        SendChannels(grid.RowCount());
    return true;
}

void xEMTableCardLogic::SendChannels(int count)
{
    sentCount = count;
    Send(xEMEditDesc::kResize, &sentCount);
}

FloatMatrix xEMTableCardLogic::Weights() const
{
    if (!descriptor)
        return FloatMatrix(0, 0, 1, 1);
    const FloatArray& weights = descriptor->weights;
    const int n = std::max(weights.Size(), 1);
    FloatMatrix matrix(0, n - 1, 1, 1);
    for (int i = 0; i < weights.Size(); ++i)
        *matrix.Element(i, 1) = weights[weights.Lower() + i];
    return matrix;
}

void xEMTableCardLogic::TakeWeights(const FloatMatrix& edited)
{
    if (!descriptor || edited.ColLower() > 1 || edited.ColUpper() < 1)
        return;
    FloatArray& weights = descriptor->weights;
    // Rows the dialog no longer holds (a cleared cell ends the table) stay.
    for (int i = 0; i < weights.Size(); ++i) {
        if (i < edited.RowLower() || i > edited.RowUpper())
            continue;
        const float value = edited.Row(i)[1];
        float& weight = weights[weights.Lower() + i];
        if (value != weight) {
            weight = value;
            MarkChanged();
        }
    }
}

FloatMatrix xEMTableCardLogic::InRecordBounds(const FloatMatrix& table, const FloatMatrix& record)
{
    // An empty table reads as the grid reads an empty grid: one cell.
    if (table.Rows() <= 0 || table.Cols() <= 0) {
        FloatMatrix cell(record.RowLower(), record.RowLower(), record.ColLower(), record.ColLower());
        const float zero = 0.0f;
        cell.Fill(&zero);
        return cell;
    }
    if (table.RowLower() == record.RowLower() && table.ColLower() == record.ColLower())
        return table;
    FloatMatrix moved(record.RowLower(), record.RowLower() + table.Rows() - 1, record.ColLower(),
                      record.ColLower() + table.Cols() - 1);
    std::copy_n(table.Data(), table.Total(), moved.Data());
    return moved;
}

bool xEMTableCardLogic::TakeTable(FloatMatrix& field, const FloatMatrix& table)
{
    if (field == table)
        return false;
    field = table;
    return true;
}

FloatArray xEMTableCardLogic::AmplitudeScale() const
{
    FloatArray values(1, 2);
    float* first = nullptr;
    float* second = nullptr;
    if (ScalePair(first, second)) {
        values[1] = *first;
        values[2] = *second;
    }
    return values;
}

void xEMTableCardLogic::TakeAmplitudeScale(const FloatArray& values)
{
    float* first = nullptr;
    float* second = nullptr;
    if (!ScalePair(first, second) || !values.InRange(1) || !values.InRange(2))
        return;
    if (values[1] == *first && values[2] == *second)
        return;
    *first = values[1];
    *second = values[2];
    MarkChanged();
}
