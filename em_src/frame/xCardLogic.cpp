#include "frame/xCardLogic.h"

#include "model/xEMDesc.h"

xCardLogic::xCardLogic(xEMDesc& document, xCommandTarget* up) : xCommandTarget(up), document(document) {}

void xCardLogic::MarkChanged()
{
    document.SetChanged(true);
}

void xCardLogic::Send(long command, void* data)
{
    xCommandTarget::DoCommand(command, data);
}
