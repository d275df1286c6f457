#include "numeric/FloatMatrix.h"

#include "gui/xPlatform.h"
#include "numeric/xExtract.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstring>
#include <fstream>
#include <iomanip>
#include <utility>

namespace {

const char* const kOutOfMemory = "FloatMatrix: Out of memory!";

// The number of indices from first to last, saturated to int so that absurd
// bounds end in the out-of-memory test instead of overflowing.
int32_t Span(int64_t first, int64_t last)
{
    return static_cast<int32_t>(std::clamp<int64_t>(last - first + 1, INT32_MIN, INT32_MAX));
}

// The element at (r, c), 0 outside the bounds.
float At(const FloatMatrix& m, int r, int c)
{
    if (r < m.RowLower() || r > m.RowUpper() || c < m.ColLower() || c > m.ColUpper())
        return 0.0f;
    return m.Data()[(int64_t(r) - m.RowLower()) * m.Cols() + (int64_t(c) - m.ColLower())];
}

}  // namespace

FloatMatrix::FloatMatrix() = default;

FloatMatrix::FloatMatrix(int rowCount, int colCount)
    : FloatMatrix(0, static_cast<int>(std::clamp<int64_t>(int64_t(rowCount) - 1, INT32_MIN, INT32_MAX)),
                  0, static_cast<int>(std::clamp<int64_t>(int64_t(colCount) - 1, INT32_MIN, INT32_MAX)))
{
}

FloatMatrix::FloatMatrix(int firstRow, int lastRow, int firstCol, int lastCol)
    : cols(Span(firstCol, lastCol)), rows(Span(firstRow, lastRow)), rowLower(firstRow),
      rowUpper(lastRow), colLower(firstCol), colUpper(lastCol)
{
    Allocate();
}

FloatMatrix::FloatMatrix(const FloatArray& row) : FloatMatrix(0, 0, row.Lower(), row.Upper())
{
    std::copy(row.Data(), row.Data() + std::min(row.Size(), total), data.get());
}

// The copy fills the whole block, so it is not zeroed first.
FloatMatrix::FloatMatrix(const FloatMatrix& other)
    : cols(other.cols), rows(other.rows), rowLower(other.rowLower), rowUpper(other.rowUpper),
      colLower(other.colLower), colUpper(other.colUpper)
{
    AllocateBlock(false);
    std::copy(other.data.get(), other.data.get() + std::min(total, other.total), data.get());
}

FloatMatrix& FloatMatrix::operator=(const FloatMatrix& other)
{
    if (this == &other)
        return *this;
    Reshape(other.rowLower, other.rowUpper, other.colLower, other.colUpper, false);
    std::copy(other.data.get(), other.data.get() + std::min(total, other.total), data.get());
    return *this;
}

FloatMatrix::~FloatMatrix() = default;

void FloatMatrix::Resize(int rowCount, int colCount)
{
    if (rowCount == rows && colCount == cols && colLower == 0) {
        rowLower = 0;
        rowUpper = rows - 1;
        return;
    }
    rowLower = 0;
    colLower = 0;
    rowUpper = static_cast<int32_t>(std::max<int64_t>(int64_t(rowCount) - 1, INT32_MIN));
    colUpper = static_cast<int32_t>(std::max<int64_t>(int64_t(colCount) - 1, INT32_MIN));
    rows = rowCount;
    cols = colCount;
    Allocate();
}

void FloatMatrix::Resize(int firstRow, int lastRow, int firstCol, int lastCol)
{
    Reshape(firstRow, lastRow, firstCol, lastCol, true);
}

void FloatMatrix::Reshape(int firstRow, int lastRow, int firstCol, int lastCol, bool zeroed)
{
    int32_t newRows = Span(firstRow, lastRow);
    int32_t newCols = Span(firstCol, lastCol);
    bool keep = newRows == rows && newCols == cols && firstCol == colLower;
    rowLower = firstRow;
    rowUpper = lastRow;
    if (keep)
        return;
    colLower = firstCol;
    colUpper = lastCol;
    rows = newRows;
    cols = newCols;
    AllocateBlock(zeroed);
}

void FloatMatrix::ResizeLike(const FloatMatrix& other)
{
    Resize(other.rowLower, other.rowUpper, other.colLower, other.colUpper);
}

