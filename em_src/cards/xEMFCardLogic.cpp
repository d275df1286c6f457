#include "cards/xEMFCardLogic.h"

#include "cards/xEMFSample.h"
#include "frame/xFileDialog.h"
#include "gui/xPlatform.h"
#include "model/xEMDesc.h"
#include "model/xEMFDesc.h"
#include "model/xTROrientation.h"

#include <algorithm>
#include <cctype>
#include <cmath>

const char* const xEMFCardLogic::kSampleDialogTitle = "Open sample EM data file (must be ASCII!)";
const char* const xEMFCardLogic::kSamplePrompt =
    "EM Data sample.\nThis is a beginning of ASCII data file you specified. You can scroll through it to determine "
    "number of comment lines\nat its beginning and number of data record items, both values needed in edit boxes "
    "bellow.";
const char* const xEMFCardLogic::kCommentLinesPrompt =
    "Number of comment lines\nSpecify number of comment lines at the beginning of each EM data file.\nThis number "
    "has to be *the same for all files* in processed data set.";
const char* const xEMFCardLogic::kItemCountPrompt =
    "Number of items per EM data record.\nSpecify number of items in each data record.\nPlease note that following "
    "information has to be present in each data record: line, station (or FID), x, y, z (coordinates)\nand at "
    "least three sampling channels.";
const char* const xEMFCardLogic::kParsePrompt =
    "Parse EM data.\nSpecified sample EM data file is read and parsed using number of comment lines and number of "
    "items per data record.\nYou can re-parse anytime by changing those values and hitting the parse button.";
const char* const xEMFCardLogic::kListsPrompt =
    "EM data record item selection.\nUse listboxes to select position of required information within the EM data "
    "record.\nPlease note that the following has to be present in each data record: line, station (or FID), x, y, "
    "z (coordinates)\nand at least three sampling channels.";
const char* const xEMFCardLogic::kChannelsPrompt =
    "Sampling channels.\nBoth random and sequential positioning of channels is supported. In sequential mode, "
    "position of individual channels\nis determined from user specified position of first (ch[1]) and last (ch[n]) "
    "channel; in random mode position\nof *every* channel has to be specified by user.Random mode requires user to "
    "specify number of channels in advance.";

bool xEMFCardLogic::showInvalidateWarning = true;

namespace {

const char* const kAnyType = "*";

// The orientations that channels belong to; the undefined one has none.
constexpr int kFirstCode = kFirstOrientationCode + 1;

float& Cell(FloatMatrix& matrix, int code, int column)
{
    return *matrix.Element(code, column);
}

bool Holds(FloatMatrix& matrix, int code, int column, int p)
{
    return Cell(matrix, code, column) == static_cast<float>(p);
}

// A position held in a float, as the record writes it.
int32_t Truncated(float value)
{
    return std::fabs(value) < 2147483648.0f ? static_cast<int32_t>(value) : 0;
}

// Fills a matrix with 0; true when it held something else.
bool Cleared(FloatMatrix& matrix)
{
    const float* values = matrix.Data();
    const bool held = std::any_of(values, values + matrix.Total(), [](float v) { return v != 0.0f; });
    matrix.Fill(nullptr);
    return held;
}

void Take(int32_t& field, int32_t value, bool& changed)
{
    if (field == value)
        return;
    field = value;
    changed = true;
}

} // namespace

xEMFCardLogic::xEMFCardLogic(xEMDesc& document, xCommandTarget* up) : xCardLogic(document, up)
{
    randomChannels = Format().HasRandomChannels() ? 1 : 0;
    sampleSpec.type = kAnyType;
}

xEMFDesc& xEMFCardLogic::Format() const
{
    return *Document().format;
}

xEMFCardLogic::Values xEMFCardLogic::ValuesOf(const xEMFDesc& format)
{
    Values values;
    values.commentLines = format.commentLines;
    values.itemCount = format.itemCount;
    return values;
}

int xEMFCardLogic::Columns(int code) const
{
    return std::min(Format().OrientationChannels(code), Format().ChannelCount());
}

