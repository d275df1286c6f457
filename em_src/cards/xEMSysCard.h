#ifndef TOLVAD_CARDS_XEMSYSCARD_H
#define TOLVAD_CARDS_XEMSYSCARD_H

#include "cards/xEMSysCardLogic.h"
#include "frame/xCard.h"
#include "numeric/LongArray.h"

#include <vector>

class QCheckBox;
class QLabel;
class xDWin;
class xEMDesc;
class xEMWinDesc;
class xEditBox;
class xListButton;

// The "System Description" card: the descriptor's identity, waveform type,
// normalisation, waveform kinds and time scaling, and at its right the
// orientations the descriptor holds. A view over xEMSysCardLogic: it moves
// values between its controls and the logic.
class xEMSysCard : public xCard {
public:
    // Titles of two groups the card keeps for a later use.
    static const char* const kTxOrientationGroup;
    static const char* const kRxOrientationGroup;

    // The card of a window, with the orientation boxes set and, in the
    // frequency domain, the time-domain controls hidden.
    static xCard* Make(xEMWinDesc& document, xDWin& window);

    xEMSysCard(xEMDesc& document, xDWin* window, const QRect& frame);

    bool Apply(std::string& message) override;
    bool FirstShown() override { return true; }
    void SetFrequencyDomain(bool frequency) override;
    void DoCommand(long command, void* data) override;

    // The seven views of the time domain leave the card and come back.
    void HideTimeDomainItems();
    void ShowTimeDomainItems();
    // Enables the card and shows its views that are to be shown.
    void ShowAnew();
    // The orientation boxes from counts (indices 100 to 109) and back.
    void ShowClassification(const LongArray& checks);
    LongArray GetClassification() const;

    // What the controls hold.
    xEMSysCardLogic::Values Values() const;
    xEMSysCardLogic& Logic() { return logic; }
    xEditBox* Box(long id) const;
    xListButton* List(long id) const;
    QCheckBox* OrientationBox(int code) const;
    const std::vector<QWidget*>& VisibleViews() const { return visibleViews; }

private:
    void Build();
    void Load();
    void TimeScaling();
    // Takes a view out of the views to be shown, or puts it back.
    void SetTimeDomainShown(bool shown);

    xEMSysCardLogic logic;
    std::vector<QWidget*> visibleViews;
};

#endif