void FloatMatrix::Allocate()
{
    AllocateBlock(true);
}

void FloatMatrix::AllocateBlock(bool zeroed)
{
    data.reset();
    int64_t count = int64_t(rows) * cols;
    bool possible = rows >= 0 && cols >= 0 && count <= FloatArray::kMaxElements &&
                    rows <= FloatArray::kMaxElements && cols <= FloatArray::kMaxElements;
    if (possible && count > 0) {
        data.reset(FloatArray::NewBlock(count, zeroed));
        possible = data != nullptr;
    }
    if (!possible) {
        // Empty, so that the matrix stays sound if the fatal message unwinds.
        rows = cols = total = 0;
        rowLower = colLower = 0;
        rowUpper = colUpper = -1;
        PostFatalExit("%s", kOutOfMemory);
    }
    total = static_cast<int32_t>(count);
}

void FloatMatrix::Fill(const float* value)
{
    float v = value ? *value : 0.0f;
    if (total == 0)
        return;
    if (v == 0.0f)
        std::memset(data.get(), 0, sizeof(float) * static_cast<size_t>(total));
    else
        std::fill(data.get(), data.get() + total, v);
}

void FloatMatrix::FillRow(int r, const float* value)
{
    if (std::optional<FloatArray> row = RowOrNull(r))
        *row = value ? *value : 0.0f;
}

void FloatMatrix::FillCol(int c, const float* value)
{
    if (c < colLower || c > colUpper)
        return;
    for (int32_t r = 0; r < rows; ++r)
        data[int64_t(r) * cols + (c - colLower)] = value ? *value : 0.0f;
}

FloatArray FloatMatrix::RowView(int r) const
{
    float* first = data ? data.get() + (int64_t(r) - rowLower) * cols : nullptr;
    return FloatArray(first, colLower, colUpper);
}

const FloatArray FloatMatrix::Row(int r) const
{
    return RowView(r);
}

FloatArray FloatMatrix::Row(int r)
{
    return RowView(r);
}

float* FloatMatrix::Element(int r, int c)
{
    return data.get() + (int64_t(r) - rowLower) * cols + (int64_t(c) - colLower);
}

std::optional<FloatArray> FloatMatrix::RowOrNull(int r)
{
    if (r < rowLower || r > rowUpper)
        return std::nullopt;
    return RowView(r);
}

void FloatMatrix::CopyOverlap(const FloatMatrix& other)
{
    int32_t r = std::min(rows, other.rows);
    int32_t c = std::min(cols, other.cols);
    for (int64_t i = 0; i < int64_t(r) * c; ++i)
        data[i] = other.data[i];
}

void FloatMatrix::SwapRows(int a, int b)
{
    if (a < rowLower || a > rowUpper || b < rowLower || b > rowUpper || a == b)
        return;
    float* first = data.get() + int64_t(a - rowLower) * cols;
    std::swap_ranges(first, first + cols, data.get() + int64_t(b - rowLower) * cols);
}

void FloatMatrix::SwapCols(int a, int b)
{
    if (a < colLower || a > colUpper || b < colLower || b > colUpper)
        return;
    for (int32_t r = 0; r < rows; ++r) {
        float* row = data.get() + int64_t(r) * cols;
        std::swap(row[a - colLower], row[b - colLower]);
    }
}

bool FloatMatrix::SameBounds(const FloatMatrix& other) const
{
    return rowLower == other.rowLower && rowUpper == other.rowUpper &&
           colLower == other.colLower && colUpper == other.colUpper;
}

bool FloatMatrix::SameShape(const FloatMatrix& other) const
{
    return rows == other.rows && cols == other.cols;
}

bool FloatMatrix::SameValues(const FloatMatrix& other) const
{
    return SameShape(other) && std::equal(data.get(), data.get() + total, other.data.get());
}

bool FloatMatrix::operator==(const FloatMatrix& other) const
{
    return SameBounds(other) && std::equal(data.get(), data.get() + total, other.data.get());
}

void FloatMatrix::ApplyScalar(FloatArray::Op op, float value)
{
    for (int32_t i = 0; i < total; ++i)
        data[i] = FloatArray::Apply(op, data[i], value);
}

FloatMatrix& FloatMatrix::operator+=(float value)
{
    ApplyScalar(FloatArray::Op::kAdd, value);
    return *this;
}

