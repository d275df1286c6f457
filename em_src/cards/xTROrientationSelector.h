#ifndef TOLVAD_CARDS_XTRORIENTATIONSELECTOR_H
#define TOLVAD_CARDS_XTRORIENTATIONSELECTOR_H

#include "cards/xTROrientationWalk.h"
#include "widgets/xCommandView.h"

#include <cstdint>

class QLabel;
class QPushButton;

// The small view with which the waveform, frequency and geometry cards step
// from one orientation to the next: "<<" and ">>" around the transmitter
// component in red and the receiver component in blue. A step to another
// orientation sends 3410 with a pointer to the new code up to the card.
class xTROrientationSelector : public xCommandView {
public:
    enum { kId = 20012, kNextCommand = 4543, kPreviousCommand = 4544, kOrientationChosen = 3410 };

    xTROrientationSelector(QWidget* parent, const xTRClasf& clasf, long id = kId);

    int32_t Code() const { return walk.Code(); }
    const xTRClasf& Clasf() const { return walk.Clasf(); }

    // Changes the orientation shown, without a command.
    void SetCode(int32_t code);
    void RemoveOrientation(int32_t code, int32_t other);
    void AddOrientation(int32_t code, int32_t count);
    // Step and, when the orientation changed, send 3410.
    void Next(bool fromStart);
    void Previous();
    void SetVisible(bool flag);
    bool IsShown() const { return visible; }
    int TxComponent() const { return walk.TxComponent(); }
    int RxComponent() const { return walk.RxComponent(); }

    void DoCommand(long command, void* data) override;

    QPushButton* PreviousButton() const { return previousButton; }
    QPushButton* NextButton() const { return nextButton; }
    QLabel* TxLabel() const { return txLabel; }
    QLabel* RxLabel() const { return rxLabel; }

private:
    void ShowLabels();
    void Announce();

    xTROrientationWalk walk;
    bool visible = true;
    // The code sent with 3410; it outlives the command.
    int32_t sentCode = 0;
    QPushButton* previousButton;
    QPushButton* nextButton;
    QLabel* txLabel;
    QLabel* rxLabel;
};

#endif
