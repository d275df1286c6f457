#include "gui/xCommandTarget.h"

void xCommandTarget::DoCommand(long command, void* data)
{
    if (nextTarget)
        nextTarget->DoCommand(command, data);
}