FloatMatrix& FloatMatrix::operator-=(float value)
{
    ApplyScalar(FloatArray::Op::kSubtract, value);
    return *this;
}

FloatMatrix& FloatMatrix::operator*=(float value)
{
    ApplyScalar(FloatArray::Op::kMultiply, value);
    return *this;
}

FloatMatrix& FloatMatrix::operator/=(float value)
{
    ApplyScalar(FloatArray::Op::kDivide, value);
    return *this;
}

FloatMatrix& FloatMatrix::operator+=(const FloatMatrix& other)
{
    int32_t n = std::min(total, other.total);
    for (int32_t i = 0; i < n; ++i)
        data[i] += other.data[i];
    return *this;
}

float FloatMatrix::ColSum(int c) const
{
    float sum = 0;
    if (c < colLower || c > colUpper)
        return sum;
    for (int32_t r = 0; r < rows; ++r)
        sum += data[int64_t(r) * cols + (c - colLower)];
    return sum;
}

float FloatMatrix::ColMean(int c) const
{
    return ColSum(c) / static_cast<float>(Rows());
}

FloatArray FloatMatrix::ColArray(int c) const
{
    FloatArray column(0, rows - 1);
    for (int32_t r = 0; r < rows; ++r)
        column.Data()[r] = At(*this, rowLower + r, c);
    return column;
}

FloatArray FloatMatrix::ColArrayBounded(int c) const
{
    FloatArray column = ColArray(c);
    column.SetLower(rowLower);
    return column;
}

FloatArray FloatMatrix::RowArray(int r) const
{
    if (r < rowLower || r > rowUpper)
        return FloatArray(colLower, colUpper);
    // Copied from a named view: the array owns its numbers and outlives the matrix.
    const FloatArray view = Row(r);
    return FloatArray(view);
}

FloatMatrix FloatMatrix::SubMatrix(int rowFrom, int colFrom, int rowTo, int colTo) const
{
    FloatMatrix part(Span(rowFrom, rowTo), Span(colFrom, colTo));
    for (int32_t i = 0; i < part.rows; ++i)
        for (int32_t j = 0; j < part.cols; ++j)
            part.data[int64_t(i) * part.cols + j] = At(*this, rowFrom + i, colFrom + j);
    return part;
}

void FloatMatrix::Transpose()
{
    FloatMatrix turned = FloatMatrix::Transposed();
    FloatMatrix::operator=(turned);
}

FloatMatrix FloatMatrix::Transposed() const
{
    FloatMatrix turned(colLower, colUpper, rowLower, rowUpper);
    for (int32_t r = 0; r < rows; ++r)
        for (int32_t c = 0; c < cols; ++c)
            turned.data[int64_t(c) * rows + r] = data[int64_t(r) * cols + c];
    return turned;
}

FloatMatrix FloatMatrix::FlipRows() const
{
    FloatMatrix flipped(rowLower, rowUpper, colLower, colUpper);
    for (int32_t r = 0; r < rows; ++r)
        std::copy(data.get() + int64_t(rows - 1 - r) * cols, data.get() + int64_t(rows - r) * cols,
                  flipped.data.get() + int64_t(r) * cols);
    return flipped;
}

void FloatMatrix::MinMax(float& min, float& max, int rowFrom, int rowTo, int colFrom, int colTo,
                         const float* ignore) const
{
    rowFrom = std::max(rowFrom, rowLower);
    rowTo = std::min(rowTo, rowUpper);
    colFrom = std::max(colFrom, colLower);
    colTo = std::min(colTo, colUpper);
    if (rowFrom > rowTo || colFrom > colTo) {
        min = max = ignore ? *ignore : 0.0f;
        return;
    }
    min = max = ignore ? *ignore : At(*this, rowFrom, colFrom);
    // Counted wide: a bound at the top of the int range must still end the loop.
    for (int64_t r = rowFrom; r <= rowTo; ++r)
        for (int64_t c = colFrom; c <= colTo; ++c) {
            float value = At(*this, static_cast<int>(r), static_cast<int>(c));
            if (!ignore) {
                if (value < min)
                    min = value;
                else if (value > max)
                    max = value;
            } else if (value != *ignore) {
                if (value < min || min == *ignore)
                    min = value;
                if (value > max || max == *ignore)
                    max = value;
            }
        }
}

