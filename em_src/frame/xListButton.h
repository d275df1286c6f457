#ifndef TOLVAD_FRAME_XLISTBUTTON_H
#define TOLVAD_FRAME_XLISTBUTTON_H

#include <QComboBox>

#include <string>
#include <vector>

// The list button of the cards: a choice among fixed texts. A choice of the
// user sends the button's command, with the button, up to its card.
class xListButton : public QComboBox {
public:
    // command 0 sends nothing.
    xListButton(QWidget* parent, long id, long command, const std::vector<std::string>& choices);

    long Id() const { return id; }
    std::string SelectedText() const;
    // Selects the text among the choices; a text that isn't one of them is
    // kept as a further choice, so that a value read from a file survives.
    void Select(const std::string& text);
    // Width that shows the widest choice whole.
    int NeededWidth() const;

private:
    long id;
    long command;
};

#endif
