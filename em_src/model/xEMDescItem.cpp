#include "model/xEMDescItem.h"

xEMDescItem::xEMDescItem(const xEMSDesc& system, const xEMGDesc& geometry, int32_t code)
    : system(system), geometry(geometry), code(code)
{
}