void FloatMatrix::MinMax(float& min, float& max, const float* ignore) const
{
    MinMax(min, max, rowLower, rowUpper, colLower, colUpper, ignore);
}

float FloatMatrix::Extreme(int fromOffset, int toOffset, bool wantMax, const float* ignore) const
{
    fromOffset = std::max(fromOffset, 0);
    toOffset = std::min(toOffset, cols - 1);
    int64_t width = std::max(0, toOffset - fromOffset + 1);
    const float* values = data.get();
    int64_t stride = cols;
    auto at = [=](int64_t i) { return values[(i / width) * stride + fromOffset + i % width]; };
    int64_t count = width * rows;
    return FloatArray::Extreme(at, count, count - 1, wantMax, ignore);
}

float FloatMatrix::Min(const float* ignore)
{
    return Extreme(0, cols - 1, false, ignore);
}

float FloatMatrix::Max(const float* ignore)
{
    return Extreme(0, cols - 1, true, ignore);
}

float FloatMatrix::ColMin(int c, const float* ignore)
{
    return ColRangeMin(c, c, ignore);
}

float FloatMatrix::ColMax(int c, const float* ignore)
{
    return ColRangeMax(c, c, ignore);
}

float FloatMatrix::ColRangeMin(int from, int to, const float* ignore)
{
    return Extreme(from - colLower, to - colLower, false, ignore);
}

float FloatMatrix::ColRangeMax(int from, int to, const float* ignore)
{
    return Extreme(from - colLower, to - colLower, true, ignore);
}

int FloatMatrix::NearestRow(float x, int c) const
{
    if (rows <= 0 || c < colLower || c > colUpper)
        return rowLower;
    auto at = [&](int r) { return At(*this, r, c); };
    float first = at(rowLower);
    float last = at(rowUpper);
    // The guess interpolates with rowUpper, not the row count; a column whose
    // ends are equal gives no slope and starts at the first row.
    double guess = double(rowUpper) * (double(x) - first) / (double(last) - first);
    int g = std::isnan(guess) ? rowLower
                              : static_cast<int>(std::clamp(guess, double(rowLower), double(rowUpper)));
    float prev = at(g);
    int64_t saved = g;
    int step = (double(x) - prev) * (double(last) - first) >= 0 ? 1 : -1;
    int64_t i = int64_t(g) + step;
    if (i > rowUpper)
        return rowUpper;
    if (i < rowLower)
        return rowLower;
    float cur = at(static_cast<int>(i));
    while ((double(x) - prev) * (double(cur) - x) < 0) {
        saved = i;
        i += step;
        if (i > rowUpper)
            return rowUpper;
        if (i < rowLower)
            return rowLower;
        prev = cur;
        cur = at(static_cast<int>(i));
    }
    return static_cast<int>(std::fabs(x - prev) < std::fabs(cur - x) ? saved : i);
}

void FloatMatrix::InsertRow(int, const FloatArray*)
{
    PostNote("WARNING: FloatMatrix::InsertRow() not implemented!");
}

void FloatMatrix::DeleteRow(int)
{
    PostNote("WARNING: FloatMatrix::DeleteRow() not implemented!");
}

void FloatMatrix::AppendRow(const FloatArray*)
{
    PostNote("WARNING: FloatMatrix::AppendRow() not implemented!");
}

// A failed stream is reported once per call: it stays failed, and a message
// for every further value would bury the user in boxes.
void FloatMatrix::WriteAscii(std::ostream& out) const
{
    out << rowLower << ' ' << rowUpper << ' ' << colLower << ' ' << colUpper << '\n';
    bool reported = false;
    for (int32_t r = 0; r < rows; ++r) {
        for (int32_t c = 0; c < cols; ++c) {
            out << std::setw(15) << data[int64_t(r) * cols + c] << ' ';
            if (!out.good() && !reported) {
                PostError("FloatMatrix: Error writing matrix to ASCII stream.");
                reported = true;
            }
        }
        out << '\n';
    }
}

