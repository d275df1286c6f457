#include "model/xEMFDesc.h"

#include "frame/xDoc.h"
#include "gui/xPlatform.h"
#include "model/xDscText.h"
#include "model/xTROrientation.h"
#include "numeric/xExtract.h"

#include <algorithm>
#include <charconv>
#include <cmath>

const char* const xEMFDesc::kFixedItemNames[kFixedItemCount] = {
    "line", "FID", "east", "north", "z_topo", "altitude",
    "Rx_pitch", "Rx_roll", "Rx_yaw", "Tx_pitch", "Tx_roll", "Tx_yaw"};

int32_t xEMFDesc::* const xEMFDesc::kFixedFields[kFixedItemCount] = {
    &xEMFDesc::linePos, &xEMFDesc::fidPos, &xEMFDesc::eastPos, &xEMFDesc::northPos,
    &xEMFDesc::topoPos, &xEMFDesc::altitudePos,
    &xEMFDesc::rxPitchPos, &xEMFDesc::rxRollPos, &xEMFDesc::rxYawPos,
    &xEMFDesc::txPitchPos, &xEMFDesc::txRollPos, &xEMFDesc::txYawPos};

// Coordinates are class 1, angles class 0; user items are class 2.
const int xEMFDesc::kFixedClasses[kFixedItemCount] = {1, 1, 1, 1, 1, 1, 0, 0, 0, 0, 0, 0};

namespace {

constexpr int kUserItemClass = 2;
constexpr int kTableWidth = 6;
constexpr int kNameWidth = 14;
constexpr int kNumberWidth = 4;

const char* const kChannelHeading = "POSITION (INDEX) OF CHANNELS IN EACH DATA RECORD";
const char* const kInPhaseHeading = "POSITION (INDEX) OF IN PHASE IN EACH DATA RECORD";
const char* const kQuadratureHeading = "POSITION (INDEX) OF QUADRATURE IN EACH DATA RECORD";

// A position held in a float, as a whole number. Values that no 32-bit
// integer holds (and NaN) count as undefined.
int32_t Truncate(double value)
{
    return std::fabs(value) < 2147483648.0 ? static_cast<int32_t>(value) : 0;
}

float& At(FloatMatrix& matrix, int code, int column)
{
    return matrix.Row(code)[column];
}

float At(const FloatMatrix& matrix, int code, int column)
{
    return matrix.Row(code)[column];
}

// Rows of a position table, one per orientation code.
constexpr int kCodes = kLastOrientationCode - kFirstOrientationCode + 1;

// Where each orientation's positions begin. A row's positions lie side by
// side, so a table of many channels is walked by pointer, not by a row view
// per number.
template <class Float, class Matrix>
void RowStarts(Matrix& matrix, Float* (&starts)[kCodes])
{
    for (int k = 0; k < kCodes; ++k)
        starts[k] = &matrix.Row(kFirstOrientationCode + k)[matrix.ColLower()];
}

void Skip(std::istream& in, int lines)
{
    for (int i = 0; i < lines; ++i)
        xDoc::ReadLine(in, nullptr);
}

// --- Writing: one text buffer per record, numbers formatted in place. ---

void AppendLine(std::string& text, const std::string& line)
{
    text += line;
    text += '\n';
}

// A left-justified field; text that fills it gets one blank behind, so that
// the row still splits into its fields when read back.
void AppendLeft(std::string& text, const char* field, size_t length, int width)
{
    text.append(field, length);
    text.append(length < static_cast<size_t>(width) ? width - length : 1, ' ');
}

void AppendLeft(std::string& text, int32_t value, int width)
{
    char digits[16];
    const std::to_chars_result end = std::to_chars(digits, digits + sizeof digits, value);
    AppendLeft(text, digits, static_cast<size_t>(end.ptr - digits), width);
}

void AppendItemRow(std::string& text, const std::string& name, int32_t position, int itemClass)
{
    AppendLeft(text, name.data(), name.size(), kNameWidth);
    AppendLeft(text, position, kNumberWidth);
    AppendLeft(text, itemClass, kNumberWidth);
    text += '\n';
}

void AppendTable(std::ostream& out, std::string& text, const char* heading, const char* column,
                 const FloatMatrix& matrix)
{
    text += heading;
    text += '\n';
    text += column;
    for (const std::string& name : OrientationNames()) {
        text.append(kTableWidth - std::min<size_t>(name.size(), kTableWidth), ' ');
        text += name;
    }
    text += '\n';
    const float* rows[kCodes];
    RowStarts(matrix, rows);
    const int columns = matrix.ColUpper() - matrix.ColLower() + 1;
    for (int j = 0; j < columns; ++j) {
        xDscText::AppendColumnInt(text, matrix.ColLower() + j, kTableWidth);
        for (int k = 0; k < kCodes; ++k)
            xDscText::AppendColumnInt(text, Truncate(rows[k][j]), kTableWidth);
        text += '\n';
        xDscText::FlushFull(out, text);
    }
}

// --- Reading ---

bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f';
}

