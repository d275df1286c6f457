#ifndef TOLVAD_NUMERIC_FLOATFMATRIX_H
#define TOLVAD_NUMERIC_FLOATFMATRIX_H

#include "numeric/FloatMatrix.h"

#include <cstdint>
#include <memory>
#include <string>

class xDoc;

// A FloatMatrix for tables too large for memory: the whole table lives in a
// binary file (a header of four 32-bit integers, totalLower, totalUpper,
// colLower, colUpper, then the rows as raw floats) and a window of at most
// blockRows rows lives in memory. The base's rows, rowLower and rowUpper
// describe that window.
class FloatFMatrix : public FloatMatrix {
public:
    // Attached to an open file; the bounds come later through Attach.
    explicit FloatFMatrix(xDoc* file);
    // A new table at the file's current position; blockRows is cut to totalRows.
    FloatFMatrix(xDoc* file, int blockRows, int totalRows, int cols);
    // A new table in its own file: the named one, or with a null name a
    // temporary file that is deleted at the end.
    FloatFMatrix(int blockRows, int totalRows, int cols, const char* name);
    // A new file (named, or temporary with a null name) holding all of other's rows.
    FloatFMatrix(const FloatFMatrix& other, const char* name = nullptr);
    // Refused with an error; nothing changes.
    FloatFMatrix& operator=(const FloatFMatrix& other);
    ~FloatFMatrix() override;

    // Binds the matrix to the table whose header stands at offset. A non-zero
    // totalRows or cols makes a new table of zeros; otherwise the header is
    // read from the file.
    void Attach(int offset, int blockRows, int totalRows, int cols);

    // Rows outside the window bring the window there, centred on the row. The
    // non-const forms first write the window back; the const one does not.
    const FloatArray Row(int r) const override;
    FloatArray Row(int r) override;
    // data + cols * r + c, with neither the window's first row nor colLower
    // taken off: right only for a window at row 0.
    float* Element(int r, int c) override;
    // No view outside the file's row bounds.
    std::optional<FloatArray> RowOrNull(int r) override;

    void CheckCol(int c) const;
    void CheckRow(int r) const;

    // Every element of the table, in memory and on file.
    void Fill(const float* value) override;

    // The walk over the blocks: RewindBlocks, then while NextBlock, work on the window.
    void RewindBlocks();
    bool NextBlock();
    // Writes the window and the header, and flushes.
    void Sync();
    // Adds a row at the end, with the given values if any.
    void AppendRow(const FloatArray* row = nullptr) override;

    // Over the whole table, walking all blocks from the start.
    float Min(const float* ignore = nullptr) override;
    float Max(const float* ignore = nullptr) override;
    float ColMin(int c, const float* ignore = nullptr) override;
    float ColMax(int c, const float* ignore = nullptr) override;
    float ColRangeMin(int from, int to, const float* ignore = nullptr) override;
    float ColRangeMax(int from, int to, const float* ignore = nullptr) override;

    using FloatMatrix::Dump;
    // The whole table to the console.
    void Dump();

    int TotalRows() const { return totalRows; }
    int TotalLower() const { return totalLower; }
    int TotalUpper() const { return totalUpper; }
    int BlockCursor() const { return blockCursor; }
    int BlockCount() const { return blockCount; }
    int BlockRows() const { return blockRows; }
    int FileOffset() const { return fileOffset; }
    xDoc* File() const { return file; }
    const std::string& FileName() const { return fileName; }
    bool IsTemporary() const { return isTemporary; }

private:
    static constexpr int kHeaderSize = 4 * sizeof(int32_t);

    void OpenOwnFile(const char* name);
    bool Writable() const;
    long RowPosition(int r) const;
    void WriteHeader();
    void ReadHeader();
    // Writes the window back when the file takes writing.
    void FlushWindow();
    void SetWindow(int from, int to);
    void LoadBlock(int from, int to);
    void LoadBlockAt(int64_t start);
    // Brings row r into the window when it lies outside.
    void Reach(int r, bool writeBack);
    template <class BlockExtreme>
    float WalkExtreme(BlockExtreme blockExtreme, bool wantMax, const float* ignore);

    int32_t totalRows = 0;
    int32_t totalLower = 0;
    int32_t totalUpper = -1;
    int32_t blockCursor = -1;
    int32_t blockCount = 0;
    int32_t blockRows = 100;
    int32_t fileOffset = 0;
    xDoc* file = nullptr;               // borrowed unless ownedFile holds it
    std::string fileName;               // empty when the file isn't ours by name
    bool isTemporary = false;
    bool ownsFile = false;
    std::unique_ptr<xDoc> ownedFile;
};

#endif
