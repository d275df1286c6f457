#ifndef TOLVAD_CARDS_XEMGCARDLOGIC_H
#define TOLVAD_CARDS_XEMGCARDLOGIC_H

#include "frame/xCardLogic.h"
#include "numeric/FloatMatrix.h"

#include <array>
#include <string>

class xEMGDesc;
class xEMSensorType;

// The logic of the "System Geometry" card: where the transmitter and the
// receiver of the current orientation stand on the card's drawing, which
// picture each of them gets, and what the card's lists, buttons, dialogs and
// the dragged receiver change in the geometry record. Positions are in metres;
// places on the drawing are in its units, y growing downward, with the
// transmitter always at the origin (the middle of the drawing area).
class xEMGCardLogic : public xCardLogic {
public:
    enum Command {
        kRxMotionChosen = 3400,
        kTxMotionChosen = 3401,
        kFlipView = 3404,
        kReceiverDragged = 3405,   // data: the icon's centre on the drawing
        kEditRxOffset = 3406,
        kEditTxPosition = 3407,
        kRxKindChosen = 3411,
        kTxKindChosen = 3412
    };
    enum Icon { kReceiverIcon = 20000, kTransmitterIcon = 20001 };

    // The three icon classes; a kind the card doesn't know is drawn as a dipole.
    enum class IconKind { kDipole, kLoop, kBipole };
    // What an icon draws inside its frame. A dipole draws its oval first and
    // then, if it has the component, a line, a dot or a cross.
    enum class Shape { kOval, kOvalLine, kOvalDot, kOvalCross, kLoopSection, kLoopPlan, kBipole };
    // Where a line's arrowhead points on the screen.
    enum class Arrow { kNone, kRight, kLeft, kUp, kDown };
    struct Picture {
        Shape shape;
        Arrow arrow;
    };
    struct Place {
        double x;
        double y;
    };

    static const char* const kLoopTitle;
    static const char* const kBipoleTitle;
    static const char* const kRxOffsetTitle;
    static const char* const kTxPositionTitle;
    static const char* const kRxPositionTitle;
    static const char* const kNoLoopMessage;

    // Works on the document's current geometry; with none, nothing changes.
    explicit xEMGCardLogic(xEMDesc& document, xCommandTarget* up = nullptr);

    xEMGDesc* Geometry() const { return geometry; }
    void SetGeometry(xEMGDesc* record) { geometry = record; }
    xEMSensorType* Sensor(bool receiver) const;

    // The card takes every choice and edit into the record at once, so a
    // record always makes it complete.
    bool CheckRecord(std::string& message) override;

    // --- The drawing ---
    void SetOrigin(double x, double y);
    Place Origin() const { return origin; }
    float MetresPerPixel() const { return metresPerPixel; }
    bool PlanView() const { return planView; }
    // The transmitter stands at the origin; the receiver off it by its
    // position less the transmitter's: x to the right, in the section z
    // upward, in the plan y downward (the plan is not mirrored).
    Place IconPlace(bool receiver) const;
    static IconKind KindOf(const xEMSensorType& sensor);
    static Picture PictureOf(const xEMSensorType& sensor, int component, bool plan);
    // A drawing coordinate as a whole pixel, far places kept far but finite.
    static int PixelOf(double value);
    // A number as a label shows it: truncated to an integer.
    static int Truncated(double value);

    // --- Commands ---
    // 3400, 3401: a motion that differs from the sensor's is stored.
    bool ChooseMotion(bool receiver, const std::string& motion);
    // 3411, 3412: a kind that differs from the sensor's is stored with a new
    // default shape of the component; the other orientations' same sensor
    // then take it (3411 the receivers, 3412 the transmitters).
    bool ChooseKind(bool receiver, const std::string& kind, int component);
    // 3404: section and plan change places.
    void FlipView();
    // The text of the view button: the view that a press gives.
    static std::string ViewButtonText(bool plan);
    // 3405: the dragged receiver's centre on the drawing; the receiver moves
    // there, and the two texts of the coordinate labels come back.
    std::array<std::string, 2> DragReceiverTo(int x, int y);
    // The cursor labels for a mouse point on the drawing, in the
    // transmitter's coordinates.
    std::array<std::string, 2> CursorTexts(int x, int y) const;
    // The offset labels: "dx : ", "dy : ", "dz : " and the offset truncated.
    std::array<std::string, 3> OffsetTexts() const;

    // --- Dialogs ---
    // What "Edit Rx xyz Offset" and "Edit Tx xyz Position" open with.
    void RxOffset(float offset[3]) const;
    void TxPosition(float position[3]) const;
    // The edited offset; true when it differed, and the receiver's icon is
    // then built anew. Records of version 6 and older keep their position.
    bool EditRxOffset(const float offset[3]);
    // The edited transmitter position; true when it differed. When the
    // transmitter's position moved, the receiver moves with it.
    bool EditTxPosition(const float position[3]);
    // "Edit Rx xyz Position", which the card does not offer.
    bool EditRxPosition(const float position[3]);
    // The tables of the loop and bipole dialogs: a loop's corners (empty, with
    // the error, when the sensor has none), a bipole's two ends with rows and
    // columns from 1.
    FloatMatrix LoopTable(const xEMSensorType& sensor, int component) const;
    static FloatMatrix BipoleTable(const xEMSensorType& sensor, int component);
    // The edited table; true when it differed from before and was stored. A
    // table without three columns (an emptied grid) holds no point and is
    // not taken.
    bool TakeLoop(xEMSensorType& sensor, int component, const FloatMatrix& before, const FloatMatrix& edited);
    bool TakeBipole(xEMSensorType& sensor, int component, const FloatMatrix& before, const FloatMatrix& edited);

private:
    // The record changed: the document is marked, and in common mode every
    // orientation gets the geometry.
    void Changed();
    static bool Finite(const float point[3]);
    bool TakeShape(xEMSensorType& sensor, int component, const FloatMatrix& before, const FloatMatrix& edited,
                   bool loop);

    xEMGDesc* geometry;
    bool planView = false;
    float metresPerPixel = 1.0f;
    Place origin{0.0, 0.0};
};

#endif
