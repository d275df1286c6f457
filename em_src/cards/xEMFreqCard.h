#ifndef TOLVAD_CARDS_XEMFREQCARD_H
#define TOLVAD_CARDS_XEMFREQCARD_H

#include "cards/xEMFreqCardLogic.h"
#include "cards/xEMTableCard.h"

class FloatMatrix;
class xEMWinDesc;

// The "Frequencies" card of a frequency-domain system: the frequency table of
// the current orientation in one grid, and the buttons of the amplitude scale
// and the frequencies' weights. A view over xEMFreqCardLogic.
class xEMFreqCard : public xEMTableCard {
public:
    // The card on the document's current record, with its selector and its
    // table loaded, ready to be appended.
    static xCard* Make(xEMWinDesc& document, xDWin& window);

    xEMFreqCard(xEMDesc& document, xDWin* window, const QRect& frame);

    bool Apply(std::string& message) override;

    void SetFrequencies(const FloatMatrix* table, bool redraw);
    void GetFrequencies(FloatMatrix& table) const;

    // What the control holds.
    xEMFreqCardLogic::Values Values() const;
    xEMFreqCardLogic& Logic() { return logic; }

protected:
    xEMTableCardLogic& TableLogic() override { return logic; }
    void Load() override;

private:
    void Build();

    xEMFreqCardLogic logic;
};

#endif
