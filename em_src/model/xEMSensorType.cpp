#include "model/xEMSensorType.h"

#include "frame/xDoc.h"
#include "gui/xPlatform.h"
#include "model/xDscText.h"
#include "model/xTROrientation.h"
#include "numeric/xExtract.h"

#include <cmath>
#include <istream>
#include <ostream>

namespace {

const char kFixed[] = "fixed";
const char kMoving[] = "moving";
const char kDipole[] = "dipole";
const char kLargeLoop[] = "large loop";
const char kBipole[] = "el. bipole";
const int kFieldWidth = 7;
const int kZ = 3;

} // namespace

void xEMSensorType::ShapePoint(const FloatMatrix& matrix, int r, float point[3])
{
    xDscText::RowCells(matrix, r, point, 3);
}

xEMSensorType::xEMSensorType()
    : motion(kFixed), kind(kDipole), x(0.0f), y(0.0f), z(0.0f), loopArea(0.0f)
{
}

xEMSensorType::xEMSensorType(const xEMSensorType& other) : xEMSensorType()
{
    *this = other;
}

xEMSensorType& xEMSensorType::operator=(const xEMSensorType& other)
{
    if (this == &other)
        return *this;
    motion = other.motion;
    kind = other.kind;
    x = other.x;
    y = other.y;
    z = other.z;
    RemoveAllComponents();
    for (int i = kFirstComponent; i <= kZ; ++i) {
        if (!other.HasComponent(i))
            continue;
        if (IsDipole()) {
            // A component without a row of cosines copies as zeros.
            float cosines[3] = {0.0f, 0.0f, 0.0f};
            other.GetDipoleCosines(i, cosines);
            SetDipoleCosines(i, cosines);
        } else {
            StoreComponent(i, *other.components[i]);
        }
    }
    return *this;
}

bool xEMSensorType::operator==(const xEMSensorType& other) const
{
    if (this == &other)
        return true;
    if (motion != other.motion || kind != other.kind || x != other.x || y != other.y ||
        z != other.z)
        return false;
    for (int i = kFirstComponent; i <= kZ; ++i)
        if (HasComponent(i) && other.HasComponent(i) && *components[i] != *other.components[i])
            return false;
    return true;
}

bool xEMSensorType::IsFixed() const { return motion == kFixed; }
bool xEMSensorType::IsMoving() const { return motion == kMoving; }
bool xEMSensorType::IsDipole() const { return kind == kDipole; }
bool xEMSensorType::IsBipole() const { return kind == kBipole; }
bool xEMSensorType::IsLargeLoop() const { return kind == kLargeLoop; }

bool xEMSensorType::HasComponent(int i) const
{
    return ValidComponent(i) && components[i] != nullptr;
}

void xEMSensorType::SetMoving() { motion = kMoving; }
void xEMSensorType::SetFixed() { motion = kFixed; }
void xEMSensorType::SetMotion(const std::string& text) { motion = text; }

void xEMSensorType::SetDipole()
{
    RemoveAllComponents();
    kind = kDipole;
}

void xEMSensorType::SetBipole()
{
    RemoveAllComponents();
    kind = kBipole;
}

void xEMSensorType::SetLargeLoop()
{
    RemoveAllComponents();
    kind = kLargeLoop;
}

void xEMSensorType::SetKind(const std::string& text)
{
    kind = text;
    if (IsDipole())
        SetDipole();
    else if (IsLargeLoop())
        SetLargeLoop();
    else if (IsBipole())
        SetBipole();
}

void xEMSensorType::SetPosition(float newX, float newY, float newZ)
{
    x = newX;
    y = newY;
    z = newZ;
}

void xEMSensorType::SetPosition(const float position[3])
{
    SetPosition(position[0], position[1], position[2]);
}

void xEMSensorType::Position(float position[3]) const
{
    const FloatMatrix* loop = HasComponent(kZ) ? components[kZ].get() : nullptr;
    if (IsFixed() && IsLargeLoop() && loop && loop->Rows() > 0) {
        float rows = static_cast<float>(loop->Rows());
        for (int c = 0; c < 3; ++c) {
            int column = loop->ColLower() + c;
            position[c] = column <= loop->ColUpper() ? loop->ColSum(column) / rows : 0.0f;
        }
        return;
    }
    position[0] = x;
    position[1] = y;
    position[2] = z;
}

