#ifndef TOLVAD_WIDGETS_X2DGPORT_H
#define TOLVAD_WIDGETS_X2DGPORT_H

// The plot area of a card: the graph arithmetic of x2DGPlot on a Qt widget.
// It paints the zero line and its series from their pixel caches, smoothed,
// shows the end labels at its lower corners, a horizontal scroll bar when the
// plot is wider than the frame, the mouse read-out box and the rubber band.
// The frame lies a margin inside the paper, so that a curve at either end of
// its range shows whole; the scroll bar and the label strip lie under the
// paper, the bar lowest, and the labels are filled with the paper's white.

#include "widgets/x2DGPlot.h"

#include <QString>
#include <QWidget>

class QLabel;
class QRubberBand;
class QScrollBar;

class x2DGPort : public QWidget, public x2DGPlot {
    Q_OBJECT
public:
    // With both sizes 0 the frame's size is the virtual size. Commands that
    // the port doesn't take go to next, or without one to the nearest view
    // above it that is a link of the command chain (its card).
    x2DGPort(QWidget* parent, const QRect& frame, int virtualWidth = 0, int virtualHeight = 0,
             xCommandTarget* next = nullptr);
    ~x2DGPort() override;

    // The font of the end labels of every port.
    static void SetLabelFont(const QFont& font);
    // The room between the paper's edges and the frame: half a line of the
    // application's font.
    static int Margin();
    // The read-out's font: the port's size in a font of fixed pitch.
    QFont ReadOutFont() const;

    QLabel* startLabel = nullptr;
    QLabel* endLabel = nullptr;

    // The read-out box's text while it is shown, else empty.
    QString ReadOutShown() const { return readOutText; }

    void DoCommand(long command, void* data) override;
    void InvalidateRect(const x2DGRect& rect) override;
    void ScrollChanged() override;
    void EndLabelsChanged() override;
    void SetCrossHairCursor(bool crossHair) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    // The widget less the label strip and, while zoomed, the scroll bar.
    x2DGRect PaperArea(bool zoomKept) const;
    bool NeedsScrollBar() const;
    // Takes the frame inside the paper when it differs from the plot's: a
    // resize of the port starts the plot afresh, a strip coming or going
    // keeps its scale. False when the frame stands as it was.
    bool FollowDrawingFrame(bool resized);
    int LabelStripHeight() const;
    void PlaceLabels();
    void ShowReadOut(const QPoint& at);
    void HideReadOut();

    QScrollBar* scrollBar = nullptr;
    QRubberBand* rubberBand = nullptr;
    QString readOutText;
    bool following = false;
    QSize laidOutSize;
};

#endif
