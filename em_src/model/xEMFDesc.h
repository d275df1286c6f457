#ifndef TOLVAD_MODEL_XEMFDESC_H
#define TOLVAD_MODEL_XEMFDESC_H

#include "model/xTRClasf.h"
#include "numeric/FloatMatrix.h"

#include <cstdint>
#include <istream>
#include <ostream>
#include <string>
#include <vector>

// The layout of a survey's ASCII data files: comment lines at the head of each
// file, items per data record, and the position (counted from 1, 0 for absent)
// of every quantity in a record. A time domain system has one position per
// channel and orientation (channelPos); a frequency domain system two, the in
// phase and the quadrature component of each frequency. The position matrices
// have rows 100 to 109 (orientation codes) and columns 1 to n, and hold whole
// numbers in floats.
class xEMFDesc {
public:
    // Names of the fixed items, in the order of their rows in the file.
    static constexpr int kFixedItemCount = 12;
    static const char* const kFixedItemNames[kFixedItemCount];
    static constexpr const char* kZAsl = "z(ASL)";
    static constexpr const char* kUserItemsHeading = "User Defined Items";
    static constexpr const char* kTableSeparator = "----------------------";

    explicit xEMFDesc(int channels = 1);
    xEMFDesc(const xEMFDesc& other);
    xEMFDesc& operator=(const xEMFDesc& other);

    // Reshapes the three matrices to columns 1 to n (at least 1), keeping
    // what the overlap copy of the matrices keeps.
    void ResizeChannels(int n);
    // The same for the largest count of clasf.
    void ResizeToClasf();
    // 100 clears all three matrices whole; any other code that row only.
    void ClearPositions(int code);
    int ChannelCount() const { return channelPos.Cols(); }

    int32_t OrientationChannels(int code) const;
    void SetOrientationChannels(int32_t count, int code);
    void SetClasf(const xTRClasf& table) { clasf = table; }
    const xTRClasf& GetClasf() const { return clasf; }
    xTRClasf& GetClasf() { return clasf; }
    // Sets the count of a code and zeroes that code's positions.
    void SetOrientation(int code, int16_t count);

    // Grows to the source's columns where needed, then takes its non-zero
    // positions over its own: blocks of older files hold different
    // orientations, which are merged in.
    void CopyPositions(const xEMFDesc& from);
    // clasf from the positions: an orientation whose first position is
    // defined gets count 1, all others 0.
    void MarkDefinedOrientations();
    // Whether some set orientation's positions are not consecutive (steps of 1
    // or 0 in the time domain, exactly 2 in both frequency domain matrices).
    bool HasRandomChannels() const;
    // Every position in use: the fixed items, the positions of the set
    // orientations 101 to 109, the user items.
    void RebuildUsedPositions();

    int32_t ZAslPosition() const;
    std::vector<std::string> UserItemsWithoutZAsl() const;

    // Compares what the data files depend on: not sampleFile, version,
    // userLabels or usedPositions.
    bool operator==(const xEMFDesc& other) const;
    bool operator!=(const xEMFDesc& other) const { return !(*this == other); }
    bool HasSameTitles(const xEMFDesc& other) const;

    // The reader chooses the layout by version; the writer always writes the
    // current one.
    void Read(std::istream& in);
    void Write(std::ostream& out) const;

    int32_t commentLines = 0;
    int32_t itemCount = 0;
    int32_t linePos = 0;
    int32_t fidPos = 0;
    int32_t eastPos = 0;
    int32_t northPos = 0;
    int32_t topoPos = 0;
    int32_t altitudePos = 0;
    int32_t rxPitchPos = 0;
    int32_t rxYawPos = 0;
    int32_t rxRollPos = 0;
    int32_t txPitchPos = 0;
    int32_t txYawPos = 0;
    int32_t txRollPos = 0;
    std::vector<std::string> userLabels;
    std::vector<int32_t> userPositions;
    std::vector<int32_t> usedPositions;
    FloatMatrix channelPos;
    FloatMatrix quadraturePos;
    FloatMatrix inPhasePos;
    std::string sampleFile;
    std::string title;
    int32_t version = 9;
    xTRClasf clasf;
    int16_t geosoft = 0;
    int16_t frequencyDomain = 0;

    // The fixed positions in the order of their rows and names (pitch, roll, yaw).
    static int32_t xEMFDesc::* const kFixedFields[kFixedItemCount];

private:
    static const int kFixedClasses[kFixedItemCount];

    void ReadVersion9(std::istream& in);
    void ReadOlder(std::istream& in);
    void ReadTables(std::istream& in);
    void ReadUserRows(std::istream& in);
    void ReadOlderUserItems(std::istream& in);
    void EnsureZAsl();
};

std::istream& operator>>(std::istream& in, xEMFDesc& format);
std::ostream& operator<<(std::ostream& out, const xEMFDesc& format);

#endif
