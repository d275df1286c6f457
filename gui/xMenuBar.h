#ifndef TOLVAD_GUI_XMENUBAR_H
#define TOLVAD_GUI_XMENUBAR_H

#include <string>

// The menu bar of a window as the logic sees it: entries found by their
// numeric command id, whole menus by their tag. The Qt window implements it
// over its QMenuBar; tests record what is done to it.
class xMenuBar {
public:
    virtual ~xMenuBar() = default;

    virtual void Enable(long id, bool enable) = 0;
    virtual void SetText(long id, const std::string& text) = 0;
    // Removes the whole menu with this tag from the bar.
    virtual void Remove(long tag) = 0;
    // Redraws the bar after a change of its menus.
    virtual void Update() = 0;
};

#endif
