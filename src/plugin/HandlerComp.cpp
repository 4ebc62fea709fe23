#include "plugin/HandlerComp.h"

void HandlerComp::SendParam (int hostIndex, float normalised)
{
    pending.push ({ hostIndex, normalised });
    sendChangeMessage();
}