void xEMSensorType::AddComponent(int i)
{
    if (IsDipole())
        AddDipoleComponent(i);
    else if (IsLargeLoop())
        MakeDefaultLoop(i, 10.0f);
    else if (IsBipole())
        PostWarning("xEMSensorType::AddComponent() bipole not supported yet!.");
}

void xEMSensorType::AddDipoleComponent(int i)
{
    if (!ValidComponent(i))
        return;
    components[i] = std::make_unique<FloatMatrix>(1, 3);
    FloatArray cosines = components[i]->Row(0);
    if (i == kLastComponent)
        cosines = 0.33f;
    else
        cosines[i - 1] = 1.0f;
}

void xEMSensorType::SetDipoleCosines(int i, const float cosines[3])
{
    if (!ValidComponent(i))
        return;
    if (!components[i] || components[i]->Rows() < 1 || components[i]->Cols() < 3)
        components[i] = std::make_unique<FloatMatrix>(1, 3);
    FloatMatrix& matrix = *components[i];
    FloatArray row = matrix.Row(matrix.RowLower());
    for (int c = 0; c < 3; ++c)
        row[row.Lower() + c] = cosines[c];
}

bool xEMSensorType::GetDipoleCosines(int i, float cosines[3]) const
{
    if (!HasComponent(i) || components[i]->Rows() < 1)
        return false;
    ShapePoint(*components[i], components[i]->RowLower(), cosines);
    return true;
}

void xEMSensorType::StoreComponent(int i, const FloatMatrix& matrix)
{
    if (ValidComponent(i))
        components[i] = std::make_unique<FloatMatrix>(matrix);
}

bool xEMSensorType::CopyComponent(int i, FloatMatrix& matrix) const
{
    if (!HasComponent(i))
        return false;
    matrix = *components[i];
    return true;
}

void xEMSensorType::SetLoop(int i, const FloatMatrix& matrix) { StoreComponent(i, matrix); }
void xEMSensorType::SetBipole(int i, const FloatMatrix& matrix) { StoreComponent(i, matrix); }
bool xEMSensorType::GetLoop(int i, FloatMatrix& matrix) const { return CopyComponent(i, matrix); }
bool xEMSensorType::GetBipole(int i, FloatMatrix& matrix) const { return CopyComponent(i, matrix); }

FloatMatrix* xEMSensorType::LoopMatrix(int i) const
{
    return HasComponent(i) ? components[i].get() : nullptr;
}

bool xEMSensorType::GetBipoleEnds(int i, float first[3], float second[3]) const
{
    if (!HasComponent(i) || components[i]->Rows() < 2)
        return false;
    const FloatMatrix& ends = *components[i];
    ShapePoint(ends, ends.RowLower(), first);
    ShapePoint(ends, ends.RowLower() + 1, second);
    return true;
}

void xEMSensorType::RemoveComponent(int i)
{
    if (ValidComponent(i))
        components[i].reset();
}

void xEMSensorType::RemoveAllComponents()
{
    for (auto& component : components)
        component.reset();
}

void xEMSensorType::SetActiveComponent(int i)
{
    for (int other = kFirstComponent; other <= kZ; ++other)
        if (other != i)
            RemoveComponent(other);
}

void xEMSensorType::MoveComponent(int from, int to)
{
    if (ValidComponent(from) && ValidComponent(to) && from != to)
        components[to] = std::move(components[from]);
}

void xEMSensorType::MakeDefaultLoop(int i, float side)
{
    if (!IsLargeLoop() || !ValidComponent(i))
        return;
    if (components[i])
        components[i]->Resize(1, 4, 1, 3);
    else
        components[i] = std::make_unique<FloatMatrix>(1, 4, 1, 3);
    FloatMatrix& loop = *components[i];
    const float zero = 0.0f;
    loop.Fill(&zero);
    float h = side / 2.0f;
    // The x loop's corners 2 and 4 coincide; old files hold it so.
    static const float kXCorners[4][2] = {{1, 1}, {1, -1}, {-1, -1}, {1, -1}};
    static const float kCorners[4][2] = {{1, 1}, {-1, 1}, {-1, -1}, {1, -1}};
    const float (*corners)[2] = i == 1 ? kXCorners : kCorners;
    int first = i == 1 ? 2 : 1;    // the plane's columns: y, z for x; x, z for y; else x, y
    int second = i == 3 || i == 4 ? 2 : 3;
    for (int r = 0; r < 4; ++r) {
        *loop.Element(1 + r, first) = corners[r][0] * h;
        *loop.Element(1 + r, second) = corners[r][1] * h;
    }
}

