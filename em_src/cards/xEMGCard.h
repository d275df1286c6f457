#ifndef TOLVAD_CARDS_XEMGCARD_H
#define TOLVAD_CARDS_XEMGCARD_H

#include "cards/xEMGCardLogic.h"
#include "frame/xCard.h"

#include <QPoint>

#include <string>

class QFrame;
class QLabel;
class QPushButton;
class xDWin;
class xEMGCardLegend;
class xEMWinDesc;
class xListButton;
class xSensorIcon;
class xTRClasf;
class xTROrientationSelector;

// The "System Geometry" card: the transmitter and the receiver of the current
// orientation as two icons on a drawing in metres, in vertical section or in
// plan, with the transmitter always in the middle. The receiver can be
// dragged; lists choose each sensor's motion and kind; dialogs edit the
// receiver's offset, the transmitter's position and, on a double click, the
// corners of a loop or the ends of a bipole. The orientation selector steps
// through the orientations, and every card follows. A view over
// xEMGCardLogic, which changes the record.
class xEMGCard : public xCard {
public:
    enum Control {
        kCursorX = 20002,
        kCursorY = 20003,
        kOffsetX = 20004,
        kOffsetY = 20005,
        kOffsetZ = 20006,
        kRxMotionList = 20007,
        kRxKindList = 20008,
        kTxMotionList = 20009,
        kTxKindList = 20010,
        kViewButton = xEMGCardLogic::kFlipView,
        kRxOffsetButton = xEMGCardLogic::kEditRxOffset,
        kTxPositionButton = xEMGCardLogic::kEditTxPosition
    };

    // The prompts of the icons, which move with them.
    static const char* const kTransmitterPrompt;
    static const char* const kReceiverPrompt;

    // The card of a window, on the document's current geometry, with its selector.
    static xCard* Make(xEMWinDesc& document, xDWin& window);

    xEMGCard(xEMDesc& document, xDWin* window, const QRect& frame, const xTRClasf& clasf, int code);

    void Activate() override;
    bool FirstShown() override { return true; }
    // Every change is in the record already: the card never holds a close up.
    bool CanClose(bool& proceed) override;
    void SetDescriptor(xEMEditDesc& document, int code) override;
    void OrientationAdded(int code) override;
    void OrientationRemoved(int code, int other) override;
    void EnableSelector(bool on) override;
    void DoCommand(long command, void* data) override;

    // Makes the receiver's (20000) or the transmitter's (20001) icon anew,
    // for the sensor's kind, at its place in the current view.
    void BuildIcon(bool receiver);
    // The receiver's offset into the labels 20004 to 20006.
    void ShowOffset();
    // The cursor labels for a point on the drawing.
    void ShowCursor(const QPoint& point);

    xEMGCardLogic& Logic() { return logic; }
    xTROrientationSelector* Selector() const { return selector; }
    QFrame* Drawing() const { return drawing; }
    xEMGCardLegend* Legend() const { return legend; }
    xSensorIcon* Icon(bool receiver) const;
    xListButton* List(long id) const;
    QLabel* Label(long id) const;
    QPushButton* Button(long id) const;
    // The two notes that stand while a loop is drawn.
    QLabel* LoopNote(int index) const { return loopNotes[index]; }

protected:
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void Build();
    // Label, motion and kind list of both rows, aligned, as wide as they need.
    void PlaceSensorRows();
    void LoadLists();
    void EditRxOffset();
    void EditTxPosition();
    // The component an icon shows: the selector's, or z without one.
    int Component(bool receiver) const;
    // The part of an icon's frame on the drawing, in the card's coordinates.
    QRect IconRegion(const xSensorIcon* icon) const;
    // Runs a three-value dialog on point, centred on the card; false when cancelled.
    bool EditPoint(const char* title, float point[3]);
    std::string ListText(long id) const;

    xEMGCardLogic logic;
    xTROrientationSelector* selector = nullptr;
    QFrame* drawing = nullptr;
    xEMGCardLegend* legend = nullptr;
    QLabel* loopNotes[2] = {};
    QLabel* sensorLabels[2] = {};
    int sensorRowsTop = 0;
    int sensorRowHeight = 0;
    int sensorRowsLeft = 0;
    QPoint lastCursor;
};

#endif
