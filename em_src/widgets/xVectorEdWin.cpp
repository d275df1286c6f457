#include "widgets/xVectorEdWin.h"

#include "numeric/FloatArray.h"
#include "widgets/xEditBox.h"
#include "widgets/xMultipleBEditBox.h"

#include <QFontMetrics>
#include <QLabel>

xVectorEdWin::xVectorEdWin(QWidget* parent, const std::string& title, int width, const std::string& text,
                           QPoint centre)
    : xModalEdWin(parent, title, centre, width, 130), prompt(text)
{
}

void xVectorEdWin::SetUpUserItem(FloatArray* values, const std::vector<std::string>& labels)
{
    value = values;
    // The prompt, one line per piece, widens the window to its widest line.
    int textHeight = 0;
    int widest = 0;
    if (!prompt.empty()) {
        QFontMetrics metrics(font());
        size_t start = 0;
        while (start <= prompt.size()) {
            size_t end = prompt.find('\n', start);
            std::string piece = prompt.substr(start, end == std::string::npos ? std::string::npos : end - start);
            auto* line = new QLabel(QString::fromStdString(piece), this);
            QPalette p = line->palette();
            p.setColor(QPalette::WindowText, Qt::blue);
            line->setPalette(p);
            int lineHeight = metrics.height();
            line->setGeometry(5, 5 + textHeight, metrics.horizontalAdvance(line->text()) + 4, lineHeight);
            widest = std::max(widest, metrics.horizontalAdvance(line->text()));
            textHeight += lineHeight;
            promptLines.push_back(line);
            if (end == std::string::npos)
                break;
            start = end + 1;
        }
    }
    // The prompt widens the window to its widest line and adds its height.
    int newWidth = std::max(width(), widest + 10);
    int newHeight = height() + textHeight;
    if (newWidth != width() || newHeight != height())
        ResizeToFit(newWidth, newHeight);
    clientTop = textHeight;
    int rows = static_cast<int>(labels.size());
    LongArray checks(1, std::max(rows, 1));
    checks = 0;
    column = new xMultipleBEditBox(this, QRect(10, clientTop + 5, width() - 20, 0), values ? *values : FloatArray(),
                                   labels, checks, fieldWidth, static_cast<int>(itemGap), format);
    FitToContents();
}

bool xVectorEdWin::Accept()
{
    auto* values = static_cast<FloatArray*>(value);
    if (!values || !column)
        return true;
    FloatArray typed;
    if (!column->GetValues(typed))
        return false;
    for (int i = 1; i <= column->Count(); ++i) {
        int at = values->Lower() + i - 1;
        if (values->InRange(at))
            (*values)[at] = typed[i];
    }
    return true;
}
