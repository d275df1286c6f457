#include "widgets/xCardClipboard.h"

#include <QDialog>
#include <QPlainTextEdit>
#include <QVBoxLayout>

QDialog* xCardClipboard::ShowClipboard()
{
    std::string text;
    if (!GetClipboardText(text))
        return nullptr;
    auto* owner = dynamic_cast<QWidget*>(this);
    auto* window = new QDialog(owner);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setModal(false);
    window->setWindowTitle(QStringLiteral("clipboard"));
    auto* view = new QPlainTextEdit(window);
    view->setReadOnly(true);
    view->setLineWrapMode(QPlainTextEdit::NoWrap);
    for (const std::string& line : Lines(text))
        view->appendPlainText(QString::fromStdString(line));
    auto* layout = new QVBoxLayout(window);
    layout->addWidget(view);
    window->resize(400, 300);
    window->show();
    return window;
}
