#ifndef TOLVAD_NUMERIC_FLOATMATRIX_H
#define TOLVAD_NUMERIC_FLOATMATRIX_H

#include "numeric/FloatArray.h"

#include <cstdint>
#include <istream>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

// A two-dimensional table of 32-bit floats with free integer bounds on both
// axes, stored row by row in one block. Every row can be reached as a
// FloatArray view on that block (bounds colLower to colUpper), so row
// operations work on the matrix's own storage. Views are made when asked
// for, not kept: a table costs its numbers and no more, and copies as one
// block. A new matrix is zero.
class FloatMatrix {
public:
    // Empty: no rows, no columns.
    FloatMatrix();
    // Bounds from 0.
    FloatMatrix(int rows, int cols);
    FloatMatrix(int rowLower, int rowUpper, int colLower, int colUpper);
    // One row 0 holding the array's values, with its bounds as column bounds.
    explicit FloatMatrix(const FloatArray& row);
    FloatMatrix(const FloatMatrix& other);
    FloatMatrix& operator=(const FloatMatrix& other);
    virtual ~FloatMatrix();

    // Bounds from 0. The data stay if the shape is unchanged and colLower was
    // 0; otherwise the matrix is reallocated and zeroed.
    virtual void Resize(int rows, int cols);
    // The data stay if the shape and colLower are unchanged.
    void Resize(int rowLower, int rowUpper, int colLower, int colUpper);
    void ResizeLike(const FloatMatrix& other);
    // Frees, allocates the block and the row views, zeroes.
    virtual void Allocate();

    // A null value fills with 0.
    virtual void Fill(const float* value);
    void FillRow(int r, const float* value);
    void FillCol(int c, const float* value);

    // Row and element access make no bounds test. A row is a view that
    // borrows the matrix's storage: writing through it changes the matrix, and
    // it stays valid until the matrix is resized or reallocated.
    virtual const FloatArray Row(int r) const;
    virtual FloatArray Row(int r);
    virtual float* Element(int r, int c);
    // No view when r lies outside the row bounds.
    virtual std::optional<FloatArray> RowOrNull(int r);

    virtual int Cols() const { return cols; }
    virtual int Rows() const { return rows; }
    virtual int RowLower() const { return rowLower; }
    virtual int RowUpper() const { return rowUpper; }
    virtual int ColLower() const { return colLower; }
    virtual int ColUpper() const { return colUpper; }
    int Total() const { return total; }
    float* Data() { return data.get(); }
    const float* Data() const { return data.get(); }

    // Copies the first min(rows) x min(cols) elements by a flat index computed
    // with the smaller column count, whatever each matrix's own stride is.
    void CopyOverlap(const FloatMatrix& other);
    void SwapRows(int a, int b);
    void SwapCols(int a, int b);

    bool SameBounds(const FloatMatrix& other) const;
    // The same number of rows and columns, whatever the bounds.
    bool SameShape(const FloatMatrix& other) const;
    // SameShape, then every element exactly equal.
    bool SameValues(const FloatMatrix& other) const;
    // SameBounds, then every element exactly equal (no tolerance).
    bool operator==(const FloatMatrix& other) const;
    bool operator!=(const FloatMatrix& other) const { return !(*this == other); }

    // On every element, in double, stored as float.
    FloatMatrix& operator+=(float value);
    FloatMatrix& operator-=(float value);
    FloatMatrix& operator*=(float value);
    FloatMatrix& operator/=(float value);
    // Element by element in flat order over the smaller total; the shapes
    // are not compared.
    FloatMatrix& operator+=(const FloatMatrix& other);

    float ColSum(int c) const;
    float ColMean(int c) const;
    // Copies of a column, with bounds 0 to rows-1 or with the row bounds.
    FloatArray ColArray(int c) const;
    FloatArray ColArrayBounded(int c) const;
    FloatArray RowArray(int r) const;
    // The part from (rowFrom, colFrom) to (rowTo, colTo), with bounds from 0.
    FloatMatrix SubMatrix(int rowFrom, int colFrom, int rowTo, int colTo) const;

    // In place: rows become columns and the bounds are exchanged.
    virtual void Transpose();
    virtual FloatMatrix Transposed() const;
    // A copy with the same bounds and the rows in reverse order.
    virtual FloatMatrix FlipRows() const;

    void MinMax(float& min, float& max, int rowFrom, int rowTo, int colFrom, int colTo,
                const float* ignore = nullptr) const;
    void MinMax(float& min, float& max, const float* ignore = nullptr) const;
    virtual float Min(const float* ignore = nullptr);
    virtual float Max(const float* ignore = nullptr);
    virtual float ColMin(int c, const float* ignore = nullptr);
    virtual float ColMax(int c, const float* ignore = nullptr);
    // Over the columns from to to, in every row.
    virtual float ColRangeMin(int from, int to, const float* ignore = nullptr);
    virtual float ColRangeMax(int from, int to, const float* ignore = nullptr);
    // The row of column c nearest to x, for a column sorted either way.
    int NearestRow(float x, int c) const;

    // Not implemented: they say so and change nothing.
    virtual void InsertRow(int r, const FloatArray* row = nullptr);
    virtual void DeleteRow(int r);
    virtual void AppendRow(const FloatArray* row = nullptr);

    void WriteAscii(std::ostream& out) const;
    virtual void ReadAscii(std::istream& in);
    void WriteBinary(std::ostream& out, bool withBounds) const;
    virtual void ReadBinary(std::istream& in, bool withBounds);
    int32_t BinarySize(bool withBounds) const;
    // Writes the table to the file "dump" in the working directory.
    virtual void Dump(const std::string& title) const;

protected:
    // The extreme of the elements of columns from to to (offsets from
    // colLower) in every row, by the arrays' rule; all ignored gives the
    // ignored value.
    float Extreme(int fromOffset, int toOffset, bool wantMax, const float* ignore) const;
    void ApplyScalar(FloatArray::Op op, float value);
    // The view of row r, made from the block.
    FloatArray RowView(int r) const;

    int32_t cols = 0;
    int32_t rows = 0;
    int32_t rowLower = 0;
    int32_t rowUpper = -1;
    int32_t colLower = 0;
    int32_t colUpper = -1;
    int32_t total = 0;
    struct BlockFree {
        void operator()(float* block) const { FloatArray::FreeBlock(block); }
    };
    std::unique_ptr<float[], BlockFree> data;   // null when empty

private:
    // Takes the new bounds; the data stay when the shape and colLower do.
    void Reshape(int firstRow, int lastRow, int firstCol, int lastCol, bool zeroed);
    // Allocate, with the block zeroed or left for the caller to fill whole.
    void AllocateBlock(bool zeroed);
};

// Bounds in fields of width 10, then each row's values in fields of width 20.
std::ostream& operator<<(std::ostream& out, const FloatMatrix& matrix);
std::istream& operator>>(std::istream& in, FloatMatrix& matrix);

// Product with rows and columns from 1; element (i, j) sums a(i, k) * b(j, k).
FloatMatrix operator*(const FloatMatrix& a, const FloatMatrix& b);
// Element difference; the bounds must be equal.
FloatMatrix operator-(const FloatMatrix& a, const FloatMatrix& b);

#endif
