#include "model/xEMGDesc.h"

#include "frame/xDoc.h"
#include "gui/xPlatform.h"
#include "model/xTROrientation.h"
#include "numeric/FloatArray.h"

#include <cmath>
#include <istream>
#include <ostream>

namespace {

const char kSeparator[] = "_________________________________________________________\n";
const float kPi = 3.14159265358979f;
const int kCurrentVersion = 9;

// out gets room for three values from its lowest index on.
void MakeRoom(FloatArray& out)
{
    if (out.Size() < 3)
        out.Resize(out.Lower(), out.Lower() + 2);
}

float SquaredLength(const float v[3])
{
    return v[0] * v[0] + v[1] * v[1] + v[2] * v[2];
}

float Dot(const float a[3], const float b[3])
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

} // namespace

xEMGDesc::xEMGDesc() : motions{"moving"}, kinds{"dipole", "large loop"}, version(kCurrentVersion)
{
    tx.SetLargeLoop();
    tx.SetMoving();
    tx.MakeDefaultLoop(3, 10.0f);
    rx.SetDipole();
    rx.SetMoving();
    rx.AddDipoleComponent(3);
    rx.SetPosition(-100.0f, 0.0f, -50.0f);
}

xEMGDesc::xEMGDesc(const xEMGDesc& other) : xEMGDesc()
{
    *this = other;
}

xEMGDesc& xEMGDesc::operator=(const xEMGDesc& other)
{
    if (this == &other)
        return *this;
    rx = other.rx;
    tx = other.tx;
    version = other.version;
    return *this;
}

bool xEMGDesc::operator==(const xEMGDesc& other) const
{
    if (this == &other)
        return true;
    if (rx != other.rx || tx != other.tx)
        return false;
    return version != other.version;
}

namespace {

void ConformSensor(xEMSensorType& sensor, int component)
{
    if (sensor.HasComponent(component))
        return;
    for (int i = 1; i <= 3; ++i) {
        if (!sensor.HasComponent(i))
            continue;
        if (sensor.IsDipole()) {
            sensor.AddDipoleComponent(component);
            sensor.RemoveComponent(i);
        } else {
            sensor.MoveComponent(i, component);
        }
        return;
    }
}

} // namespace

void xEMGDesc::ConformToOrientation(int code)
{
    ConformSensor(tx, TxComponent(code));
    ConformSensor(rx, RxComponent(code));
}

void xEMGDesc::KeepComponent(int code)
{
    tx.KeepComponent(TxComponent(code));
    rx.KeepComponent(RxComponent(code));
}

int xEMGDesc::GetTxComponent() const
{
    int count = 0;
    int found = 3;
    for (int i = 1; i <= 3; ++i) {
        if (tx.HasComponent(i)) {
            ++count;
            found = i;
        }
    }
    if (count != 1)
        PostNote("ERROR xEMGDesc::GetTxComponent() counter = %d", count);
    return found;
}

bool xEMGDesc::TxFieldAt(int txComponent, float x, float y, float z, FloatArray& out) const
{
    if (!tx.HasComponent(txComponent) || !(tx.IsLargeLoop() || tx.IsDipole())) {
        PostError("Used Transmitter type is not supported!");
        return false;
    }
    if (tx.IsLargeLoop())
        return LoopField(txComponent, x, y, z, out);
    return DipoleField(txComponent, x, y, z, out);
}

bool xEMGDesc::DipoleField(int txComponent, float x, float y, float z, FloatArray& out) const
{
    if (txComponent < 1 || txComponent > 3) {
        PostWarning("xEMGDesc::DipoleField() Illegal Tx component passed in.");
        return false;
    }
    float mx = txComponent == 1 ? 1.0f : 0.0f;
    float my = txComponent == 2 ? 1.0f : 0.0f;
    float mz = txComponent == 3 ? 1.0f : 0.0f;
    float r2 = x * x + y * y + z * z;
    float r = std::sqrt(r2);
    float r5 = r2 * r2 * r;
    float bx = (3.0f * x * z * mz + 3.0f * x * y * my - r2 * mx + 3.0f * x * x * mx) / r5;
    float by = (3.0f * y * z * mz + 3.0f * x * y * mx - r2 * my + 3.0f * y * y * my) / r5;
    float bz = (3.0f * y * z * my + 3.0f * x * z * mx - r2 * mz + 3.0f * z * z * mz) / r5;
    float fourPi = 4.0f * kPi;
    MakeRoom(out);
    int first = out.Lower();
    out[first] = bx / fourPi;
    out[first + 1] = by / fourPi;
    out[first + 2] = bz / fourPi;
    return true;
}

