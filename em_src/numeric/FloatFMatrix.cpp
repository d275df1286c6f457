#include "numeric/FloatFMatrix.h"

#include "frame/xDoc.h"
#include "gui/xPlatform.h"

#include <algorithm>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace {

// A new empty file in the temporary directory; empty when none can be made.
std::string MakeTemporaryFile()
{
    std::error_code error;
    std::filesystem::path directory = std::filesystem::temp_directory_path(error);
    if (error)
        directory = "/tmp";
    std::string pattern = (directory / "tolvadXXXXXX").string();
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    int descriptor = mkstemp(name.data());
    if (descriptor < 0)
        return std::string();
    close(descriptor);
    return name.data();
}

int BlocksFor(int32_t rows, int32_t perBlock)
{
    return static_cast<int>((int64_t(rows) + perBlock - 1) / perBlock);
}

}  // namespace

FloatFMatrix::FloatFMatrix(xDoc* attachedFile) : file(attachedFile) {}

FloatFMatrix::FloatFMatrix(xDoc* attachedFile, int rowsPerBlock, int rowCount, int colCount)
    : file(attachedFile)
{
    if (rowCount < rowsPerBlock)
        rowsPerBlock = rowCount;
    long position = file ? file->Tell() : 0;
    Attach(static_cast<int>(std::max(0L, position)), rowsPerBlock, rowCount, colCount);
}

FloatFMatrix::FloatFMatrix(int rowsPerBlock, int rowCount, int colCount, const char* name)
{
    OpenOwnFile(name);
    Attach(0, rowsPerBlock, rowCount, colCount);
}

FloatFMatrix::FloatFMatrix(const FloatFMatrix& other, const char* name) : FloatMatrix()
{
    OpenOwnFile(name);
    Attach(0, other.blockRows, other.totalRows, other.cols);
    // The source's own walk, so that what its window holds reaches the copy.
    FloatFMatrix& source = const_cast<FloatFMatrix&>(other);
    source.RewindBlocks();
    while (source.NextBlock())
        for (int r = source.rowLower; r <= source.rowUpper; ++r) {
            const FloatArray& from = source.FloatMatrix::Row(r);
            float* to = Row(totalLower + (r - source.totalLower)).Data();
            std::copy(from.Data(), from.Data() + std::min(from.Size(), cols), to);
        }
    Sync();
}

FloatFMatrix& FloatFMatrix::operator=(const FloatFMatrix&)
{
    PostError("FloatFMatrix: operator= called - Not implemented!");
    return *this;
}

FloatFMatrix::~FloatFMatrix()
{
    if (!fileName.empty() && file)
        file->CloseFile();
    if (isTemporary && file && !file->DeleteFile())
        PostWarning("FloatFMatrix: Unable to delete temporary file!");
}

void FloatFMatrix::OpenOwnFile(const char* name)
{
    ownsFile = true;
    ownedFile = std::make_unique<xDoc>();
    file = ownedFile.get();
    file->fileKind = 1;
    fileName = name ? name : MakeTemporaryFile();
    if (!name && fileName.empty()) {
        PostError("FloatFMatrix: Unable to create temporary file!");
        return;
    }
    isTemporary = name == nullptr;
    file->SetFilePath(fileName);
    // Opening enters the file's directory; the program's own stays as it was.
    std::string here = Platform().CurrentDirectory();
    bool opened = file->OpenForWrite(nullptr);
    Platform().SetCurrentDirectory(here);
    if (!opened)
        PostError("FloatFMatrix: Unable to open file %s!", fileName.c_str());
}

bool FloatFMatrix::Writable() const
{
    return file && file->IsWritable();
}

long FloatFMatrix::RowPosition(int r) const
{
    return fileOffset + kHeaderSize + (long(r) - totalLower) * cols * long(sizeof(float));
}

void FloatFMatrix::WriteHeader()
{
    if (!Writable())
        return;
    int32_t header[4] = {totalLower, totalUpper, colLower, colUpper};
    file->Seek(fileOffset);
    file->WriteBytes(reinterpret_cast<const char*>(header), sizeof header);
}

void FloatFMatrix::ReadHeader()
{
    // An unreadable header leaves an empty table.
    int32_t header[4] = {0, -1, 0, -1};
    if (file && file->Seek(fileOffset))
        file->ReadBytes(reinterpret_cast<char*>(header), sizeof header);
    totalLower = header[0];
    totalUpper = header[1];
    colLower = header[2];
    colUpper = header[3];
    int64_t count = int64_t(totalUpper) - totalLower + 1;
    if (count < 0) {
        count = 0;
        totalLower = 0;
        totalUpper = -1;
    }
    totalRows = static_cast<int32_t>(std::min<int64_t>(count, INT32_MAX));
}