bool xEMFCardLogic::Apply(const Values& values, std::string& message)
{
    xEMFDesc& format = Format();
    bool changed = false;
    if (parsed) {
        Take(format.itemCount, values.itemCount, changed);
        Take(format.commentLines, values.commentLines, changed);
    }
    const char* fault = nullptr;
    if (format.linePos == 0 && format.geosoft == 0)
        fault = "Undefined position of line number.";
    else if (format.fidPos == 0)
        fault = "Undefined position of FID.";
    else if (format.eastPos == 0)
        fault = "Undefined position of x coordinate.";
    else if (format.northPos == 0)
        fault = "Undefined position of y coordinate.";
    for (int code = kFirstCode; code <= kLastOrientationCode && !fault; ++code) {
        for (int i = 1; i <= Columns(code) && !fault; ++i) {
            if (!format.frequencyDomain) {
                if (Holds(format.channelPos, code, i, 0))
                    fault = "Undefined position of some channels.";
            } else if (Holds(format.quadraturePos, code, i, 0)) {
                fault = "Undefined QUADRATURE position.";
            } else if (Holds(format.inPhasePos, code, i, 0)) {
                fault = "Undefined PHASE position.";
            }
        }
    }
    if (changed)
        MarkChanged();
    if (fault) {
        message = fault;
        return false;
    }
    if (!message.empty())
        return false;
    if (parsed) {
        const std::string path = sampleSpec.FullPath();
        if (format.sampleFile != path) {
            format.sampleFile = path;
            MarkChanged();
        }
    }
    return true;
}

bool xEMFCardLogic::CheckRecord(std::string& message)
{
    return Apply(ValuesOf(Format()), message);
}

// --- The sample ---

bool xEMFCardLogic::ShowSample()
{
    return xEMFSample::ReadHead(sampleSpec.FullPath(), sampleLines);
}

bool xEMFCardLogic::OpenSample()
{
    xFileSpec spec = sampleSpec;
    // The first look starts where the descriptor lies.
    if (spec.name.empty())
        spec.SetDirectoryText(Platform().CurrentDirectory());
    if (FileOpenDialog(&spec, kSampleDialogTitle) != kFileDialogChosen)
        return false;
    sampleSpec = spec;
    ShowSample();
    return true;
}

bool xEMFCardLogic::ReopenSample()
{
    const std::string& stored = Format().sampleFile;
    if (stored.empty())
        return false;
    const xFileSpec saved = sampleSpec;
    sampleSpec.SetPath(stored);
    if (ShowSample())
        return true;
    sampleSpec = saved;
    return false;
}

bool xEMFCardLogic::AskYes(const char* text) const
{
    return PostAsk("No", "Yes", "Cancel", "%s", text) == 1;
}

bool xEMFCardLogic::CheckCounts(const Values& typed)
{
    xEMFDesc& format = Format();
    bool changed = false;
    Take(format.commentLines, typed.commentLines, changed);
    if (changed)
        MarkChanged();
    if (format.commentLines < 0) {
        PostError("Negative number of comment lines in file header specified.");
        return false;
    }
    if (format.commentLines > kCommentLinesAsked &&
        !AskYes("Are you sure the data file headers contain more than 30 comment lines?"))
        return false;
    Take(format.itemCount, typed.itemCount, changed);
    if (changed)
        MarkChanged();
    if (format.itemCount < kFewestItems) {
        PostError("The data record has to contain at least eight items comprising Flight number, Line number, FID, "
                  "x, y, altitude and two data channels.");
        return false;
    }
    if (format.itemCount > kMostItems) {
        PostError("Number of items per data record must not exceed %d!", kMostItems);
        return false;
    }
    if (format.itemCount > kItemsAsked && !AskYes("Are you sure the data file records contain more than 256 items?"))
        return false;
    return true;
}

void xEMFCardLogic::ParseSample()
{
    xEMFSample::Parse(sampleSpec.FullPath(), Format().commentLines, Format().itemCount, sampleRecords);
}

