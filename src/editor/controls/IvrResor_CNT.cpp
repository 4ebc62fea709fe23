// The resource table: every image of the editor and the librarian, with the size it must have.

#include "editor/controls/IvrResor.h"

namespace
{
const IvrResor::Entry entries[] = {
    { "knobsBig", 3419, 56 },
    { "rotary", 370, 60 },
    { "swRedHor", 200, 50 },
    { "swWhiteHor", 200, 50 },
    { "swBlueHor", 200, 50 },
    { "swRedVer", 100, 100 },
    { "butTolk", 121, 16 },
    { "bankButton", 142, 24 },
    { "labelBoxL", 200, 18 },
    { "labelBoxR", 14, 18 },
    { "iledR0", 15, 11 },
    { "iledR1", 15, 11 },
    { "ledXx", 28, 9 },
    { "ch_dn", 20, 11 },
    { "ch_on", 20, 11 },
    { "ch_off", 20, 11 },
    { "topBar", 1539, 23 },
    { "corvaneSkin", 3010, 888 },
    { "woodPanelLeft", 25, 887 },
    { "woodPanelRight", 25, 887 },
    { "advancedPicEmp", 1000, 444 },
    { "bankSkin", 500, 444 },
    { "libSkin", 500, 444 },
    { "pianoFrame", 1506, 272 },
    { "keyWhiteUp", 40, 240 },
    { "keyWhiteDn", 40, 240 },
    { "keyBlackUp", 26, 156 },
    { "keyBlackDn", 26, 156 },
    { "shadowleftup", 8, 246 },
    { "shadowrightup", 8, 246 },
    { "uOct127", 269, 18 },
    { "modWheelfilmstrip", 1084, 112 },
    { "envBk", 288, 107 },
    { "EnvGlass", 210, 66 },
    { "lcd_pic", 123, 68 },
    { "midiLed", 13, 7 },
    { "rateSlider_up", 200, 18 },
    { "rateSlider_dn", 200, 18 },
    { "glowOnly", 168, 291 },
    { "Screenshadow", 1440, 78 },
    { "TolkSpl", 627, 241 },
    { "aboutTitle", 632, 131 },
    { "aboutLogo", 272, 113 },
    { "Suvbkgrnd", 36, 325 },
    { "suvGridTmb", 25, 43 },
    { "liveGrd", 240, 3 },
};
} // namespace

const IvrResor::Entry* IvrResor::table() { return entries; }
int IvrResor::tableSize() { return (int) std::size (entries); }
