#ifndef TOLVAD_TESTS_XMODALDRIVER_H
#define TOLVAD_TESTS_XMODALDRIVER_H

// Plays the user of a modal window: the action runs once the window is up.

#include <QApplication>
#include <QPushButton>
#include <QTimer>

#include <gtest/gtest.h>

template <class Action>
void OnModal(Action action)
{
    QTimer::singleShot(0, [action] {
        QWidget* modal = QApplication::activeModalWidget();
        ASSERT_NE(modal, nullptr);
        action(modal);
    });
}

inline void Click(QWidget* modal, const QString& text)
{
    for (auto* b : modal->findChildren<QPushButton*>())
        if (b->text() == text)
            return b->click();
    ADD_FAILURE() << "no button " << text.toStdString();
}

#endif