// The first two fields of an item row: the name and the position. A missing
// field leaves its output alone; the class number behind them is not used.
// Returns the number of fields found (0 to 2).
int SplitItemRow(const std::string& line, std::string* name, int32_t& position)
{
    const char* p = line.data();
    const char* const end = p + line.size();
    int found = 0;
    while (found < 2) {
        while (p < end && IsBlank(*p))
            ++p;
        if (p == end)
            break;
        const char* const start = p;
        while (p < end && !IsBlank(*p))
            ++p;
        if (found == 0) {
            if (name)
                name->assign(start, p);
        } else {
            // A text to number conversion that reads what it can and gives 0
            // for a text that is no number, whatever the locale.
            const char* from = start;
            if (from < p && *from == '+' && from + 1 < p && from[1] != '-')
                ++from;
            double value = 0.0;
            if (std::from_chars(from, p, value).ec != std::errc())
                value = 0.0;
            position = Truncate(value);
        }
        ++found;
    }
    return found;
}

// One position table, rows 1 to rows, then the rest of the last row's line.
void ReadRows(std::istream& in, FloatMatrix& matrix, int rows)
{
    float* columns[kCodes];
    RowStarts(matrix, columns);
    xDscText::ReadRows(in, rows, [&in, &columns](int32_t offset) {
        int32_t index = 0;
        xExtract::Int(in, index);
        for (float* column : columns)
            xExtract::Float(in, column[offset]);
    });
}

} // namespace

xEMFDesc::xEMFDesc(int channels)
    : channelPos(kFirstOrientationCode, kLastOrientationCode, 1, 1),
      quadraturePos(kFirstOrientationCode, kLastOrientationCode, 1, 1),
      inPhasePos(kFirstOrientationCode, kLastOrientationCode, 1, 1),
      title("DATA FORMAT")
{
    ResizeChannels(channels);
    ClearPositions(kFirstOrientationCode);
    clasf[kLastOrientationCode] = 1;
    userLabels.push_back(kZAsl);
    userPositions.push_back(0);
}

xEMFDesc::xEMFDesc(const xEMFDesc& other) : xEMFDesc(1)
{
    *this = other;
}

xEMFDesc& xEMFDesc::operator=(const xEMFDesc& other)
{
    if (this == &other)
        return *this;
    title = other.title;
    for (int32_t xEMFDesc::*field : kFixedFields)
        this->*field = other.*field;
    commentLines = other.commentLines;
    itemCount = other.itemCount;
    channelPos = other.channelPos;
    quadraturePos = other.quadraturePos;
    inPhasePos = other.inPhasePos;
    sampleFile = other.sampleFile;
    version = other.version;
    clasf = other.clasf;
    geosoft = other.geosoft;
    frequencyDomain = other.frequencyDomain;
    userLabels = other.userLabels;
    userPositions = other.userPositions;
    RebuildUsedPositions();
    return *this;
}

void xEMFDesc::ResizeChannels(int n)
{
    if (n < 1)
        n = 1;
    for (FloatMatrix* matrix : {&channelPos, &inPhasePos, &quadraturePos}) {
        if (matrix->RowLower() == kFirstOrientationCode && matrix->RowUpper() == kLastOrientationCode &&
            matrix->ColLower() == 1 && matrix->ColUpper() == n)
            continue;
        const FloatMatrix former(*matrix);
        matrix->Resize(kFirstOrientationCode, kLastOrientationCode, 1, n);
        matrix->CopyOverlap(former);
    }
}

void xEMFDesc::ResizeToClasf()
{
    ResizeChannels(clasf.Max());
}

void xEMFDesc::ClearPositions(int code)
{
    const float zero = 0.0f;
    for (FloatMatrix* matrix : {&channelPos, &quadraturePos, &inPhasePos}) {
        if (code == kFirstOrientationCode)
            matrix->Fill(&zero);
        else if (code > kFirstOrientationCode && code <= kLastOrientationCode)
            matrix->FillRow(code, &zero);
    }
}

int32_t xEMFDesc::OrientationChannels(int code) const
{
    return clasf.InRange(code) ? clasf[code] : 0;
}

