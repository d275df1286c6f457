#ifndef TOLVAD_CARDS_XEMTABLECARDLOGIC_H
#define TOLVAD_CARDS_XEMTABLECARDLOGIC_H

#include "frame/xCardLogic.h"
#include "numeric/FloatArray.h"
#include "numeric/FloatMatrix.h"
#include "widgets/xClipboardExchange.h"

#include <map>
#include <string>
#include <vector>

class xEMSDesc;

// What the waveform and the frequency cards share: the system record of the
// current orientation they edit, their tables exchanged with the clipboard by
// the Cut, Copy and Paste of their Edit sub-menus, the weights of the channels
// and the amplitude scale pair edited in dialogs, and the new channel count
// sent to the window. The tables on screen are reached through Grid, so that
// all of it runs without one.
class xEMTableCardLogic : public xCardLogic {
public:
    // A table control as the logic sees it: its rows in use, read and loaded.
    class Grid {
    public:
        virtual ~Grid() = default;
        virtual void GetTable(FloatMatrix& matrix) const = 0;
        virtual void SetTable(const FloatMatrix& table, bool redraw) = 0;
        virtual int RowCount() const = 0;
    };

    // One sub-menu of the Edit menu and the table its entries work on.
    struct TableMenu {
        long tag;
        const char* title;
        long cut, copy, paste;
        long grid;          // the table's control id
        int columns;
        bool sendsCount;    // a new row count goes to the window (9401)
    };

    // The dialog of the amplitude scale pair: its title, width and the labels
    // of the two numbers.
    struct ScaleDialog {
        const char* title;
        int width;
        const char* first;
        const char* second;
    };

    enum Control { kSelector = 20012, kScaleButton = 5015, kWeightsButton = 5016, kCommonBox = 5018 };
    enum Command {
        kEditScale = 9352,
        kEditWeights = 9353,
        kRowsChanged = 9400,
        kEditMenu = 32025,
        kShowClipboard = 32032
    };
    static const char* const kWeightsTitle;

    xEMTableCardLogic(xEMDesc& document, xCommandTarget* up, const ScaleDialog& scale,
                      std::vector<TableMenu> menus);

    // The record edited now; null in a descriptor without records.
    xEMSDesc* Record() const { return descriptor; }
    void SetRecord(xEMSDesc* record) { descriptor = record; }

    // The control of a table id; not owned.
    void SetGrid(long id, Grid* grid) { grids[id] = grid; }
    Grid* GridOf(long id) const;
    // The sub-menus of the card under Edit, in their order.
    const std::vector<TableMenu>& Menus() const { return menus; }

    // What Apply of the record's own tables answers, without touching them.
    bool CheckRecord(std::string& message) override { return Complete(message); }

    // Cut, Copy and Paste of a sub-menu; false for a command that isn't one
    // (or a table without its control).
    bool DoMenuCommand(long command);
    // The entries that need text on the clipboard: the pastes and the viewer.
    std::vector<long> ClipboardEntries() const;
    std::vector<long> AlwaysEnabledEntries() const;

    // A grid's rows in use changed (9400). The window hears of it when the
    // grid is one whose count it follows.
    virtual void RowsChanged(long grid, int rows) = 0;

    // 9352: the amplitude scale pair in the dialog's order at 1 and 2, its
    // labels, title and width, and the edited pair back: both stored when
    // either differs.
    FloatArray AmplitudeScale() const;
    std::vector<std::string> AmplitudeScaleLabels() const { return {scale.first, scale.second}; }
    const char* ScaleTitle() const { return scale.title; }
    int ScaleWidth() const { return scale.width; }
    void TakeAmplitudeScale(const FloatArray& values);

    // 9353: one row per weight from row 0, in column 1; back from the
    // dialog, each row that differs is stored and marks the document.
    FloatMatrix Weights() const;
    void TakeWeights(const FloatMatrix& edited);

protected:
    // Whether the record makes the card complete; false with the reason.
    virtual bool Complete(std::string& message) const = 0;
    // The new number of channels up to the window (9401).
    void SendChannels(int count);
    // A table of a grid counted as the record counts its table: from the
    // record's first row and column.
    static FloatMatrix InRecordBounds(const FloatMatrix& table, const FloatMatrix& record);
    // Assigns the table when it differs (bounds or any element); true then.
    static bool TakeTable(FloatMatrix& field, const FloatMatrix& table);
    // The record's two numbers of the scale dialog, in its order; false
    // without a record.
    virtual bool ScalePair(float*& first, float*& second) const = 0;

    xClipboardExchange clipboard;

private:
    const TableMenu* MenuOf(long command) const;
    void Cut(const TableMenu& menu, Grid& grid);
    bool Paste(const TableMenu& menu, Grid& grid);

    xEMSDesc* descriptor;
    ScaleDialog scale;
    std::vector<TableMenu> menus;
    std::map<long, Grid*> grids;
    // The count sent with 9401; it outlives the command.
    int sentCount = 0;
};

#endif
