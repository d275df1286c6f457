#ifndef TOLVAD_CARDS_XSENSORICON_H
#define TOLVAD_CARDS_XSENSORICON_H

#include "cards/xEMGCardLogic.h"
#include "numeric/FloatMatrix.h"
#include "widgets/xCommandView.h"

#include <QColor>
#include <QPoint>

class QPainter;
class xEMSensorType;

// The picture of a sensor on the geometry card: a square of 50 units centred
// on its place, cleared in light grey, with the sensor's shape drawn in the
// sensor's colour. The receiver's icon can be dragged: each move sends 3405
// with the icon's centre up to the card, and so does the release. A double
// click edits what the sensor's kind has to edit. The icon keeps nothing of
// the model; the card makes it anew whenever the record or the view changes.
class xSensorIcon : public xCommandView {
public:
    static constexpr int kSize = 50;

    struct Setup {
        long id;
        xEMGCardLogic* logic;
        xEMSensorType* sensor;
        int component;
        bool plan;
        QColor pen;
        QPoint centre;   // in the parent's coordinates
    };

    xSensorIcon(QWidget* parent, const Setup& setup);

    xEMSensorType* Sensor() const { return sensor; }
    int Component() const { return component; }
    bool PlanView() const { return plan; }
    QColor Pen() const { return pen; }
    QPoint Centre() const { return pos() + QPoint(kSize / 2, kSize / 2); }
    bool Dragging() const { return dragging; }
    // Only the receiver follows the mouse.
    void SetDraggable(bool on) { draggable = on; }
    // A command of the icon's own, sent last on a double click; 0 sends none.
    void SetCommand(long number) { command = number; }
    // What the icon draws for its sensor.
    xEMGCardLogic::Picture Picture() const;

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

    // The shape over the cleared square, in the icon's own 50 units.
    virtual void Draw(QPainter& painter) = 0;
    // A double click: the dialog of the kind; a dipole has none.
    virtual void Edit() {}

    // A line with an arrowhead at either end or both.
    static void DrawArrowLine(QPainter& painter, const QPointF& from, const QPointF& to, bool headAtFrom,
                              bool headAtTo);
    // Runs the table editor on table, centred on the icon and at least its
    // frame grown by margin on every side; false when cancelled.
    bool EditTable(const char* title, FloatMatrix& table, int capacityRows, int shownRows, int margin);
    xEMGCardLogic& Logic() const { return *logic; }

private:
    // Sends 3405 with the icon's centre.
    void Dragged();

    xEMGCardLogic* logic;
    xEMSensorType* sensor;
    int component;
    bool plan;
    QColor pen;
    bool dragging = false;
    bool draggable = false;
    long command = 0;
    QPoint grab;
    QPoint sentCentre;
};

#endif
