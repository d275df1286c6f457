#ifndef TOLVAD_TESTS_CARDS_CARDSCREEN_H
#define TOLVAD_TESTS_CARDS_CARDSCREEN_H

#include "app/xQtMenuBar.h"
#include "frame/xDescWin.h"
#include "frame/xEMWinDesc.h"
#include "gui/xQtPlatform.h"
#include "gui/xRecordingPlatform.h"
#include "tests/xEditorTestKit.h"
#include "tests/xTempDirectory.h"
#include "widgets/xEditBox.h"
#include "widgets/xEditField.h"
#include "widgets/xFltGrd.h"
#include "widgets/xGridEdView.h"
#include "widgets/xMultipleBEditBox.h"
#include "widgets/xVectorEdWin.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

// The text with its n-th occurrence (from 0) of what replaced.
inline std::string ReplacedAt(std::string text, const std::string& what, const std::string& with, int n = 0)
{
    size_t at = text.find(what);
    for (int i = 0; i < n && at != std::string::npos; ++i)
        at = text.find(what, at + 1);
    EXPECT_NE(at, std::string::npos) << what;
    return at == std::string::npos ? text : text.replace(at, what.size(), with);
}

// The cards' screen tests: a descriptor's window on a copy of an example, the
// real clipboard of the screen with the recording platform's messages and
// answers, and a user's hands on a grid.
class CardScreen : public ::testing::Test {
protected:
    // Messages and questions are recorded; the clipboard is the screen's.
    class ClipboardPlatform : public xRecordingPlatform {
    public:
        bool HasClipboardText() override { return qt.HasClipboardText(); }
        std::string GetClipboardText() override { return qt.GetClipboardText(); }
        void PutClipboardText(const std::string& text) override { qt.PutClipboardText(text); }

    private:
        xQtPlatform qt;
    };

    // Stands in for a card a test is not about: it writes down what the
    // document does to it.
    class StandIn : public xCard {
    public:
        explicit StandIn(xDWin& window) : xCard(&window, window.CardFrame()) {}
        bool FirstShown() override { return true; }
        void SetDescriptor(xEMEditDesc&, int code) override { Tell("descriptor " + std::to_string(code)); }
        void MarkStale() override
        {
            xCard::MarkStale();
            Tell("stale");
        }
        void OrientationAdded(int code) override { Tell("added " + std::to_string(code)); }
        void OrientationRemoved(int code, int other) override
        {
            Tell("removed " + std::to_string(code) + " " + std::to_string(other));
        }
        void EnableSelector(bool on) override { Tell(on ? "selector on" : "selector off"); }
        static xCard* Make(xEMWinDesc&, xDWin& window) { return new StandIn(window); }

    private:
        void Tell(const std::string& what) { told.push_back(Title() + ": " + what); }
    };

    CardScreen() { QGuiApplication::clipboard()->clear(); }

    // The window on a copy of an example, the first of a piece of its text replaced when asked.
    void Open(const std::string& example, const std::string& from = "", const std::string& to = "")
    {
        original = xTempDirectory::Read(xEditorTestKit::Example(example));
        if (!from.empty())
            original = ReplacedAt(original, from, to);
        xTempDirectory::Write(dir / "card.DSC", original);
        doc = xEditorTestKit::OpenWindow(dir / "card.DSC");
        window = doc->DescWindow();
        QApplication::setActiveWindow(window);
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
        told.clear();
    }
    template <typename Card>
    Card* Select(const char* title)
    {
        auto* card = dynamic_cast<Card*>(window->FindCard(title));
        if (card) {
            card->ShowCard();
            xEditorTestKit::Settle();
        }
        return card;
    }
    // Clicks a cell, types over what its field shows and leaves it with Return.
    static void TypeCell(xGridEdView& view, int row, int column, const std::string& text)
    {
        QTest::mouseClick(view.Grid(), Qt::LeftButton, Qt::NoModifier,
                          view.Grid()->Cell(row, column)->geometry().center());
        xEditField* field = view.EditField();
        field->selectAll();
        QTest::keyClick(field, Qt::Key_Backspace);
        QTest::keyClicks(field, QString::fromStdString(text));
        QTest::keyClick(field, Qt::Key_Return);
    }
    // Answers the next dialog of numbers in a column: writes down its title and
    // labels, types the values given into its fields and presses OK, or
    // cancels when none are given.
    static void AnswerNumbers(std::vector<std::string>& seen, std::vector<std::string> values = {})
    {
        xEditorTestKit::OnNextDialog([&seen, values](QDialog& dialog) {
            auto& column = *static_cast<xVectorEdWin&>(dialog).Column();
            seen.push_back(dialog.windowTitle().toStdString());
            for (int i = 1; i <= column.Count(); ++i) {
                seen.push_back(column.Item(i)->Label()->text().toStdString());
                if (i <= static_cast<int>(values.size()))
                    xEditorTestKit::TypeInto(*column.Item(i), values[i - 1]);
            }
            if (values.empty())
                dialog.reject();
            else
                QTest::mouseClick(static_cast<xVectorEdWin&>(dialog).OkButton(), Qt::LeftButton);
        });
    }
    static void Copy(const std::string& text) { QGuiApplication::clipboard()->setText(QString::fromStdString(text)); }
    static std::string Clipboard() { return QGuiApplication::clipboard()->text().toStdString(); }
    // Opening a menu shows what the window's state allows.
    bool Menu(long id)
    {
        window->UpdateMenus();
        return xEditorTestKit::ChooseMenu(window->MenuBar(), id);
    }
    // The key of resource 9001 that gives an id.
    QAction* Key(long id) const
    {
        for (QAction* key : window->MenuBar().Keys())
            if (xQtMenuBar::IdOf(key) == id)
                return key;
        return nullptr;
    }
    // Saves as the user does, changed or not.
    std::string Saved()
    {
        doc->SetChanged(true);
        EXPECT_TRUE(Menu(xDoc::kSave));
        return xTempDirectory::Read(dir / "card.DSC");
    }

    // What the document told the stand-ins since the window opened.
    static inline std::vector<std::string> told;
    xTempDirectory dir;
    ClipboardPlatform platform;
    std::string original;
    std::unique_ptr<xEMWinDesc> doc;
    xDescWin* window = nullptr;
};

#endif