bool xEMFCardLogic::Parse(const Values& typed)
{
    if (!CheckCounts(typed))
        return false;
    Stale() = true;
    ParseSample();
    parsed = true;
    Rebuild();
    return true;
}

// --- The lists ---

void xEMFCardLogic::Rebuild()
{
    itemList.Build(Format(), randomChannels != 0);
    if (!parsed) {
        visibleColumns = 0;
        listEntries.clear();
        return;
    }
    visibleColumns = std::clamp(Format().itemCount, 0, kListCount);
    firstColumn = std::clamp(firstColumn, 0, std::max(sampleRecords.Cols() - visibleColumns, 0));
    listEntries.assign(static_cast<size_t>(visibleColumns), 0);
    SyncAllLists();
}

int xEMFCardLogic::ListEntry(int list) const
{
    if (list < 0 || list >= static_cast<int>(listEntries.size()))
        return 0;
    const int entry = listEntries[static_cast<size_t>(list)];
    return entry < itemList.Size() ? entry : 0;
}

int xEMFCardLogic::ChannelEntryOf(int p) const
{
    xEMFDesc& format = Format();
    const bool frequency = format.frequencyDomain != 0;
    if (!randomChannels) {
        // Only the first channels are placed; a later orientation overrides
        // an earlier one, in phase overrides quadrature.
        std::string label;
        for (int code = kFirstCode; code <= kLastOrientationCode; ++code) {
            if (frequency) {
                if (Holds(format.quadraturePos, code, 1, p))
                    label = xEMFItemList::ChannelLabel({'Q', code, 1});
                if (Holds(format.inPhasePos, code, 1, p))
                    label = xEMFItemList::ChannelLabel({'P', code, 1});
            } else if (Holds(format.channelPos, code, 1, p)) {
                label = xEMFItemList::ChannelLabel({0, code, 1});
            }
        }
        return label.empty() ? 0 : itemList.IndexOf(label);
    }
    for (int code = kFirstCode; code <= kLastOrientationCode; ++code) {
        for (int i = 1; i <= Columns(code); ++i) {
            if (frequency) {
                if (Holds(format.quadraturePos, code, i, p))
                    return itemList.IndexOf(xEMFItemList::ChannelLabel({'Q', code, i}));
                if (Holds(format.inPhasePos, code, i, p))
                    return itemList.IndexOf(xEMFItemList::ChannelLabel({'P', code, i}));
            } else if (Holds(format.channelPos, code, i, p)) {
                return itemList.IndexOf(xEMFItemList::ChannelLabel({0, code, i}));
            }
        }
    }
    return 0;
}

int xEMFCardLogic::EntryOf(int p) const
{
    const xEMFDesc& format = Format();
    for (int k = 0; k < xEMFDesc::kFixedItemCount; ++k)
        if (format.*xEMFDesc::kFixedFields[k] == p)
            return k + 1;
    for (size_t i = 0; i < format.userPositions.size(); ++i)
        if (format.userPositions[i] == p)
            return xEMFDesc::kFixedItemCount + 1 + static_cast<int>(i);
    return ChannelEntryOf(p);
}

void xEMFCardLogic::SyncList(int list)
{
    if (list >= 0 && list < static_cast<int>(listEntries.size()))
        listEntries[static_cast<size_t>(list)] = EntryOf(ListPosition(list));
}

void xEMFCardLogic::SyncAllLists()
{
    for (int list = 0; list < static_cast<int>(listEntries.size()); ++list)
        SyncList(list);
}

FloatMatrix& xEMFCardLogic::MatrixOf(char component) const
{
    xEMFDesc& format = Format();
    if (component == 'Q')
        return format.quadraturePos;
    if (component == 'P')
        return format.inPhasePos;
    return format.channelPos;
}

