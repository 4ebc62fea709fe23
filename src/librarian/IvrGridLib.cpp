#include "librarian/IvrGridLib.h"

IvrGridLib::IvrGridLib()
{
    setTextColours ({ 0xff00bbbb, 0xff80ffff, 0xffcccccc, 0xff00cccc, 0xff80ffff, 0xffbbbbbb });
}
