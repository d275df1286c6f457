#ifndef TOLVAD_MODEL_XEMGDESC_H
#define TOLVAD_MODEL_XEMGDESC_H

#include "model/xEMSensorType.h"

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

class FloatArray;

// The geometry of one orientation: the transmitter and the receiver, in metres,
// in a right-handed system centred on the survey point with x along the flight
// direction. From version 9 on the receiver position is in that same system;
// older records held an offset, and reading converts them. The record also
// computes the transmitter's primary field at a point.
class xEMGDesc {
public:
    xEMGDesc();
    xEMGDesc(const xEMGDesc& other);
    xEMGDesc& operator=(const xEMGDesc& other);
    // Equal sensors compare equal only when the versions differ; old callers
    // depend on that reversal.
    bool operator==(const xEMGDesc& other) const;

    // Gives each sensor the component of the orientation code, moving the
    // shape of its first component there when it lacks it.
    void ConformToOrientation(int code);
    void SelectOrientation(int code) { ConformToOrientation(code); }
    // Reduces the transmitter to the code's transmitter component and the
    // receiver to its receiver component.
    void KeepComponent(int code);
    // The transmitter's component; a note when it has not exactly one.
    int GetTxComponent() const;

    // The field of the transmitter's component, of unit moment or unit
    // current, at (x, y, z), in out's lowest index and the two following.
    bool TxFieldAt(int txComponent, float x, float y, float z, FloatArray& out) const;
    bool DipoleField(int txComponent, float x, float y, float z, FloatArray& out) const;
    bool LoopField(int txComponent, float x, float y, float z, FloatArray& out) const;

    // Receiver offset from the transmitter by the rule of the record's version.
    float SeparationX() const;
    float SeparationY() const;
    float SeparationZ() const;
    float HorizontalSeparation() const;
    float VerticalSeparation() const;
    void RotateHorizontal(float cosine, float sine);

    xEMSensorType tx;
    xEMSensorType rx;
    std::vector<std::string> motions;
    std::vector<std::string> kinds;
    int32_t version;
};

std::istream& operator>>(std::istream& in, xEMGDesc& geometry);
std::ostream& operator<<(std::ostream& out, const xEMGDesc& geometry);

#endif
