#ifndef TOLVAD_FRAME_XEMWINDESC_H
#define TOLVAD_FRAME_XEMWINDESC_H

#include "frame/xEMEditDesc.h"

#include <string>

class xDescWin;

// The descriptor on screen: the editing rules of xEMEditDesc with a window of
// cards. It builds the window, adds and removes cards as the system card asks,
// turns the orientation boxes' commands into the model's operations, and
// tells the cards what the model did.
class xEMWinDesc : public xEMEditDesc {
public:
    explicit xEMWinDesc(xCommandTarget* boss = nullptr, long id = 0);
    ~xEMWinDesc() override;

    // The window with the system card first, then the cards the model wants;
    // card 0 comes on top and the window shows.
    void BuildWindow() override;
    void DoCommand(long command, void* data) override;

    // Null until BuildWindow and after the window closed.
    xDescWin* DescWindow() const;

protected:
    bool ApplyAll(std::string& message) override;
    void MarkCardStale(const std::string& title) override;
    void ReloadCards() override;
    void SelectorsAdd(int code) override;
    void SelectorsRemove(int code, int other) override;
    void SelectorsEnable(bool on) override;

private:
    template <typename Call>
    void ForEachCard(Call call);
    // Makes and appends the card of a title unless it stands already.
    void AddCard(const std::string& title);
    void ToDomain(bool frequency);
};

#endif
