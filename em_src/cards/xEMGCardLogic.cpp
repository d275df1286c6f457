#include "cards/xEMGCardLogic.h"

#include "frame/xEMEditDesc.h"
#include "gui/xPlatform.h"
#include "model/xEMGDesc.h"

#include <cmath>
#include <limits>

const char* const xEMGCardLogic::kLoopTitle = "Edit Loop Corners";
const char* const xEMGCardLogic::kBipoleTitle = "Edit Bipole End Points";
const char* const xEMGCardLogic::kRxOffsetTitle = "Edit Rx xyz Offset";
const char* const xEMGCardLogic::kTxPositionTitle = "Edit Tx xyz Position";
const char* const xEMGCardLogic::kRxPositionTitle = "Edit Rx xyz Position";
const char* const xEMGCardLogic::kNoLoopMessage = "xEMGCardd::Failed to extract a loop from xEMGDesc.";

namespace {

// Far enough off the drawing that a place there never shows, near enough that
// adding an icon's size can't overflow.
constexpr double kFarPixel = 1 << 24;

bool SamePoint(const float a[3], const float b[3])
{
    return a[0] == b[0] && a[1] == b[1] && a[2] == b[2];
}

} // namespace

xEMGCardLogic::xEMGCardLogic(xEMDesc& document, xCommandTarget* up)
    : xCardLogic(document, up), geometry(document.geometry)
{
}

xEMSensorType* xEMGCardLogic::Sensor(bool receiver) const
{
    if (!geometry)
        return nullptr;
    return receiver ? &geometry->rx : &geometry->tx;
}

bool xEMGCardLogic::CheckRecord(std::string& /*message*/)
{
    return true;
}

void xEMGCardLogic::Changed()
{
    MarkChanged();
    Send(xEMEditDesc::kCopyGeometry, geometry);
}

bool xEMGCardLogic::Finite(const float point[3])
{
    return std::isfinite(point[0]) && std::isfinite(point[1]) && std::isfinite(point[2]);
}

// --- The drawing ---

void xEMGCardLogic::SetOrigin(double x, double y)
{
    origin = {x, y};
}

xEMGCardLogic::Place xEMGCardLogic::IconPlace(bool receiver) const
{
    if (!receiver || !geometry)
        return origin;
    float s[3], t[3];
    geometry->rx.Position(s);
    geometry->tx.Position(t);
    const double dx = (static_cast<double>(s[0]) - t[0]) / metresPerPixel;
    const double dy = planView ? (static_cast<double>(s[1]) - t[1]) / metresPerPixel
                               : (static_cast<double>(t[2]) - s[2]) / metresPerPixel;
    return {origin.x + dx, origin.y + dy};
}

xEMGCardLogic::IconKind xEMGCardLogic::KindOf(const xEMSensorType& sensor)
{
    if (sensor.IsLargeLoop())
        return IconKind::kLoop;
    if (sensor.IsBipole())
        return IconKind::kBipole;
    return IconKind::kDipole;
}

xEMGCardLogic::Picture xEMGCardLogic::PictureOf(const xEMSensorType& sensor, int component, bool plan)
{
    switch (KindOf(sensor)) {
    case IconKind::kLoop:
        return {plan ? Shape::kLoopPlan : Shape::kLoopSection, Arrow::kNone};
    case IconKind::kBipole:
        return {Shape::kBipole, Arrow::kNone};
    case IconKind::kDipole:
        break;
    }
    float c[3];
    if (!sensor.GetDipoleCosines(component, c))
        return {Shape::kOval, Arrow::kNone};
    const float ax = std::fabs(c[0]), ay = std::fabs(c[1]), az = std::fabs(c[2]);
    // The arrowhead stands at the line's end for a cosine of 0 or above: a
    // line runs left to right, in the section bottom to top (z up), in the
    // plan top to bottom (y down).
    if (az > std::max(ax, ay)) {
        if (plan)
            return {Shape::kOvalDot, Arrow::kNone};
        return {Shape::kOvalLine, c[2] >= 0.0f ? Arrow::kUp : Arrow::kDown};
    }
    if (!(ay > ax))
        return {Shape::kOvalLine, c[0] >= 0.0f ? Arrow::kRight : Arrow::kLeft};
    if (plan)
        return {Shape::kOvalLine, c[1] >= 0.0f ? Arrow::kDown : Arrow::kUp};
    return {Shape::kOvalCross, Arrow::kNone};
}

int xEMGCardLogic::PixelOf(double value)
{
    if (std::isnan(value))
        return 0;
    return static_cast<int>(std::lround(std::max(-kFarPixel, std::min(kFarPixel, value))));
}

int xEMGCardLogic::Truncated(double value)
{
    if (std::isnan(value))
        return 0;
    const double low = std::numeric_limits<int>::min();
    const double high = std::numeric_limits<int>::max();
    return static_cast<int>(std::max(low, std::min(high, value)));
}

// --- Commands ---

bool xEMGCardLogic::ChooseMotion(bool receiver, const std::string& motion)
{
    xEMSensorType* sensor = Sensor(receiver);
    if (!sensor || sensor->motion == motion)
        return false;
    sensor->SetMotion(motion);
    Changed();
    return true;
}

bool xEMGCardLogic::ChooseKind(bool receiver, const std::string& kind, int component)
{
    xEMSensorType* sensor = Sensor(receiver);
    if (!sensor || sensor->kind == kind)
        return false;
    sensor->SetKind(kind);
    sensor->AddComponent(component);
    MarkChanged();
    // The document gives the kind to the same sensor of every other orientation.
    Send(receiver ? kRxKindChosen : kTxKindChosen);
    return true;
}