bool xEMGDesc::LoopField(int txComponent, float x, float y, float z, FloatArray& out) const
{
    const FloatMatrix* loop = tx.LoopMatrix(txComponent);
    if (!loop)
        return false;
    MakeRoom(out);
    int first = out.Lower();
    float field[3] = {0.0f, 0.0f, 0.0f};
    const float p[3] = {x, y, z};
    float a[3] = {0.0f, 0.0f, 0.0f};
    float b[3];
    if (loop->Rows() > 0)
        xEMSensorType::ShapePoint(*loop, loop->RowUpper(), a);
    for (int row = loop->RowLower(); row <= loop->RowUpper(); ++row) {
        xEMSensorType::ShapePoint(*loop, row, b);
        float d[3], ra[3], rb[3];
        for (int c = 0; c < 3; ++c) {
            d[c] = b[c] - a[c];
            ra[c] = p[c] - a[c];
            rb[c] = p[c] - b[c];
        }
        // The small terms keep a point on a corner or on the line finite.
        float l2 = SquaredLength(d) + 0.01f;
        float ra2 = SquaredLength(ra) + 0.01f;
        float rb2 = SquaredLength(rb) + 0.01f;
        float raLength = std::sqrt(ra2);
        float rbLength = std::sqrt(rb2);
        float dotA = Dot(ra, d);
        float dotB = Dot(rb, d);
        float cross[3] = {d[1] * ra[2] - d[2] * ra[1], d[2] * ra[0] - d[0] * ra[2],
                          d[0] * ra[1] - d[1] * ra[0]};
        float c2 = SquaredLength(cross) + 0.0001f;
        float q = c2 / l2;
        float f;
        if (q / ra2 + q / rb2 > 0.0004f || dotA * dotB / (l2 * rbLength * raLength) < 0.9f) {
            f = (dotB / rbLength - dotA / raLength) / c2;
        } else {
            // Near the segment's line, beyond its ends, the difference above
            // cancels; its expansion in q stands in.
            f = (dotA / (ra2 * raLength) - dotB / (rbLength * rb2)) * q * 0.5f / c2;
        }
        for (int c = 0; c < 3; ++c) {
            field[c] += f * cross[c];
            a[c] = b[c];
        }
    }
    float fourPi = 4.0f * kPi;
    for (int c = 0; c < 3; ++c)
        out[first + c] = field[c] / fourPi;
    return true;
}

namespace {

// Receiver offset along one axis, by the rule of the version that stored it:
// the receiver field itself, then receiver to transmitter, then the reverse.
float Separation(int version, float txValue, float rxValue)
{
    if (version < 8)
        return rxValue;
    if (version == 8)
        return txValue - rxValue;
    return rxValue - txValue;
}

} // namespace

float xEMGDesc::SeparationX() const { return Separation(version, tx.x, rx.x); }
float xEMGDesc::SeparationY() const { return Separation(version, tx.y, rx.y); }
float xEMGDesc::SeparationZ() const { return Separation(version, tx.z, rx.z); }

float xEMGDesc::HorizontalSeparation() const
{
    float dx = rx.x - tx.x;
    float dy = rx.y - tx.y;
    return std::sqrt(dx * dx + dy * dy);
}

float xEMGDesc::VerticalSeparation() const
{
    return std::fabs(tx.z - rx.z);
}

void xEMGDesc::RotateHorizontal(float cosine, float sine)
{
    for (xEMSensorType* sensor : {&tx, &rx}) {
        float oldX = sensor->x;
        float oldY = sensor->y;
        sensor->x = cosine * oldX - sine * oldY;
        sensor->y = sine * oldX + cosine * oldY;
    }
}

std::istream& operator>>(std::istream& in, xEMGDesc& geometry)
{
    xDoc::GetLine(in);
    in >> geometry.tx;
    xDoc::GetLine(in);
    xDoc::GetLine(in);
    in >> geometry.rx;
    xDoc::GetLine(in);
    if (geometry.version <= 8) {
        float transmitter[3];
        geometry.tx.Position(transmitter);
        geometry.rx.SetPosition(transmitter[0] - geometry.SeparationX(),
                                transmitter[1] - geometry.SeparationY(),
                                transmitter[2] - geometry.SeparationZ());
        geometry.version = kCurrentVersion;
    }
    return in;
}

std::ostream& operator<<(std::ostream& out, const xEMGDesc& geometry)
{
    return out << "TRANSMITTER GEOMETRY\n"
               << geometry.tx << kSeparator << "RECEIVER GEOMETRY\n"
               << geometry.rx << kSeparator;
}
