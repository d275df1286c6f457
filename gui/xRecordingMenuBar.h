#ifndef TOLVAD_GUI_XRECORDINGMENUBAR_H
#define TOLVAD_GUI_XRECORDINGMENUBAR_H

#include "gui/xMenuBar.h"

#include <map>
#include <set>
#include <string>

// The menu bar of the tests: keeps what was done to it.
class xRecordingMenuBar : public xMenuBar {
public:
    void Enable(long id, bool enable) override { enabled[id] = enable; }
    void SetText(long id, const std::string& text) override { texts[id] = text; }
    void Remove(long tag) override { removed.insert(tag); }
    void Update() override { ++updates; }

    // 1 enabled, 0 disabled, -1 never touched.
    int State(long id) const
    {
        auto found = enabled.find(id);
        return found == enabled.end() ? -1 : found->second ? 1 : 0;
    }

    std::map<long, bool> enabled;
    std::map<long, std::string> texts;
    std::set<long> removed;
    int updates = 0;
};

#endif
