#include "app/xQtMenuBar.h"

#include <QAction>
#include <QKeySequence>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>

namespace {

const char* const kIdProperty = "tolvadId";

struct ResourceEntry {
    long id;            // 0: a separator
    const char* text;
    bool grey;          // stands grey in the resource
};

struct ResourceMenu {
    long tag;
    const char* title;
    std::vector<ResourceEntry> entries;
};

const std::vector<ResourceMenu>& Resource9001()
{
    static const std::vector<ResourceMenu> menus = {
        {xQtMenuBar::kFileMenu,
         "&File",
         {{32001, "&New", true},
          {32002, "&Open...", true},
          {32003, "&Close", true},
          {32004, "&Save", true},
          {32005, "Save &As...", true},
          {32006, "Re&vert to Saved", true},
          {0, nullptr, false},
          {32008, "&Print...", true},
          {32007, "P&rint Setup...", true},
          {0, nullptr, false},
          {32009, "E&xit", false}}},
        {xQtMenuBar::kEditMenu,
         "&Edit",
         {{32026, "&Undo   Ctrl+Z", true},
          {0, nullptr, false},
          {32027, "Cu&t    Ctrl+X", true},
          {32028, "&Copy   Ctrl+C", true},
          {32029, "&Paste  Ctrl+V", true},
          {32030, "&Delete", true}}},
        {xQtMenuBar::kFontMenu, "Fon&t", {{32051, "&Select...", false}}},
        {xQtMenuBar::kHelpMenu,
         "&Help",
         {{32462, "&Contents", false},
          {32457, "&Search for help on...", false},
          {32452, "&How to use help", false},
          {0, nullptr, false},
          {32459, "&About...", false}}},
    };
    return menus;
}

struct ResourceKey {
    QKeyCombination key;
    long id;
};

// The keys of resource 9001. Some give ids that no entry has.
const ResourceKey kKeys[] = {
    {Qt::CTRL | Qt::Key_C, 32028},          {Qt::CTRL | Qt::Key_V, 32029},
    {Qt::ALT | Qt::Key_Backspace, 32026},   {Qt::CTRL | Qt::Key_Delete, 32030},
    {Qt::SHIFT | Qt::Key_Delete, 32027},    {Qt::CTRL | Qt::Key_F1, 32457},
    {Qt::ALT | Qt::Key_F1, 32462},          {Qt::CTRL | Qt::Key_Insert, 32033},
    {Qt::SHIFT | Qt::Key_Insert, 32032},    {Qt::CTRL | Qt::Key_X, 32031},
    {Qt::CTRL | Qt::Key_Z, 32034},
};

} // namespace

xQtMenuBar::xQtMenuBar(QMainWindow* window, Handler handler, std::function<void()> beforeShow)
    : window(window), bar(window->menuBar()), handler(std::move(handler)), beforeShow(std::move(beforeShow))
{
    for (const ResourceMenu& menu : Resource9001()) {
        AddMenu(menu.tag, menu.title);
        for (const ResourceEntry& entry : menu.entries) {
            if (!entry.id) {
                AddSeparator(menu.tag);
                continue;
            }
            AddEntry(menu.tag, entry.id, entry.text)->setEnabled(!entry.grey);
        }
    }
    for (const ResourceKey& key : kKeys) {
        QAction* action = MakeAction(window, key.id, std::string());
        action->setShortcut(QKeySequence(key.key));
        action->setShortcutContext(Qt::WindowShortcut);
        if (QAction* entry = Entry(key.id))
            action->setEnabled(entry->isEnabled());
        window->addAction(action);
        keys.push_back(action);
    }
}

xQtMenuBar::~xQtMenuBar() = default;

long xQtMenuBar::IdOf(const QAction* action)
{
    return action ? action->property(kIdProperty).toLongLong() : 0;
}

QAction* xQtMenuBar::MakeAction(QWidget* owner, long id, const std::string& text)
{
    auto* action = new QAction(QString::fromStdString(text), owner);
    action->setProperty(kIdProperty, static_cast<qlonglong>(id));
    QObject::connect(action, &QAction::triggered, owner, [this, id] {
        if (handler)
            handler(id);
    });
    return action;
}