void FloatFMatrix::Attach(int offset, int rowsPerBlock, int rowCount, int colCount)
{
    fileOffset = offset;
    if (rowsPerBlock != 0)
        blockRows = rowsPerBlock;
    blockCursor = 0;
    bool fresh = rowCount != 0 || colCount != 0;
    if (fresh) {
        totalRows = std::max(rowCount, 0);
        totalLower = 0;
        totalUpper = totalRows - 1;
        colLower = 0;
        colUpper = static_cast<int32_t>(std::max<int64_t>(int64_t(colCount) - 1, INT32_MIN));
        WriteHeader();
    } else {
        ReadHeader();
    }
    if (blockRows < 2)
        blockRows = 2;
    blockCount = file ? BlocksFor(totalRows, blockRows) : 1;
    int32_t windowCols = static_cast<int32_t>(std::clamp<int64_t>(int64_t(colUpper) - colLower + 1,
                                                                  INT32_MIN, INT32_MAX));
    if (windowCols < 0)
        windowCols = -1;   // a size no table can have: the out-of-memory end
    FloatMatrix::Resize(0, blockRows - 1, colLower, colLower + windowCols - 1);
    if (fresh) {
        float zero = 0.0f;
        Fill(&zero);
    } else {
        LoadBlockAt(totalLower);
    }
}

void FloatFMatrix::FlushWindow()
{
    if (!Writable() || total == 0)
        return;
    file->Seek(RowPosition(rowLower));
    file->WriteBytes(reinterpret_cast<const char*>(data.get()), long(total) * long(sizeof(float)));
}

void FloatFMatrix::SetWindow(int from, int to)
{
    from = std::max(from, totalLower);
    to = std::min(to, totalUpper);
    if (int64_t(to) - from + 1 > blockRows)
        from = to - blockRows + 1;
    FloatMatrix::Resize(from, to, colLower, colUpper);
}

void FloatFMatrix::LoadBlock(int from, int to)
{
    SetWindow(from, to);
    // Rows the file doesn't hold yet read as 0.
    float zero = 0.0f;
    FloatMatrix::Fill(&zero);
    if (!file || total == 0)
        return;
    file->Seek(RowPosition(rowLower));
    file->ReadBytes(reinterpret_cast<char*>(data.get()), long(total) * long(sizeof(float)));
}

void FloatFMatrix::LoadBlockAt(int64_t start)
{
    // Counted from the first row, so that tables whose rows don't start at 0
    // load as those that do.
    int64_t offset = start - totalLower;
    if (offset >= totalRows)
        offset = int64_t(totalRows) - blockRows;
    if (offset < 0)
        offset = 0;
    int64_t end = std::min<int64_t>(offset + blockRows, totalRows) - 1;
    LoadBlock(static_cast<int>(totalLower + offset), static_cast<int>(totalLower + end));
}

void FloatFMatrix::Reach(int r, bool writeBack)
{
    // A table of one block is all in the window, except with no file behind
    // it, where rows appended past a block have nowhere to stay.
    if (r >= rowLower && r <= rowUpper)
        return;
    // A row the file doesn't hold can't be brought in.
    CheckRow(r);
    if (writeBack)
        FlushWindow();
    LoadBlockAt(int64_t(r) - blockRows / 2);
}

const FloatArray FloatFMatrix::Row(int r) const
{
    // The window is a cache of the file: moving it changes no value of the table.
    const_cast<FloatFMatrix*>(this)->Reach(r, false);
    return FloatMatrix::Row(r);
}

FloatArray FloatFMatrix::Row(int r)
{
    Reach(r, true);
    return FloatMatrix::Row(r);
}

float* FloatFMatrix::Element(int r, int c)
{
    Reach(r, true);
    int64_t offset = int64_t(cols) * r + c;
    // The address is taken as it always was; one beyond the window is refused.
    if (offset < 0 || offset >= total)
        PostFatalExit("FloatFMatrix: Row index out of range!");
    return data.get() + offset;
}

std::optional<FloatArray> FloatFMatrix::RowOrNull(int r)
{
    if (r < totalLower || r > totalUpper)
        return std::nullopt;
    return Row(r);
}

void FloatFMatrix::CheckCol(int c) const
{
    if (c < colLower || c > colUpper)
        PostFatalExit("FloatFMatrix: Column index out of range!");
}

void FloatFMatrix::CheckRow(int r) const
{
    if (r < totalLower || r > totalUpper)
        PostFatalExit("FloatFMatrix: Row index out of range!");
}

