#ifndef TOLVAD_WIDGETS_XVECTOREDWIN_H
#define TOLVAD_WIDGETS_XVECTOREDWIN_H

#include "widgets/xModalEdWin.h"

#include <vector>

class FloatArray;
class QLabel;
class xMultipleBEditBox;

// Edits an array, one labelled row per entry, under an optional blue prompt.
class xVectorEdWin : public xModalEdWin {
public:
    xVectorEdWin(QWidget* parent, const std::string& title, int width, const std::string& prompt = std::string(),
                 QPoint centre = QPoint(-1, -1));
    void SetUpUserItem(FloatArray* values, const std::vector<std::string>& labels);
    xMultipleBEditBox* Column() const { return column; }
    const std::vector<QLabel*>& PromptLines() const { return promptLines; }

protected:
    bool Accept() override;

private:
    std::string prompt;
    std::vector<QLabel*> promptLines;
    xMultipleBEditBox* column = nullptr;
};

#endif
