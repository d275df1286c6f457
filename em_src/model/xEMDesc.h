#ifndef TOLVAD_MODEL_XEMDESC_H
#define TOLVAD_MODEL_XEMDESC_H

#include "frame/xDoc.h"
#include "model/xEMDescItem.h"
#include "model/xEMFDesc.h"
#include "model/xEMSHeader.h"
#include "model/xTRClasf.h"
#include "model/xTROrientation.h"
#include "numeric/FloatArray.h"
#include "numeric/FloatMatrix.h"

#include <cstdint>
#include <iosfwd>
#include <map>
#include <memory>
#include <string>
#include <vector>

// One EM system descriptor in memory: the file-wide header, one system and
// geometry record per transmitter/receiver orientation, and the data format
// shared by all of them. It reads every file version we know and always writes
// the current one, so opening and saving upgrades a file.
class xEMDesc : public xDoc {
public:
    // The file format this program writes.
    static constexpr int32_t kFileVersion = 9;

    // A new descriptor: the single orientation TzRz, named "untitled.DSC".
    explicit xEMDesc(xCommandTarget* boss = nullptr, long id = 0);
    ~xEMDesc() override;

    // Copies header, format, the current system and geometry and systemKind;
    // the items stay as they are.
    xEMDesc& operator=(const xEMDesc& other);
    xEMDesc(const xEMDesc&) = delete;

    void Read() override;
    void Write() override;
    // Read and Write on a stream of the caller's instead of the document's file.
    void ReadFrom(std::istream& in);
    void WriteTo(std::ostream& out);
    // The version of the file last read (kFileVersion for a new descriptor).
    int32_t FileVersion() const { return fileVersion; }
    // Whether the file last read began as a descriptor does: a first line
    // that begins with "FILE FORMAT VERSION" after any blanks, and an integer
    // behind it. Reading goes on either way; a caller that would write over
    // the file can refuse what is no descriptor.
    bool HasVersionLabel() const { return versionLabel; }
    bool HasVersionNumber() const { return versionNumber; }

    // Points system and geometry into the item of code; false when there is none.
    bool SetCurrent(int32_t code);

    // Per orientation: each first makes code current and gives 0 (leaving its
    // output alone) when there is no item for it.
    int32_t Channels(int32_t code);
    int32_t ZAslPosition() const;
    xEMGDesc* Geometry(int32_t code);
    double HorizontalSeparation(int32_t code);
    double VerticalSeparation(int32_t code);
    double RxOffsetX(int32_t code);
    double RxOffsetY(int32_t code);
    double RxOffsetZ(int32_t code);
    bool RxPosition(float out[3], int32_t code);
    bool TxPosition(float out[3], int32_t code);
    bool ChannelPositions(FloatMatrix& matrix, int32_t code);
    bool QuadraturePositions(FloatMatrix& matrix, int32_t code);
    bool InPhasePositions(FloatMatrix& matrix, int32_t code);
    bool Frequencies(FloatArray& array, int32_t code);
    bool FrequencyTable(FloatMatrix& matrix, int32_t code);
    bool SamplingWindows(FloatMatrix& matrix, int32_t code);
    bool TxWaveform(FloatMatrix& matrix, int32_t code);
    bool RxWaveform(FloatMatrix& matrix, int32_t code);
    bool Weights(FloatArray& array, int32_t code);
    bool ScaledSamplingWindows(FloatMatrix& matrix, int32_t code);
    bool TxFieldAt(int32_t code, float x, float y, float z, FloatArray& out);

    // Over the whole descriptor.
    xTRClasf GetClasf() const;
    xTRClasf ChannelClasf();
    xTRClasf ItemClasf() const;
    int32_t MaxChannels(int32_t exceptCode) const;
    void UserItemLabels(std::vector<std::string>& list) const;
    void UserItemPositions(std::vector<int32_t>& list) const;
    void AverageSeparation(int txComponent, float& horizontal, int& zero, float& vertical);
    float CouplingSign(int32_t code) const;

    std::unique_ptr<xEMSHeader> header;
    // Borrowed: the records of the current item (scratch records while reading).
    xEMSDesc* system = nullptr;
    xEMGDesc* geometry = nullptr;
    std::unique_ptr<xEMFDesc> format;
    // Key: the orientation's name ("" for a block whose banner names none).
    std::map<std::string, std::unique_ptr<xEMDescItem>> items;
    int32_t current = 100;
    bool sharedMode = false;
    // 0 other, 1 geotem, 2 spectrem, 3 questem, 4 as constructed.
    int32_t systemKind = 4;

private:
    void ReadVersion5(int version);
    void ReadVersion6();
    void ReadVersion7();
    void ReadVersion8(int version);
    void DetectSystemKind(const std::string& name);

    // Whether system points into one of the items (not a scratch or a stale record).
    bool PointsIntoItem() const;
    void ClearItems();
    void MakeScratch();
    void DropScratch();
    void PointInto(xEMDescItem& item);
    // The first orientation of the table, or the lowest item when it has none.
    void SelectFirst(const xTRClasf& clasf);
    void WriteBlock(std::ostream& out, int32_t code);

    // Records that exist only while a file is read.
    std::unique_ptr<xEMSDesc> scratchSystem;
    std::unique_ptr<xEMGDesc> scratchGeometry;
    int32_t fileVersion = kFileVersion;
    bool versionLabel = true;
    bool versionNumber = true;
};

#endif
