#ifndef TOLVAD_FRAME_XEMEDITDESC_H
#define TOLVAD_FRAME_XEMEDITDESC_H

#include "model/xEMDesc.h"

#include <cstdint>
#include <string>
#include <vector>

class xMenuBar;

// A descriptor as the editor keeps it: the rules that keep the model and its
// orientations in step while cards edit it (orientations added and removed,
// common mode, the number of channels, the domain), the save and close of a
// document with cards, and which cards a window on it holds. None of it needs
// a screen: what the window does is reached through the hooks at the end,
// which do nothing here, and the screen's document fills them.
class xEMEditDesc : public xEMDesc {
public:
    // Commands of the cards that the document takes.
    enum Command {
        kPickOrientation = 3410,     // data: pointer to the int code
        kRxSensorName = 3411,        // from the geometry card's receiver kind list
        kTxSensorName = 3412,        // from its transmitter kind list
        kAddTxWaveCard = 9345,
        kRemoveTxWaveCard = 9346,
        kAddRxWaveCard = 9347,
        kRemoveRxWaveCard = 9348,
        kToFrequencyDomain = 9349,
        kToTimeDomain = 9350,
        kAddOrientation = 9354,      // data: the orientation's check box
        kRemoveOrientation = 9355,
        kResize = 9401,              // data: pointer to the int number of channels
        kCommonOn = 9405,
        kCommonOff = 9406,
        kCopySystem = 9407,          // data: the xEMSDesc that changed
        kCopyGeometry = 9408
    };

    // The titles of the cards, which are also the keys by which they are found.
    static const char* const kSystemCard;
    static const char* const kTxWaveCard;
    static const char* const kRxWaveCard;
    static const char* const kFrequencyCard;
    static const char* const kGeometryCard;
    static const char* const kFormatCard;

    explicit xEMEditDesc(xCommandTarget* boss = nullptr, long id = 0);

    // The cards of a window on this model, in tab order: the system card; the
    // waveform cards whose block is defined, or the frequency card; geometry
    // and data format.
    std::vector<std::string> CardTitles() const;
    bool WantsTxWaveCard() const;
    bool WantsRxWaveCard() const;

    // The commands whose data the model understands; the rest go on.
    void DoCommand(long command, void* data) override;

    // 3410: another orientation becomes current and the cards follow.
    void PickOrientation(int code);
    // 3411 (3412): every other orientation's receiver (transmitter) takes the
    // kind of the current one, with a component of its own orientation.
    void ShareSensorKind(bool transmitter);
    // 9354: a new orientation with copies of the first one's records; false
    // when the name has records already.
    bool AddOrientation(const std::string& name);
    // 9355: false, with the warning, when it is the last orientation.
    bool RemoveOrientation(int code);
    // 9401: the current orientation (in common mode every one) gets n channels.
    void Resize(int n);
    // 9405, 9406.
    void SetCommonMode(bool on);
    // The current (or the given) system record and the current geometry go
    // into every other orientation, each geometry keeping its own component.
    void CopyToAllItems(const xEMSDesc* record, bool withSystem, bool withGeometry);
    // The model's part of a change of domain: the data format takes the
    // orientations' counts in the new domain and is marked stale. False when
    // the format is in that domain already.
    bool ToFrequencyDomain();
    bool ToTimeDomain();

    // Save and Save As apply every card first; with a card that isn't
    // complete the file is not written.
    bool DoSave() override;
    bool DoSaveAs() override;
    // Close with question: asks when changed, then closes the windows.
    bool DoClose() override;
    void DoUpdateMenus(xMenuBar& menuBar) override;

protected:
    // What the window does; nothing without one.
    virtual bool HasWindow() const { return WindowCount() > 0; }
    // Apply of every card in tab order, to the first that isn't complete.
    virtual bool ApplyAll(std::string& /*message*/) { return true; }
    virtual void MarkCardStale(const std::string& /*title*/) {}
    // Every card shows the records of the current orientation.
    virtual void ReloadCards() {}
    // The orientation selectors of the cards.
    virtual void SelectorsAdd(int /*code*/) {}
    virtual void SelectorsRemove(int /*code*/, int /*other*/) {}
    virtual void SelectorsEnable(bool /*on*/) {}

private:
    // With a window, Apply of all cards; a card that isn't complete is told.
    bool CardsApplied();
    bool ChangeDomain(bool frequency);
    // Gives code records of its own (copies of the current ones) when it has none.
    void EnsureItem(int code);
    // The first item in the dictionary's order; null when there is none.
    xEMDescItem* FirstItem() const;
};

#endif
