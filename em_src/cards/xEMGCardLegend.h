#ifndef TOLVAD_CARDS_XEMGCARDLEGEND_H
#define TOLVAD_CARDS_XEMGCARDLEGEND_H

#include <QWidget>

// The axes legend of the geometry card's drawing: an arrow to the right for
// x and one up for z in the section, for y in the plan. The plan's y grows
// downward on the drawing, yet its label stands at the top; so it stays.
class xEMGCardLegend : public QWidget {
public:
    enum { kId = 20011 };

    explicit xEMGCardLegend(QWidget* parent);

    void SetPlanView(bool plan);
    // The label of the upward arrow.
    QString VerticalLabel() const;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool plan = false;
};

#endif