void FloatFMatrix::Fill(const float* value)
{
    SetWindow(totalLower, static_cast<int>(std::min<int64_t>(int64_t(totalLower) + blockRows - 1, INT32_MAX)));
    FloatMatrix::Fill(value);
    if (!Writable() || total == 0)
        return;
    file->Seek(RowPosition(totalLower));
    const char* window = reinterpret_cast<const char*>(data.get());
    long rowBytes = long(cols) * long(sizeof(float));
    for (int block = 0; block < totalRows / blockRows; ++block)
        file->WriteBytes(window, rowBytes * blockRows);
    for (int row = 0; row < totalRows % blockRows; ++row)
        file->WriteBytes(window, rowBytes);
}

void FloatFMatrix::RewindBlocks()
{
    blockCursor = 0;
    if (rowLower != totalLower) {
        FlushWindow();
        LoadBlockAt(totalLower);
    }
}

bool FloatFMatrix::NextBlock()
{
    if (blockCursor == 0) {
        blockCursor = 1;
        return true;
    }
    if (blockCursor < 0 || blockCursor >= blockCount)
        return false;
    FlushWindow();
    LoadBlockAt(int64_t(totalLower) + int64_t(blockRows) * blockCursor);
    ++blockCursor;
    return true;
}

void FloatFMatrix::Sync()
{
    FlushWindow();
    WriteHeader();
    if (file)
        file->Flush();
}

void FloatFMatrix::AppendRow(const FloatArray* row)
{
    if (totalUpper == INT32_MAX)
        PostFatalExit("FloatFMatrix: Row index out of range!");
    // The new row joins the window, which must end at the last row and have
    // room; otherwise it starts again as the last row alone.
    if (rowUpper != totalUpper || rows >= blockRows || rows == 0) {
        FlushWindow();
        if (totalRows > 0)
            LoadBlock(totalUpper, totalUpper);
    }
    ++totalUpper;
    ++totalRows;
    blockCount = file ? BlocksFor(totalRows, blockRows) : 1;
    FloatMatrix window(*this);
    int first = totalRows == 1 ? totalUpper : rowLower;
    FloatMatrix::Resize(first, totalUpper, colLower, colUpper);
    std::copy(window.Data(), window.Data() + std::min(window.Total(), total), data.get());
    if (row) {
        float* last = FloatMatrix::Row(totalUpper).Data();
        std::copy(row->Data(), row->Data() + std::min(row->Size(), cols), last);
    }
}

template <class BlockExtreme>
float FloatFMatrix::WalkExtreme(BlockExtreme blockExtreme, bool wantMax, const float* ignore)
{
    bool found = false;
    float result = ignore ? *ignore : 0.0f;
    RewindBlocks();
    while (NextBlock()) {
        if (total == 0)
            continue;
        float value = blockExtreme();
        if (ignore && value == *ignore)
            continue;
        if (!found || (wantMax ? value > result : value < result))
            result = value;
        found = true;
    }
    return result;
}

float FloatFMatrix::Min(const float* ignore)
{
    return WalkExtreme([&] { return FloatMatrix::Min(ignore); }, false, ignore);
}

float FloatFMatrix::Max(const float* ignore)
{
    return WalkExtreme([&] { return FloatMatrix::Max(ignore); }, true, ignore);
}

float FloatFMatrix::ColMin(int c, const float* ignore)
{
    return WalkExtreme([&] { return FloatMatrix::ColMin(c, ignore); }, false, ignore);
}

float FloatFMatrix::ColMax(int c, const float* ignore)
{
    return WalkExtreme([&] { return FloatMatrix::ColMax(c, ignore); }, true, ignore);
}

float FloatFMatrix::ColRangeMin(int from, int to, const float* ignore)
{
    return WalkExtreme([&] { return FloatMatrix::ColRangeMin(from, to, ignore); }, false, ignore);
}

float FloatFMatrix::ColRangeMax(int from, int to, const float* ignore)
{
    return WalkExtreme([&] { return FloatMatrix::ColRangeMax(from, to, ignore); }, true, ignore);
}

void FloatFMatrix::Dump()
{
    const char* banner = "=========================FloatFMatrix===========================";
    std::cout << '\n' << banner << '\n';
    for (int64_t r = totalLower; r <= totalUpper; ++r) {
        const FloatArray& row = Row(static_cast<int>(r));
        std::cout << "\n[" << r - totalLower << "] ";
        for (int32_t c = 0; c < row.Size(); ++c)
            std::cout << std::setw(14) << row.Data()[c];
    }
    std::cout << "\n\n" << banner << "\n\n";
}
