#ifndef TOLVAD_APP_XMODULELAUNCHER_H
#define TOLVAD_APP_XMODULELAUNCHER_H

#include <string>

// Starts a sibling module of the suite. When its program can't be found the
// user may pick the module's executable, which is then remembered in
// editorName and started (with no arguments).
void RunModule(const std::string& command);

#endif