void xEMFDesc::SetOrientationChannels(int32_t count, int code)
{
    if (clasf.InRange(code))
        clasf[code] = count;
}

void xEMFDesc::SetOrientation(int code, int16_t count)
{
    if (!clasf.InRange(code))
        return;
    clasf[code] = count;
    for (FloatMatrix* matrix : {&channelPos, &quadraturePos, &inPhasePos})
        for (int i = 1; i <= ChannelCount(); ++i)
            At(*matrix, code, i) = 0.0f;
}

void xEMFDesc::CopyPositions(const xEMFDesc& from)
{
    const FloatMatrix* sources[] = {&from.channelPos, &from.quadraturePos, &from.inPhasePos};
    FloatMatrix* targets[] = {&channelPos, &quadraturePos, &inPhasePos};
    for (int k = 0; k < 3; ++k) {
        const FloatMatrix& source = *sources[k];
        FloatMatrix& target = *targets[k];
        if (target.Cols() < source.Cols())
            ResizeChannels(source.Cols());
        const int firstRow = std::max(source.RowLower(), target.RowLower());
        const int lastRow = std::min(source.RowUpper(), target.RowUpper());
        const int firstCol = std::max(source.ColLower(), target.ColLower());
        const int lastCol = std::min(source.ColUpper(), target.ColUpper());
        if (firstCol > lastCol)
            continue;
        // A row's elements lie side by side; walking them by pointer keeps a
        // block of many channels from costing a row lookup per number.
        for (int code = firstRow; code <= lastRow; ++code) {
            const float* from = &source.Row(code)[firstCol];
            float* to = &target.Row(code)[firstCol];
            for (int i = 0; i <= lastCol - firstCol; ++i)
                if (from[i] != 0.0f)
                    to[i] = from[i];
        }
    }
}

void xEMFDesc::MarkDefinedOrientations()
{
    clasf = 0;
    for (int code = kFirstOrientationCode; code <= kLastOrientationCode; ++code) {
        const bool defined = frequencyDomain
                                 ? At(quadraturePos, code, 1) != 0.0f && At(inPhasePos, code, 1) != 0.0f
                                 : At(channelPos, code, 1) != 0.0f;
        if (defined)
            clasf[code] = 1;
    }
}

bool xEMFDesc::HasRandomChannels() const
{
    for (int code = kFirstOrientationCode; code <= kLastOrientationCode; ++code) {
        // A count may pass the columns held; only those are looked at.
        const int count = std::min(clasf[code], ChannelCount());
        for (int i = 2; i <= count; ++i) {
            if (frequencyDomain) {
                const double quadrature = double(At(quadraturePos, code, i)) - At(quadraturePos, code, i - 1);
                const double inPhase = double(At(inPhasePos, code, i)) - At(inPhasePos, code, i - 1);
                if (quadrature != 2.0 || inPhase != 2.0)
                    return true;
            } else {
                const double step = double(At(channelPos, code, i)) - At(channelPos, code, i - 1);
                if (step != 1.0 && step != 0.0)
                    return true;
            }
        }
    }
    return false;
}

void xEMFDesc::RebuildUsedPositions()
{
    usedPositions.clear();
    // Sized once: a record of many channels holds a position per channel and orientation.
    size_t count = kFixedItemCount + userPositions.size();
    for (int code = kFirstOrientationCode + 1; code <= kLastOrientationCode; ++code)
        if (clasf[code] != 0)
            count += size_t(frequencyDomain ? 2 : 1) * size_t(std::max(channelPos.Cols(), 0));
    usedPositions.reserve(count);
    for (int32_t xEMFDesc::*field : kFixedFields)
        usedPositions.push_back(this->*field);
    for (int code = kFirstOrientationCode + 1; code <= kLastOrientationCode; ++code) {
        if (clasf[code] == 0)
            continue;
        const FloatArray& quadrature = quadraturePos.Row(code);
        const FloatArray& inPhase = inPhasePos.Row(code);
        const FloatArray& channel = channelPos.Row(code);
        for (int i = channelPos.ColLower(); i <= channelPos.ColUpper(); ++i) {
            if (frequencyDomain) {
                usedPositions.push_back(Truncate(quadrature[i]));
                usedPositions.push_back(Truncate(inPhase[i]));
            } else {
                usedPositions.push_back(Truncate(channel[i]));
            }
        }
    }
    usedPositions.insert(usedPositions.end(), userPositions.begin(), userPositions.end());
}

int32_t xEMFDesc::ZAslPosition() const
{
    const auto found = std::find(userLabels.begin(), userLabels.end(), kZAsl);
    const size_t index = static_cast<size_t>(found - userLabels.begin());
    return found != userLabels.end() && index < userPositions.size() ? userPositions[index] : 0;
}

