#include "widgets/xNoteWin.h"

#include "gui/xPlatform.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QEventLoop>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

int xNoteWin::result = 0;
xNoteWin* xNoteWin::openNote = nullptr;

namespace {
const int kWidth = 500;
}

xNoteWin::xNoteWin(const char* text, int height, const char* const buttons[3], bool* skipFlag)
    : QDialog(nullptr), skip(skipFlag)
{
    setWindowTitle(QStringLiteral("Note"));
    auto* column = new QVBoxLayout(this);
    textArea = new QLabel(QString::fromLocal8Bit(text ? text : ""), this);
    textArea->setWordWrap(true);
    textArea->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    column->addWidget(textArea, 1);
    // The buttons in their natural sizes, in the order given; the first is
    // the default, so that Return takes it.
    auto* row = new QDialogButtonBox(Qt::Horizontal, this);
    QPushButton* first = nullptr;
    for (int i = 0; i < 3; ++i) {
        if (!buttons[i])
            continue;
        QPushButton* button = row->addButton(QString::fromLocal8Bit(buttons[i]), QDialogButtonBox::ActionRole);
        QObject::connect(button, &QPushButton::clicked, this, [this, i] { Press(i); });
        if (!first)
            first = button;
    }
    if (first)
        first->setDefault(true);
    column->addWidget(row);
    if (skipFlag) {
        skipBox = new QCheckBox(QStringLiteral("Skip all"), this);
        skipBox->setChecked(*skipFlag);
        column->addWidget(skipBox);
    }
    // At least the given size; taller when the broken text needs more room,
    // wider only when the buttons do.
    setMinimumSize(kWidth, height);
    const int width = std::max(kWidth, column->minimumSize().width());
    resize(width, std::max(height, column->hasHeightForWidth() ? column->totalHeightForWidth(width)
                                                                 : sizeHint().height()));
    CentreOnScreen();
}

xNoteWin::~xNoteWin()
{
    if (openNote == this)
        openNote = nullptr;
}

void xNoteWin::CentreOnScreen()
{
    int width = 0, height = 0;
    Platform().ScreenSize(width, height);
    move(std::max(0, (width - this->width()) / 2), std::max(0, (height - this->height()) / 2));
}

QString xNoteWin::Text() const
{
    return textArea->text();
}

void xNoteWin::Press(int index)
{
    result = index;
    if (skip && skipBox)
        *skip = skipBox->isChecked();
    done(index);
}

void xNoteWin::mousePressEvent(QMouseEvent* event)
{
    if (timed)
        close();
    else
        QDialog::mousePressEvent(event);
}

int xNoteWin::ShowNote(const char* text, long milliseconds, const char* button1, const char* button2,
                       const char* button3)
{
    if (milliseconds > 0 && openNote) {
        openNote->textArea->setText(QString::fromLocal8Bit(text ? text : ""));
        return result;
    }
    const char* const buttons[3] = {button1, button2, button3};
    result = 0;
    if (milliseconds <= 0) {
        xNoteWin note(text, 100, buttons, nullptr);
        note.exec();
        return result;
    }
    auto* note = new xNoteWin(text, 100, buttons, nullptr);
    note->timed = true;
    openNote = note;
    QEventLoop wait;
    QObject::connect(note, &QDialog::finished, &wait, &QEventLoop::quit);
    QTimer::singleShot(static_cast<int>(std::min<long>(milliseconds, 1L << 30)), note,
                       [note] { note->close(); });
    note->show();
    if (note->isVisible())
        wait.exec();
    openNote = nullptr;
    delete note;
    return result;
}

int xNoteWin::ShowNote(const char* text)
{
    return ShowNote(text, 20000, "OK");
}

int xNoteWin::ShowNoteWithSkip(const char* text, bool& skipFlag, const char* button1,
                               const char* button2, const char* button3)
{
    const char* const buttons[3] = {button1, button2, button3};
    result = 0;
    xNoteWin note(text, 130, buttons, &skipFlag);
    note.exec();
    return result;
}