void xEMGCardLogic::FlipView()
{
    planView = !planView;
}

std::string xEMGCardLogic::ViewButtonText(bool plan)
{
    return plan ? "View Vertical Section (xz)" : "View Horizontal Plan (xy)";
}

std::array<std::string, 2> xEMGCardLogic::DragReceiverTo(int x, int y)
{
    const double px = x - origin.x;
    const double py = y - origin.y;
    if (geometry) {
        float t[3];
        geometry->tx.Position(t);
        geometry->rx.x = static_cast<float>(px * metresPerPixel + t[0]);
        if (planView)
            geometry->rx.y = static_cast<float>(py * metresPerPixel + t[1]);
        else
            geometry->rx.z = static_cast<float>(-py * metresPerPixel + t[2]);
        Changed();
    }
    return {"x : " + std::to_string(Truncated(px)), (planView ? "y : " : "z : ") + std::to_string(Truncated(py))};
}

std::array<std::string, 2> xEMGCardLogic::CursorTexts(int x, int y) const
{
    float t[3] = {0.0f, 0.0f, 0.0f};
    if (geometry)
        geometry->tx.Position(t);
    const double px = x - origin.x;
    const double py = y - origin.y;
    // The plan's y runs against the drawing here; that is how it reads.
    const double second = (planView ? t[1] : t[2]) - py * metresPerPixel;
    return {"x : " + std::to_string(Truncated(px * metresPerPixel + t[0])),
            (planView ? "y : " : "z : ") + std::to_string(Truncated(second))};
}

std::array<std::string, 3> xEMGCardLogic::OffsetTexts() const
{
    float offset[3] = {0.0f, 0.0f, 0.0f};
    RxOffset(offset);
    return {"dx : " + std::to_string(Truncated(offset[0])), "dy : " + std::to_string(Truncated(offset[1])),
            "dz : " + std::to_string(Truncated(offset[2]))};
}

// --- Dialogs ---

void xEMGCardLogic::RxOffset(float offset[3]) const
{
    if (!geometry)
        return;
    offset[0] = geometry->SeparationX();
    offset[1] = geometry->SeparationY();
    offset[2] = geometry->SeparationZ();
}

void xEMGCardLogic::TxPosition(float position[3]) const
{
    if (geometry)
        geometry->tx.Position(position);
}

bool xEMGCardLogic::EditRxOffset(const float offset[3])
{
    float before[3];
    RxOffset(before);
    if (!geometry || SamePoint(before, offset) || !Finite(offset))
        return false;
    // Old records held the offset in a form of their own: they keep it.
    if (geometry->version > 6) {
        float t[3];
        geometry->tx.Position(t);
        geometry->rx.SetPosition(t[0] + offset[0], t[1] + offset[1], t[2] + offset[2]);
    }
    Changed();
    return true;
}

bool xEMGCardLogic::EditTxPosition(const float position[3])
{
    float t0[3];
    TxPosition(t0);
    if (!geometry || SamePoint(t0, position) || !Finite(position))
        return false;
    geometry->tx.SetPosition(position);
    float t1[3];
    geometry->tx.Position(t1);
    // The receiver moves with the transmitter, so that the offset stays.
    if (!SamePoint(t0, t1)) {
        float r[3];
        geometry->rx.Position(r);
        geometry->rx.SetPosition(r[0] - (t0[0] - t1[0]), r[1] - (t0[1] - t1[1]), r[2] - (t0[2] - t1[2]));
    }
    Changed();
    return true;
}

bool xEMGCardLogic::EditRxPosition(const float position[3])
{
    float r0[3];
    if (!geometry)
        return false;
    geometry->rx.Position(r0);
    if (SamePoint(r0, position) || !Finite(position))
        return false;
    geometry->rx.SetPosition(position);
    Changed();
    return true;
}

FloatMatrix xEMGCardLogic::LoopTable(const xEMSensorType& sensor, int component) const
{
    FloatMatrix table;
    if (!sensor.GetLoop(component, table)) {
        PostError("%s", kNoLoopMessage);
        return FloatMatrix();
    }
    return table;
}

FloatMatrix xEMGCardLogic::BipoleTable(const xEMSensorType& sensor, int component)
{
    FloatMatrix table(1, 2, 1, 3);
    float first[3], second[3];
    if (sensor.GetBipoleEnds(component, first, second)) {
        for (int c = 0; c < 3; ++c) {
            *table.Element(1, 1 + c) = first[c];
            *table.Element(2, 1 + c) = second[c];
        }
    }
    return table;
}

bool xEMGCardLogic::TakeShape(xEMSensorType& sensor, int component, const FloatMatrix& before,
                              const FloatMatrix& edited, bool loop)
{
    if (edited == before || edited.Cols() < 3 || edited.Rows() < 1)
        return false;
    for (int r = edited.RowLower(); r <= edited.RowUpper(); ++r) {
        float point[3];
        xEMSensorType::ShapePoint(edited, r, point);
        if (!Finite(point))
            return false;
    }
    if (loop)
        sensor.SetLoop(component, edited);
    else
        sensor.SetBipole(component, edited);
    Changed();
    return true;
}

bool xEMGCardLogic::TakeLoop(xEMSensorType& sensor, int component, const FloatMatrix& before,
                             const FloatMatrix& edited)
{
    return TakeShape(sensor, component, before, edited, true);
}

bool xEMGCardLogic::TakeBipole(xEMSensorType& sensor, int component, const FloatMatrix& before,
                               const FloatMatrix& edited)
{
    return TakeShape(sensor, component, before, edited, false);
}