std::vector<std::string> xEMFDesc::UserItemsWithoutZAsl() const
{
    std::vector<std::string> labels;
    for (const std::string& label : userLabels)
        if (label != kZAsl)
            labels.push_back(label);
    return labels;
}

namespace {

// Lists compared in step; one that is empty on either side passes, lists
// of different lengths differ. A second list that ends first has been
// changed under the walk.
template <class T>
bool SameInStep(const std::vector<T>& first, const std::vector<T>& second, const char* note)
{
    if (first.empty() || second.empty())
        return true;
    if (first.size() != second.size())
        return false;
    for (size_t i = 0; i < first.size(); ++i) {
        if (i >= second.size()) {
            PostNote("%s", note);
            return false;
        }
        if (first[i] != second[i])
            return false;
    }
    return true;
}

} // namespace

bool xEMFDesc::operator==(const xEMFDesc& other) const
{
    if (this == &other)
        return true;
    if (title != other.title || commentLines != other.commentLines || itemCount != other.itemCount)
        return false;
    for (int32_t xEMFDesc::*field : {&xEMFDesc::linePos, &xEMFDesc::fidPos, &xEMFDesc::eastPos,
                                     &xEMFDesc::northPos, &xEMFDesc::topoPos, &xEMFDesc::altitudePos,
                                     &xEMFDesc::rxPitchPos, &xEMFDesc::rxRollPos, &xEMFDesc::rxYawPos,
                                     &xEMFDesc::txPitchPos, &xEMFDesc::txRollPos, &xEMFDesc::txYawPos})
        if (this->*field != other.*field)
            return false;
    if (frequencyDomain != other.frequencyDomain)
        return false;
    if (frequencyDomain) {
        if (!(quadraturePos == other.quadraturePos) || !(inPhasePos == other.inPhasePos))
            return false;
    } else if (!(channelPos == other.channelPos)) {
        return false;
    }
    if (!(clasf == other.clasf) || geosoft != other.geosoft)
        return false;
    return SameInStep(userPositions, other.userPositions,
                      "xEMFDesc::operator==() - failed to recover orientation.");
}

bool xEMFDesc::HasSameTitles(const xEMFDesc& other) const
{
    return SameInStep(userLabels, other.userLabels,
                      "xEMFDesc::HasSameTitles() - failed to recover orientation.");
}

void xEMFDesc::Write(std::ostream& out) const
{
    std::string text;
    text.reserve(xDscText::kWriteChunk + 1024);

    AppendLine(text, title);
    AppendLine(text, "Geosoft format (1 yes, 0 no)");
    xDscText::AppendInt(text, geosoft, kTableWidth);
    text += '\n';
    AppendLine(text, "Sample file name (if available)");
    AppendLine(text, sampleFile);
    AppendLine(text, "Number of comment lines at the beginning of each data file");
    xDscText::AppendInt(text, commentLines, kTableWidth);
    text += '\n';
    AppendLine(text, "Number of items in each data record");
    xDscText::AppendInt(text, itemCount, kTableWidth);
    text += '\n';
    if (frequencyDomain) {
        AppendTable(out, text, kInPhaseHeading, "freq ", inPhasePos);
        AppendTable(out, text, kQuadratureHeading, "freq ", quadraturePos);
    } else {
        AppendTable(out, text, kChannelHeading, "channel ", channelPos);
    }
    xDscText::Flush(out, text);

    // Item rows are left-justified, and the stream is left so.
    out.setf(std::ios::left, std::ios::adjustfield);
    AppendLine(text, kTableSeparator);
    for (int k = 0; k < kFixedItemCount; ++k)
        AppendItemRow(text, kFixedItemNames[k], this->*kFixedFields[k], kFixedClasses[k]);
    const size_t users = std::min(userLabels.size(), userPositions.size());
    for (size_t i = 0; i < users; ++i)
        AppendItemRow(text, userLabels[i], userPositions[i], kUserItemClass);
    AppendLine(text, kTableSeparator);
    xDscText::Flush(out, text);
}

void xEMFDesc::Read(std::istream& in)
{
    if (version == 9)
        ReadVersion9(in);
    else
        ReadOlder(in);
    EnsureZAsl();
    RebuildUsedPositions();
}

void xEMFDesc::ReadTables(std::istream& in)
{
    ReadRows(in, channelPos, ChannelCount());
    if (!frequencyDomain)
        return;
    // Both tables pass through channelPos, which ends up zero.
    inPhasePos = channelPos;
    const float zero = 0.0f;
    channelPos.Fill(&zero);
    Skip(in, 2);
    ReadRows(in, quadraturePos, ChannelCount());
}