float xEMSensorType::LoopArea(int i)
{
    if (i != kZ)
        return 0.0f;
    if (loopArea != 0.0f || !IsLargeLoop() || !HasComponent(kZ))
        return loopArea;
    const FloatMatrix& loop = *components[kZ];
    if (loop.Rows() < 3)
        return loopArea;
    // A running pair of corners P, Q; every further corner R adds the cross
    // term of the triple, and the pair moves on.
    float p[3], q[3], r[3];
    ShapePoint(loop, loop.RowLower(), p);
    ShapePoint(loop, loop.RowLower() + 1, q);
    float sum = 0.0f;
    for (int row = loop.RowLower() + 2; row <= loop.RowUpper(); ++row) {
        ShapePoint(loop, row, r);
        sum += (r[0] - p[0]) * (q[1] - p[1]) - (q[0] - p[0]) * (r[1] - p[1]);
        for (int c = 0; c < 3; ++c) {
            p[c] = q[c];
            q[c] = r[c];
        }
    }
    loopArea = std::abs(sum / 2.0f);
    return loopArea;
}

namespace {

// Reads the shape of component i of the sensor's kind. An unknown kind has no
// shape and reads nothing: false.
bool ReadShape(std::istream& in, xEMSensorType& sensor, int i)
{
    int32_t rows = 0;
    if (sensor.IsDipole()) {
        rows = 1;
    } else if (sensor.IsBipole()) {
        rows = 2;
    } else if (sensor.IsLargeLoop()) {
        xExtract::Int(in, rows);
        if (rows < 0)
            rows = 0;
        xDscText::CheckTableRows(in, rows, 3);
    } else {
        return false;
    }
    auto shape = std::make_unique<FloatMatrix>(rows, 3);
    for (int32_t r = 0; r < rows && !in.fail(); ++r) {
        float* point = shape->Element(r, 0);
        for (int c = 0; c < 3; ++c)
            xExtract::Float(in, point[c]);
    }
    sensor.components[i] = std::move(shape);
    return true;
}

void AppendPoint(std::string& text, const float point[3])
{
    xDscText::AppendRow(text, point, 3, kFieldWidth, " ");
}

void AppendShape(std::string& text, const xEMSensorType& sensor, const FloatMatrix& shape)
{
    float point[3];
    int rows = 0;
    if (sensor.IsDipole()) {
        rows = 1;
    } else if (sensor.IsBipole()) {
        rows = 2;
    } else {
        rows = shape.Rows();
        xDscText::AppendInt(text, rows);
        text += '\n';
    }
    for (int r = 0; r < rows; ++r) {
        int row = shape.RowLower() + r;
        if (row <= shape.RowUpper())
            xEMSensorType::ShapePoint(shape, row, point);
        else
            point[0] = point[1] = point[2] = 0.0f;
        AppendPoint(text, point);
    }
}

} // namespace

std::istream& operator>>(std::istream& in, xEMSensorType& sensor)
{
    sensor.RemoveAllComponents();
    in >> sensor.motion;
    in.get();
    sensor.kind = xDoc::GetLine(in);
    int i = ComponentIndex(xDoc::GetLine(in));
    // Every turn consumes a line, so the end of the file ends the walk. The
    // rest of a line is skipped only behind numbers that were read.
    while (i != 0) {
        if (ReadShape(in, sensor, i))
            xDoc::GetLine(in);
        i = ComponentIndex(xDoc::GetLine(in));
    }
    xExtract::Float(in, sensor.x);
    xExtract::Float(in, sensor.y);
    xExtract::Float(in, sensor.z);
    xDoc::GetLine(in);
    return in;
}

std::ostream& operator<<(std::ostream& out, const xEMSensorType& sensor)
{
    std::string text = sensor.motion + " " + sensor.kind + "\n";
    // A kind of no known shape has no shape lines; its components are left out
    // so that the block reads back.
    bool known = sensor.IsDipole() || sensor.IsLargeLoop() || sensor.IsBipole();
    for (int i = 1; i <= 3 && known; ++i) {
        if (!sensor.HasComponent(i))
            continue;
        text += ComponentName(i) + "\n";
        AppendShape(text, sensor, *sensor.components[i]);
    }
    text += "XYZ POSITION:\n";
    const float position[3] = {sensor.x, sensor.y, sensor.z};
    AppendPoint(text, position);
    // The fields are right-justified, and the block ends by taking that flag
    // off the stream, whatever the stream held before.
    out << text;
    out.unsetf(std::ios::right);
    return out;
}
