#ifndef TOLVAD_APP_XQTMENUBAR_H
#define TOLVAD_APP_XQTMENUBAR_H

#include "gui/xMenuBar.h"

#include <functional>
#include <string>
#include <vector>

class QAction;
class QMainWindow;
class QMenu;
class QMenuBar;
class QWidget;

// The menu bar of a window on screen: the menus of resource 9001 with their
// command ids and keys, and whatever the window and its cards add. Every
// entry and key carries its id; the handler gets the id of what was chosen.
// Keys whose id has an entry follow that entry's enabling.
class xQtMenuBar : public xMenuBar {
public:
    // Menu tags of resource 9001.
    enum { kFileMenu = 32000, kEditMenu = 32025, kFontMenu = 32050, kHelpMenu = 32350 };

    using Handler = std::function<void(long id)>;

    // Builds resource 9001 on the window's menu bar, its keys as actions of
    // the window. beforeShow runs when a menu is about to open.
    xQtMenuBar(QMainWindow* window, Handler handler, std::function<void()> beforeShow);
    ~xQtMenuBar() override;
    xQtMenuBar(const xQtMenuBar&) = delete;
    xQtMenuBar& operator=(const xQtMenuBar&) = delete;

    void Enable(long id, bool enable) override;
    void SetText(long id, const std::string& text) override;
    void Remove(long tag) override;
    void Update() override;

    // A menu with this tag, on the bar (parent 0) or in the menu of the
    // parent's tag; it replaces a menu of the same tag where that stands.
    QMenu* AddMenu(long tag, const std::string& title, long parentTag = 0);
    // An entry at the end of the menu of that tag, enabled.
    QAction* AddEntry(long menuTag, long id, const std::string& text);
    void AddSeparator(long menuTag);

    QMenu* Menu(long tag) const;
    // The menu entry of an id, null when there is none (keys are no entries).
    QAction* Entry(long id) const;
    bool IsEnabled(long id) const;
    std::string Text(long id) const;
    // Ids of the entries of a menu in their order, 0 for a separator.
    std::vector<long> EntryIds(long tag) const;
    // Tags of the menus on the bar, left to right.
    std::vector<long> BarTags() const;
    // The key actions of the window, with the ids they give.
    const std::vector<QAction*>& Keys() const { return keys; }
    QMenuBar* Bar() const { return bar; }

    static long IdOf(const QAction* action);

private:
    struct MenuRecord {
        long tag;
        QMenu* menu;
    };
    void ForgetMenu(QMenu* menu);
    std::vector<QAction*> ActionsOf(long id) const;
    QAction* MakeAction(QWidget* owner, long id, const std::string& text);

    QMainWindow* window;
    QMenuBar* bar;
    Handler handler;
    std::function<void()> beforeShow;
    std::vector<MenuRecord> menus;
    std::vector<QAction*> keys;
};

#endif