void FloatMatrix::ReadAscii(std::istream& in)
{
    int32_t bounds[4] = {rowLower, rowUpper, colLower, colUpper};
    for (int32_t& bound : bounds)
        xExtract::Int(in, bound);
    Resize(bounds[0], bounds[1], bounds[2], bounds[3]);
    for (int32_t i = 0; i < total; ++i) {
        // End of file behind the last number is no failure; a number that
        // can't be read is.
        if (!xExtract::Float(in, data[i])) {
            PostError("FloatMatrix: Error reading matrix from ASCII stream.");
            return;
        }
    }
}

void FloatMatrix::WriteBinary(std::ostream& out, bool withBounds) const
{
    if (withBounds)
        for (int32_t bound : {rowLower, rowUpper, colLower, colUpper})
            out.write(reinterpret_cast<const char*>(&bound), sizeof bound);
    out.write(reinterpret_cast<const char*>(data.get()),
              static_cast<std::streamsize>(total) * sizeof(float));
    out.flush();
}

void FloatMatrix::ReadBinary(std::istream& in, bool withBounds)
{
    if (withBounds) {
        int32_t bounds[4] = {rowLower, rowUpper, colLower, colUpper};
        in.read(reinterpret_cast<char*>(bounds), sizeof bounds);
        if (!in)
            return;   // nothing readable: the matrix stays as it was
        Resize(bounds[0], bounds[1], bounds[2], bounds[3]);
    }
    in.read(reinterpret_cast<char*>(data.get()), static_cast<std::streamsize>(total) * sizeof(float));
}

int32_t FloatMatrix::BinarySize(bool withBounds) const
{
    return 4 * total + (withBounds ? 16 : 0);
}

void FloatMatrix::Dump(const std::string& title) const
{
    std::ofstream out("dump", std::ios::out | std::ios::trunc);
    out << std::setprecision(2) << std::fixed;
    out << title << '\n' << "   ---  ";
    for (int32_t c = 0; c < cols; ++c)
        out << "   [" << std::setw(3) << int64_t(colLower) + c << "]";
    out << "\n\n";
    for (int32_t r = 0; r < rows; ++r) {
        out << "   [" << std::setw(3) << int64_t(rowLower) + r << "]";
        for (int32_t c = 0; c < cols; ++c)
            out << std::setw(8) << data[int64_t(r) * cols + c];
        out << '\n';
    }
}

std::ostream& operator<<(std::ostream& out, const FloatMatrix& matrix)
{
    out << std::setw(10) << matrix.RowLower() << std::setw(10) << matrix.RowUpper()
        << std::setw(10) << matrix.ColLower() << std::setw(10) << matrix.ColUpper() << '\n';
    const float* value = matrix.Data();
    for (int r = 0; r < matrix.Rows(); ++r) {
        for (int c = 0; c < matrix.Cols(); ++c)
            out << std::setw(20) << *value++;
        out << '\n';
    }
    return out;
}

std::istream& operator>>(std::istream& in, FloatMatrix& matrix)
{
    int32_t bounds[4] = {-1, -1, -1, -1};
    for (int32_t& bound : bounds)
        xExtract::Int(in, bound);
    matrix.Resize(bounds[0], bounds[1], bounds[2], bounds[3]);
    for (int32_t i = 0; i < matrix.Total(); ++i)
        xExtract::Float(in, matrix.Data()[i]);
    return in;
}

FloatMatrix operator*(const FloatMatrix& a, const FloatMatrix& b)
{
    if (a.Cols() != b.Rows())
        PostFatalExit("FloatMatrix::operator*() matrix multiplication, dimension error.");
    FloatMatrix product(1, a.Rows(), 1, b.Cols());
    // b is read at (j, k), not (k, j), and so it has always been; elements
    // outside an operand's bounds count as 0.
    for (int i = 1; i <= a.Rows(); ++i)
        for (int j = 1; j <= b.Cols(); ++j) {
            float sum = 0;
            for (int k = 1; k <= a.Cols(); ++k)
                sum += At(a, i, k) * At(b, j, k);
            *product.Element(i, j) = sum;
        }
    return product;
}

FloatMatrix operator-(const FloatMatrix& a, const FloatMatrix& b)
{
    if (!a.SameBounds(b))
        PostFatalExit("FloatMatrix::operator-() matrix subtraction, dimension error.");
    FloatMatrix difference(a);
    for (int32_t i = 0; i < difference.Total(); ++i)
        difference.Data()[i] -= b.Data()[i];
    return difference;
}