QMenu* xQtMenuBar::Menu(long tag) const
{
    for (const MenuRecord& record : menus)
        if (record.tag == tag)
            return record.menu;
    return nullptr;
}

QMenu* xQtMenuBar::AddMenu(long tag, const std::string& title, long parentTag)
{
    auto* menu = new QMenu(QString::fromStdString(title), bar);
    menu->setProperty(kIdProperty, static_cast<qlonglong>(tag));
    QMenu* old = Menu(tag);
    QAction* place = old ? old->menuAction() : nullptr;
    // Before the old one, in its place; then the old one goes.
    if (parentTag) {
        if (QMenu* parent = Menu(parentTag))
            parent->insertMenu(place, menu);
    } else {
        bar->insertMenu(place, menu);
    }
    if (old)
        Remove(tag);
    menus.push_back({tag, menu});
    // A menu about to open shows what the window's state allows.
    QObject::connect(menu, &QMenu::aboutToShow, bar, [this] {
        if (beforeShow)
            beforeShow();
    });
    return menu;
}

QAction* xQtMenuBar::AddEntry(long menuTag, long id, const std::string& text)
{
    QMenu* menu = Menu(menuTag);
    if (!menu)
        return nullptr;
    QAction* action = MakeAction(menu, id, text);
    menu->addAction(action);
    return action;
}

void xQtMenuBar::AddSeparator(long menuTag)
{
    if (QMenu* menu = Menu(menuTag))
        menu->addSeparator();
}

std::vector<QAction*> xQtMenuBar::ActionsOf(long id) const
{
    std::vector<QAction*> found;
    for (const MenuRecord& record : menus)
        for (QAction* action : record.menu->actions())
            if (!action->menu() && IdOf(action) == id)
                found.push_back(action);
    for (QAction* key : keys)
        if (IdOf(key) == id)
            found.push_back(key);
    return found;
}

QAction* xQtMenuBar::Entry(long id) const
{
    for (const MenuRecord& record : menus)
        for (QAction* action : record.menu->actions())
            if (!action->menu() && !action->isSeparator() && IdOf(action) == id)
                return action;
    return nullptr;
}

void xQtMenuBar::Enable(long id, bool enable)
{
    for (QAction* action : ActionsOf(id))
        action->setEnabled(enable);
}

void xQtMenuBar::SetText(long id, const std::string& text)
{
    if (QAction* entry = Entry(id))
        entry->setText(QString::fromStdString(text));
}

void xQtMenuBar::ForgetMenu(QMenu* menu)
{
    // Its submenus go with it.
    for (QAction* action : menu->actions())
        if (action->menu())
            ForgetMenu(action->menu());
    menus.erase(std::remove_if(menus.begin(), menus.end(),
                               [menu](const MenuRecord& record) { return record.menu == menu; }),
                menus.end());
}

void xQtMenuBar::Remove(long tag)
{
    QMenu* menu = Menu(tag);
    if (!menu)
        return;
    ForgetMenu(menu);
    bar->removeAction(menu->menuAction());
    for (const MenuRecord& record : menus)
        record.menu->removeAction(menu->menuAction());
    menu->deleteLater();
}

void xQtMenuBar::Update()
{
    bar->update();
}

bool xQtMenuBar::IsEnabled(long id) const
{
    QAction* entry = Entry(id);
    return entry && entry->isEnabled();
}

std::string xQtMenuBar::Text(long id) const
{
    QAction* entry = Entry(id);
    return entry ? entry->text().toStdString() : std::string();
}

std::vector<long> xQtMenuBar::EntryIds(long tag) const
{
    std::vector<long> ids;
    if (QMenu* menu = Menu(tag))
        for (QAction* action : menu->actions())
            ids.push_back(action->isSeparator() ? 0 : IdOf(action));
    return ids;
}

std::vector<long> xQtMenuBar::BarTags() const
{
    std::vector<long> tags;
    for (QAction* action : bar->actions())
        if (action->menu())
            tags.push_back(action->menu()->property(kIdProperty).toLongLong());
    return tags;
}
