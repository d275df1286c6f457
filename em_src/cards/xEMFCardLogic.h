#ifndef TOLVAD_CARDS_XEMFCARDLOGIC_H
#define TOLVAD_CARDS_XEMFCARDLOGIC_H

#include "cards/xEMFItemList.h"
#include "frame/xCardLogic.h"
#include "frame/xFileSpec.h"
#include "numeric/FloatMatrix.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

class xEMFDesc;

// The logic of the "Data Format" card: where each item of a survey's data
// records stands. The user opens a sample data file, says how many comment
// lines and items per record it has, and the first two records are parsed;
// above each of eight visible columns a list offers the item names, and
// choosing one stores that column's position in the data format record. What
// the lists show is kept here as the entry each one selects, so that all of
// it works with no screen; the card shows it.
class xEMFCardLogic : public xCardLogic {
public:
    enum Control {
        kSampleView = 1999,
        kCommentLines = 2000,
        kItemCount = 2001,
        kGrid = 2002,
        kRandomToggle = 2004,
        kGeosoftToggle = 2005,
        kSampleButton = 2006,
        kReplaceButton = 2007,
        kFirstList = 7500
    };
    enum Command {
        kRandomOn = 2500,
        kRandomOff = 2501,
        kItemChosen = 7500,
        kParse = 14006,
        kOpenSample = 14007,
        kReplaceSample = 14008,
        kGeosoftOn = 14009,
        kGeosoftOff = 14010
    };
    enum MenuId { kUserItemMenu = 3552, kAddUserItem = 3553, kRemoveUserItem = 3554, kEditUserItem = 3555 };

    static constexpr int kListCount = 8;
    // Counts beyond these are asked about; below the fewest items refused.
    static constexpr int kCommentLinesAsked = 30;
    static constexpr int kItemsAsked = 256;
    static constexpr int kFewestItems = 8;
    // No record holds more items: its two parsed rows stay a few megabytes.
    static constexpr int32_t kMostItems = int32_t(1) << 20;
    static constexpr size_t kLongestUserItem = 20;

    static const char* const kSampleDialogTitle;
    // Help texts of the controls, and the one about channels that no control takes.
    static const char* const kSamplePrompt;
    static const char* const kCommentLinesPrompt;
    static const char* const kItemCountPrompt;
    static const char* const kParsePrompt;
    static const char* const kListsPrompt;
    static const char* const kChannelsPrompt;

    // Whether a change of mode warns first; one for all cards of the program.
    static bool showInvalidateWarning;

    // What the two edit boxes hold.
    struct Values {
        int32_t commentLines = 0;
        int32_t itemCount = 0;
    };

    explicit xEMFCardLogic(xEMDesc& document, xCommandTarget* up = nullptr);

    xEMFDesc& Format() const;
    static Values ValuesOf(const xEMFDesc& format);
    // Once a sample is parsed, the boxes' counts go into the record (the
    // document is marked changed when they differ). Then every item a data
    // record needs must have its position, else false with the reason.
    bool Apply(const Values& values, std::string& message);
    bool CheckRecord(std::string& message) override;

    // --- The sample ---
    // The file dialog; a chosen file's head is read for the view. False when
    // cancelled.
    bool OpenSample();
    // The same on the file the record names, with no dialog; false when it
    // can't be opened.
    bool ReopenSample();
    const std::vector<std::string>& SampleLines() const { return sampleLines; }
    // Takes the typed counts into the record, each with its checks, messages
    // and questions; false at the first that fails.
    bool CheckCounts(const Values& typed);
    void ParseSample();
    // "Parse data": the counts checked, the sample parsed, the lists built.
    bool Parse(const Values& typed);

    // --- The lists ---
    // The item names from the record, and with a parsed sample the lists of
    // the visible columns, each showing what its position holds.
    void Rebuild();
    // The record position that a list stands for, from 1.
    int ListPosition(int list) const { return firstColumn + list + 1; }
    // The entry a list selects.
    int ListEntry(int list) const;
    void SyncList(int list);
    void SyncAllLists();
    // The user chose an entry in a list: what the position held is freed and
    // the chosen item placed there; then every list shows what its position
    // holds, and the document is marked changed.
    void SelectItem(int list, int entry);
    // Places an item (field) at position p for the list; an item placed
    // elsewhere already moves only when the user agrees. 1 when placed.
    bool AssignPosition(int32_t& field, int p, int list);
    // Channels 2 up to the count of the code follow the first, step apart.
    void SpreadChannels(FloatMatrix& matrix, int code, int start, int step);
    // Frees a position that consecutive placing runs over.
    void FreePosition(int q);
    // The grid was scrolled: its first column is the table's column given.
    void ScrollTo(int column);

    // --- Modes and flags ---
    // Consecutive (0) or random (1) placing of channels; false when the user
    // cancelled, and nothing changed.
    bool ChangeMode(int mode);
    static bool ConfirmInvalidate(const std::string& text);
    void SetGeosoft(bool on);

    // --- User items ---
    // The note a new name gets, empty when it may be added.
    static std::string UserItemFault(const std::string& name, const std::vector<std::string>& userLabels);
    // Asks for names until one passes or askName returns false (cancelled);
    // the name that passes is added. True when one was added.
    bool AddUserItem(const std::function<bool(std::string& name)>& askName);
    // Offers the user items but "z(ASL)" to choose; false when there are none
    // or choose returns false.
    bool RemoveUserItem(const std::function<bool(const std::vector<std::string>& names, int& index)>& choose);

    // The card's mark that the lists must be built anew; the card on screen
    // shares its own.
    bool& Stale() { return *stale; }
    void ShareStale(bool& flag) { stale = &flag; }

    bool parsed = false;
    xEMFItemList itemList;
    FloatMatrix sampleRecords{1, 1};
    xFileSpec sampleSpec;
    int randomChannels = 0;
    int visibleColumns = 0;
    int firstColumn = 0;

private:
    bool ShowSample();
    bool AskYes(const char* text) const;
    // The matrix of a channel label's component.
    FloatMatrix& MatrixOf(char component) const;
    // Position p free of every channel: column 1 of each orientation in
    // consecutive mode, every column up to its count in random mode.
    void FreeChannels(int p);
    // The entry of position p: a fixed item, a user item, a channel; 0 for none.
    int EntryOf(int p) const;
    int ChannelEntryOf(int p) const;
    int Columns(int code) const;

    std::vector<std::string> sampleLines;
    std::vector<int> listEntries;
    bool ownStale = false;
    bool* stale = &ownStale;
};

#endif