void xEMFCardLogic::FreeChannels(int p)
{
    xEMFDesc& format = Format();
    const bool frequency = format.frequencyDomain != 0;
    for (int code = kFirstCode; code <= kLastOrientationCode; ++code) {
        const int last = randomChannels ? Columns(code) : 1;
        for (int i = 1; i <= last; ++i) {
            if (!frequency) {
                if (Holds(format.channelPos, code, i, p))
                    Cell(format.channelPos, code, i) = 0.0f;
            } else if (Holds(format.quadraturePos, code, i, p)) {
                Cell(format.quadraturePos, code, i) = 0.0f;
            } else if (Holds(format.inPhasePos, code, i, p)) {
                Cell(format.inPhasePos, code, i) = 0.0f;
            }
        }
    }
}

void xEMFCardLogic::SelectItem(int list, int entry)
{
    if (list < 0 || list >= static_cast<int>(listEntries.size()))
        return;
    xEMFDesc& format = Format();
    const int p = ListPosition(list);
    listEntries[static_cast<size_t>(list)] = entry;

    // What the position held is freed: the first fixed or user item there,
    // else every channel there.
    bool freed = false;
    for (int32_t xEMFDesc::*field : xEMFDesc::kFixedFields) {
        if (format.*field == p) {
            format.*field = 0;
            freed = true;
            break;
        }
    }
    if (!freed) {
        auto user = std::find(format.userPositions.begin(), format.userPositions.end(), p);
        if (user != format.userPositions.end())
            *user = 0;
        else
            FreeChannels(p);
    }

    if (itemList.IsFixed(entry)) {
        AssignPosition(format.*xEMFDesc::kFixedFields[entry - 1], p, list);
    } else if (itemList.IsUser(entry)) {
        const size_t user = static_cast<size_t>(itemList.UserIndex(entry));
        if (user < format.userPositions.size()) {
            int32_t position = format.userPositions[user];
            AssignPosition(position, p, list);
            format.userPositions[user] = position;
        }
    } else if (itemList.IsChannel(entry)) {
        xEMFItemList::Channel channel;
        const bool frequency = format.frequencyDomain != 0;
        if (xEMFItemList::ParseChannel(itemList.Name(entry), frequency, channel) &&
            channel.index <= format.ChannelCount()) {
            FloatMatrix& matrix = MatrixOf(channel.component);
            int32_t position = Truncated(Cell(matrix, channel.code, channel.index));
            if (AssignPosition(position, p, list) && !randomChannels)
                SpreadChannels(matrix, channel.code, position, frequency ? 2 : 1);
            Cell(matrix, channel.code, channel.index) = static_cast<float>(position);
        }
    }
    // The other lists show what placing the item freed.
    SyncAllLists();
    MarkChanged();
}

bool xEMFCardLogic::AssignPosition(int32_t& field, int p, int list)
{
    if (field == 0 || field == p) {
        field = p;
        MarkChanged();
        return true;
    }
    const std::string shown = itemList.Name(ListEntry(list));
    if (PostAsk("No", "Yes", "Cancel", "You have already selected %s. Do you want to erase that selection?",
                shown.c_str()) != 1) {
        SyncList(list);
        return false;
    }
    const int old = field;
    if (old > firstColumn && old <= firstColumn + visibleColumns)
        listEntries[static_cast<size_t>(old - firstColumn - 1)] = 0;
    field = p;
    MarkChanged();
    return true;
}

void xEMFCardLogic::SpreadChannels(FloatMatrix& matrix, int code, int start, int step)
{
    const int count = Columns(code);
    for (int i = 2; i <= count; ++i) {
        start += step;
        FreePosition(start);
        Cell(matrix, code, i) = static_cast<float>(start);
    }
}

