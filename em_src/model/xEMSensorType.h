#ifndef TOLVAD_MODEL_XEMSENSORTYPE_H
#define TOLVAD_MODEL_XEMSENSORTYPE_H

#include "numeric/FloatMatrix.h"

#include <iosfwd>
#include <memory>
#include <string>

// A transmitter or a receiver: its kind ("dipole", "large loop", "el.
// bipole"), its way of moving ("fixed", "moving"), its position, and the shape
// of each component it has. Components 1, 2, 3 are x, y, z; 4 is the component
// "t" of the undefined orientation. A dipole's shape is one row of direction
// cosines, a loop's the corners in order (x, y, z per row, closing from the
// last corner to the first), a bipole's its two end points. Shape matrices may
// start at any index, so their lowest row and column are always asked for.
class xEMSensorType {
public:
    enum { kFirstComponent = 1, kLastComponent = 4 };

    xEMSensorType();
    // A copy has no component 4 and no kept loop area.
    xEMSensorType(const xEMSensorType& other);
    xEMSensorType& operator=(const xEMSensorType& other);
    // Components present on one side only are not compared.
    bool operator==(const xEMSensorType& other) const;
    bool operator!=(const xEMSensorType& other) const { return !(*this == other); }

    bool IsFixed() const;
    bool IsMoving() const;
    bool IsDipole() const;
    bool IsBipole() const;
    bool IsLargeLoop() const;
    bool HasComponent(int i) const;

    void SetMoving();
    void SetFixed();
    void SetMotion(const std::string& text);
    // Each drops all components.
    void SetDipole();
    void SetBipole();
    void SetLargeLoop();
    // Stores the text; a known kind then drops all components.
    void SetKind(const std::string& text);

    void SetPosition(float newX, float newY, float newZ);
    void SetPosition(const float position[3]);
    // The centre of a fixed loop with a z component, else x, y, z.
    void Position(float position[3]) const;

    // A default shape for component i that suits the kind.
    void AddComponent(int i);
    // Unit cosines along i (0.33 each for component 4).
    void AddDipoleComponent(int i);
    // Row 0 of the component, made if absent.
    void SetDipoleCosines(int i, const float cosines[3]);
    bool GetDipoleCosines(int i, float cosines[3]) const;
    void SetLoop(int i, const FloatMatrix& matrix);
    void SetBipole(int i, const FloatMatrix& matrix);
    bool GetLoop(int i, FloatMatrix& matrix) const;
    bool GetBipole(int i, FloatMatrix& matrix) const;
    FloatMatrix* LoopMatrix(int i) const;
    bool GetBipoleEnds(int i, float first[3], float second[3]) const;
    void RemoveComponent(int i);
    void RemoveAllComponents();
    // Keeps component i alone among x, y, z.
    void SetActiveComponent(int i);
    void KeepComponent(int i) { SetActiveComponent(i); }
    // Hands the shape of component from over to component to.
    void MoveComponent(int from, int to);
    // A square loop of side in the plane normal to component i, rows 1 to 4.
    void MakeDefaultLoop(int i, float side);
    // The area of the z loop, kept once computed.
    float LoopArea(int i);

    // Row r of a shape matrix as x, y, z, counted from its lowest column; 0
    // where the matrix is too narrow.
    static void ShapePoint(const FloatMatrix& matrix, int r, float point[3]);

    std::unique_ptr<FloatMatrix> components[kLastComponent + 1];   // index 0 unused
    std::string motion;
    std::string kind;
    float x;
    float y;
    float z;
    float loopArea;

private:
    static bool ValidComponent(int i) { return i >= kFirstComponent && i <= kLastComponent; }
    void StoreComponent(int i, const FloatMatrix& matrix);
    bool CopyComponent(int i, FloatMatrix& matrix) const;
};

// The sensor block of the .DSC geometry record.
std::istream& operator>>(std::istream& in, xEMSensorType& sensor);
std::ostream& operator<<(std::ostream& out, const xEMSensorType& sensor);

#endif