void xEMFDesc::ReadVersion9(std::istream& in)
{
    xDoc::ReadLine(in, &title);
    Skip(in, 1);
    xExtract::Short(in, geosoft);
    Skip(in, 2);
    xDoc::ReadLine(in, &sampleFile);
    Skip(in, 1);
    xExtract::Int(in, commentLines);
    Skip(in, 2);
    xExtract::Int(in, itemCount);
    Skip(in, 3);
    ReadTables(in);
    Skip(in, 1);   // the separator

    // Fixed rows go by place; their names are not looked at.
    std::string line;
    for (int32_t xEMFDesc::*field : kFixedFields) {
        xDoc::ReadLine(in, &line);
        SplitItemRow(line, nullptr, this->*field);
    }
    ReadUserRows(in);
}

void xEMFDesc::ReadUserRows(std::istream& in)
{
    userLabels.clear();
    userPositions.clear();
    std::string line;
    std::string name;
    for (;;) {
        // A record without its closing separator ends with the file.
        const int end = xDoc::ReadLine(in, &line);
        if (line == kTableSeparator || (end == 0 && line.empty()))
            return;
        int32_t position = 0;
        if (SplitItemRow(line, &name, position) > 0) {
            userLabels.push_back(name);
            userPositions.push_back(position);
        }
        if (end == 0)
            return;
    }
}

void xEMFDesc::ReadOlder(std::istream& in)
{
    xDoc::ReadLine(in, &title);
    Skip(in, 1);
    xDoc::ReadLine(in, &sampleFile);
    Skip(in, 1);
    xExtract::Int(in, commentLines);
    for (int32_t* field : {&itemCount, &linePos, &fidPos}) {
        Skip(in, 2);
        xExtract::Int(in, *field);
    }
    Skip(in, 2);
    xExtract::Int(in, eastPos);
    xExtract::Int(in, northPos);
    xExtract::Int(in, topoPos);
    Skip(in, 2);
    xExtract::Int(in, altitudePos);
    Skip(in, 2);
    // Version 5 has no angles: the line just read heads the first table.
    if (version > 5) {
        xExtract::Int(in, rxPitchPos);
        xExtract::Int(in, rxRollPos);
        xExtract::Int(in, rxYawPos);
        Skip(in, 2);
        xExtract::Int(in, txPitchPos);
        xExtract::Int(in, txRollPos);
        xExtract::Int(in, txYawPos);
        Skip(in, 2);
    }
    Skip(in, 1);
    ReadTables(in);

    // The end of the file may come behind the tables, whose last row's line
    // has been taken; next stand the Geosoft prompt and flag.
    if (!in.fail()) {
        Skip(in, 1);
        if (!in.fail()) {
            xExtract::Short(in, geosoft);
        } else {
            geosoft = 0;
            in.clear();
        }
    }
    ReadOlderUserItems(in);
}

void xEMFDesc::ReadOlderUserItems(std::istream& in)
{
    userLabels.clear();
    userPositions.clear();
    Skip(in, 1);
    std::string line;
    xDoc::ReadLine(in, &line);
    if (line != kUserItemsHeading) {
        in.clear();
        return;
    }
    int32_t count = 0;
    xExtract::Int(in, count);
    Skip(in, 1);
    std::string name;
    for (int32_t i = 0; i < count; ++i) {
        // A name runs to the first blank of its line.
        name.clear();
        std::streambuf* buffer = in.rdbuf();
        while (!in.fail() && buffer) {
            const int c = buffer->sgetc();
            if (c == std::char_traits<char>::eof() || c == '\n' || c == '\r')
                break;
            buffer->sbumpc();
            if (c == ' ')
                break;
            name.push_back(static_cast<char>(c));
        }
        int32_t position = 0;
        // Rows missing at the end of the file are not made up.
        if (!xExtract::Int(in, position))
            return;
        Skip(in, 1);
        userLabels.push_back(name);
        userPositions.push_back(position);
    }
}

void xEMFDesc::EnsureZAsl()
{
    if (std::find(userLabels.begin(), userLabels.end(), kZAsl) == userLabels.end()) {
        userLabels.push_back(kZAsl);
        userPositions.push_back(0);
    }
}

std::istream& operator>>(std::istream& in, xEMFDesc& format)
{
    format.Read(in);
    return in;
}

std::ostream& operator<<(std::ostream& out, const xEMFDesc& format)
{
    format.Write(out);
    return out;
}
