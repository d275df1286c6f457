#ifndef TOLVAD_CARDS_XEMWAVECARD_H
#define TOLVAD_CARDS_XEMWAVECARD_H

#include "cards/xEMTableCard.h"
#include "cards/xEMWaveCardLogic.h"

#include <string>

class FloatMatrix;
class QLabel;
class x2DGBars;
class x2DGLine;
class x2DGPort;
class xEMWinDesc;
class xEditBox;

// The "Tx Waveform" and "Rx Waveform" cards: the waveform table of their
// block and the sampling windows both share, each in its grid, with the
// waveform drawn as a red curve and the windows as blue bars beside them, the
// plot units, and the buttons of the amplitude scale and the window weights.
// A view over xEMWaveCardLogic.
class xEMWaveCard : public xEMTableCard {
public:
    // The card of the title on the document's current record, with its
    // selector and its tables loaded, ready to be appended.
    static xCard* MakeTx(xEMWinDesc& document, xDWin& window);
    static xCard* MakeRx(xEMWinDesc& document, xDWin& window);

    xEMWaveCard(xEMDesc& document, const std::string& title, xDWin* window, const QRect& frame);

    bool Apply(std::string& message) override;

    // The grids' tables: loaded (brought back on the screen with redraw),
    // and read as their rows in use.
    void SetWaveform(const FloatMatrix* table, bool redraw);
    void SetWindows(const FloatMatrix* table, bool redraw);
    void GetWaveform(FloatMatrix& table) const;
    void GetWindows(FloatMatrix& table) const;
    int GetWindowCount() const;

    // What the controls hold.
    xEMWaveCardLogic::Values Values() const;
    xEMWaveCardLogic& Logic() { return logic; }
    x2DGPort* Plot() const { return plot; }
    x2DGLine* Curve() const { return curve; }
    x2DGBars* Bars() const { return bars; }
    xEditBox* PlotUnits() const;

protected:
    xEMTableCardLogic& TableLogic() override { return logic; }
    void Load() override;

private:
    static xCard* Make(xEMWinDesc& document, xDWin& window, const char* title);
    void Build();
    // The other waveform card on the same record takes the windows this one
    // stored, so that it never writes back the ones it showed before.
    void ShareWindows();

    xEMWaveCardLogic logic;
    x2DGPort* plot = nullptr;
    x2DGLine* curve = nullptr;
    x2DGBars* bars = nullptr;
};

#endif
