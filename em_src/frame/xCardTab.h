#ifndef TOLVAD_FRAME_XCARDTAB_H
#define TOLVAD_FRAME_XCARDTAB_H

#include "widgets/xCommandView.h"

#include <string>

class QLabel;
class xCard;

// The tab of a card: a light grey rectangle with the card's title. Pressing
// it sends 7000 with the tab to the window. Tabs stand in rows; the window
// may hand a tab another card (with its label) when rows are exchanged or a
// card is removed.
class xCardTab : public xCommandView {
public:
    enum Command { kPressed = 7000 };

    xCardTab(QWidget* parent, xCard* card, const std::string& label, int row);

    xCard* Card() const { return card; }
    QLabel* Label() const { return label; }
    std::string LabelText() const;
    int Row() const { return row; }
    bool IsSelected() const { return selected; }
    void SetSelected(bool on);
    // Exchanges card and label with another tab.
    void SwapWith(xCardTab& other);
    // Width that shows the label whole.
    int NeededWidth() const;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    xCard* card;
    QLabel* label;
    int row;
    bool selected = false;
};

#endif
