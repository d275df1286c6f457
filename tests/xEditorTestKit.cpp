#include "tests/xEditorTestKit.h"

#include "app/xQtMenuBar.h"
#include "frame/xEMWinDesc.h"
#include "frame/xListButton.h"
#include "widgets/xEditBox.h"
#include "widgets/xEditField.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMouseEvent>
#include <QMenuBar>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

std::string xEditorTestKit::Example(const std::string& name)
{
    return std::string(TOLVAD_EXAMPLES_DIR) + "/" + name;
}

std::unique_ptr<xEMWinDesc> xEditorTestKit::OpenWindow(const std::string& path)
{
    auto doc = std::make_unique<xEMWinDesc>();
    doc->SetFilePath(path);
    doc->Load();
    doc->BuildWindow();
    Settle();
    return doc;
}

void xEditorTestKit::OnNextDialog(std::function<void(QDialog&)> act)
{
    // Looks every few milliseconds, for a few seconds at most.
    auto* timer = new QTimer(qApp);
    auto tries = std::make_shared<int>(0);
    QObject::connect(timer, &QTimer::timeout, qApp, [timer, tries, act] {
        if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            timer->stop();
            timer->deleteLater();
            act(*dialog);
        } else if (++*tries > 500) {
            timer->stop();
            timer->deleteLater();
        }
    });
    timer->start(5);
}

void xEditorTestKit::Settle()
{
    for (int i = 0; i < 3; ++i)
        QApplication::processEvents();
}

void xEditorTestKit::TypeInto(xEditBox& box, const std::string& text)
{
    xEditField* field = box.Field();
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Backspace);
    QTest::keyClicks(field, QString::fromStdString(text));
}

void xEditorTestKit::ChooseIn(xListButton& list, const std::string& text)
{
    int wanted = list.findText(QString::fromStdString(text));
    while (wanted >= 0 && list.currentIndex() < wanted)
        QTest::keyClick(&list, Qt::Key_Down);
    while (wanted >= 0 && list.currentIndex() > wanted)
        QTest::keyClick(&list, Qt::Key_Up);
}

void xEditorTestKit::MoveMouse(QWidget& widget, const QPoint& position)
{
    QMouseEvent move(QEvent::MouseMove, position, widget.mapToGlobal(position), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(&widget, &move);
}

bool xEditorTestKit::ChooseMenu(xQtMenuBar& menuBar, long id)
{
    QAction* entry = menuBar.Entry(id);
    if (!entry || !entry->isEnabled())
        return false;
    entry->trigger();
    Settle();
    return true;
}

std::vector<std::string> xEditorTestKit::ClippedTexts(QWidget& root)
{
    std::vector<std::string> clipped;
    auto note = [&clipped](QWidget* widget, const QString& text, int need, int have) {
        if (need > have)
            clipped.push_back(std::string(widget->metaObject()->className()) + " '" + text.toStdString() +
                              "' needs " + std::to_string(need) + ", has " + std::to_string(have));
    };
    for (QWidget* widget : root.findChildren<QWidget*>()) {
        if (!widget->isVisibleTo(&root))
            continue;
        if (auto* label = qobject_cast<QLabel*>(widget)) {
            if (label->text().isEmpty() || label->wordWrap())
                continue;
            QFontMetrics metrics(label->font());
            QStringList lines = label->text().split('\n');
            int widest = 0;
            for (const QString& line : lines)
                widest = std::max(widest, metrics.horizontalAdvance(line));
            QRect room = label->contentsRect().adjusted(label->margin(), label->margin(), -label->margin(),
                                                        -label->margin());
            note(label, label->text(), widest, room.width());
            note(label, label->text(), metrics.height() * static_cast<int>(lines.size()), room.height());
        } else if (qobject_cast<QCheckBox*>(widget) || qobject_cast<QRadioButton*>(widget)) {
            note(widget, static_cast<QAbstractButton*>(widget)->text(), widget->sizeHint().width(), widget->width());
        } else if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
            QString text = button->text().remove('&');
            if (!text.isEmpty())
                note(button, text, QFontMetrics(button->font()).horizontalAdvance(text) + 8, button->width());
        } else if (auto* list = qobject_cast<QComboBox*>(widget)) {
            note(list, list->currentText(), list->sizeHint().width(), list->width());
        } else if (auto* field = qobject_cast<QLineEdit*>(widget)) {
            int need = QFontMetrics(field->font()).horizontalAdvance(field->text()) + 8;
            note(field, field->text(), need, field->width());
        }
    }
    return clipped;
}
