#ifndef TOLVAD_MODEL_XEMDESCITEM_H
#define TOLVAD_MODEL_XEMDESCITEM_H

#include "model/xEMGDesc.h"
#include "model/xEMSDesc.h"

#include <cstdint>

// The records of one transmitter/receiver orientation: its system record and
// its geometry, under the orientation's code. The descriptor keeps one per
// orientation in its dictionary.
class xEMDescItem {
public:
    xEMDescItem() = default;
    // Both records are copied.
    xEMDescItem(const xEMSDesc& system, const xEMGDesc& geometry, int32_t code);
    xEMDescItem(const xEMDescItem& other) = default;
    xEMDescItem& operator=(const xEMDescItem& other) = default;
    // Members go in reverse order: geometry before system.
    ~xEMDescItem() = default;

    xEMSDesc system;
    xEMGDesc geometry;
    int32_t code = 100;
};

#endif