void xEMFCardLogic::FreePosition(int q)
{
    xEMFDesc& format = Format();
    for (int32_t xEMFDesc::*field : xEMFDesc::kFixedFields) {
        if (format.*field == q) {
            format.*field = 0;
            return;
        }
    }
    // One counter for all orientations: each is looked at only from where
    // the one before stopped.
    const bool frequency = format.frequencyDomain != 0;
    int i = 1;
    for (int code = kFirstCode; code <= kLastOrientationCode; ++code) {
        if (format.OrientationChannels(code) == 0)
            continue;
        for (; i <= Columns(code); ++i) {
            FloatMatrix* hit = nullptr;
            if (!frequency)
                hit = Holds(format.channelPos, code, i, q) ? &format.channelPos : nullptr;
            else if (Holds(format.quadraturePos, code, i, q))
                hit = &format.quadraturePos;
            else if (Holds(format.inPhasePos, code, i, q))
                hit = &format.inPhasePos;
            if (!hit)
                continue;
            if (randomChannels)
                Cell(*hit, code, i) = 0.0f;
            else
                format.ClearPositions(code);
            return;
        }
    }
}

void xEMFCardLogic::ScrollTo(int column)
{
    firstColumn = column;
    SyncAllLists();
}

// --- Modes and flags ---

bool xEMFCardLogic::ConfirmInvalidate(const std::string& text)
{
    if (!showInvalidateWarning)
        return true;
    switch (PostAsk("Proceed", "Don't Show Again", "Cancel", "%s", text.c_str())) {
    case 0:
        return true;
    case 1:
        showInvalidateWarning = false;
        return true;
    default:
        return false;
    }
}

bool xEMFCardLogic::ChangeMode(int mode)
{
    const char* text =
        mode ? "Selecting random channels/freq will invalidate previously selected channel/freq positions."
             : "Selecting consecutive channels/freq will invalidate previously selected channel/freq positions.";
    if (!ConfirmInvalidate(text))
        return false;
    xEMFDesc& format = Format();
    randomChannels = mode;
    Stale() = parsed;
    bool cleared = false;
    if (format.frequencyDomain) {
        cleared = Cleared(format.quadraturePos);
        cleared = Cleared(format.inPhasePos) || cleared;
    } else {
        cleared = Cleared(format.channelPos);
    }
    if (cleared)
        MarkChanged();
    Rebuild();
    return true;
}

void xEMFCardLogic::SetGeosoft(bool on)
{
    Format().geosoft = on ? 1 : 0;
    MarkChanged();
}

// --- User items ---

std::string xEMFCardLogic::UserItemFault(const std::string& name, const std::vector<std::string>& userLabels)
{
    // A name stands in its row of the file up to the first white space.
    const bool blank = std::any_of(name.begin(), name.end(),
                                   [](char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; });
    if (name.empty() || blank)
        return "No blanks allowed in item names!";
    if (name.size() > kLongestUserItem)
        return "Item name must not exceed 20 characters!";
    if (std::find(userLabels.begin(), userLabels.end(), name) != userLabels.end())
        return "Duplicate item names are not allowed!";
    return std::string();
}

bool xEMFCardLogic::AddUserItem(const std::function<bool(std::string& name)>& askName)
{
    xEMFDesc& format = Format();
    std::string name;
    while (askName(name)) {
        const std::string fault = UserItemFault(name, format.userLabels);
        if (fault.empty()) {
            format.userLabels.push_back(name);
            format.userPositions.push_back(0);
            MarkChanged();
            Rebuild();
            return true;
        }
        PostNote("%s", fault.c_str());
    }
    return false;
}

bool xEMFCardLogic::RemoveUserItem(
    const std::function<bool(const std::vector<std::string>& names, int& index)>& choose)
{
    xEMFDesc& format = Format();
    const std::vector<std::string> names = format.UserItemsWithoutZAsl();
    if (names.empty())
        return false;
    int index = 0;
    if (!choose(names, index) || index < 0 || index >= static_cast<int>(names.size()))
        return false;
    const auto found = std::find(format.userLabels.begin(), format.userLabels.end(), names[static_cast<size_t>(index)]);
    const size_t at = static_cast<size_t>(found - format.userLabels.begin());
    format.userLabels.erase(found);
    if (at < format.userPositions.size())
        format.userPositions.erase(format.userPositions.begin() + static_cast<std::ptrdiff_t>(at));
    MarkChanged();
    Rebuild();
    return true;
}
