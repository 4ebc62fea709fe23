#include "ArtBook.h"

#include "Painters.h"
#include "editor/controls/IvrResor.h"

#include <stdexcept>

namespace
{
using Painter = juce::Image (*) (ArtBook&);

struct Page
{
    const char* name;
    Painter paint;
};

const Page pages[] = {
    { "knobsBig", paintKnobsBig },
    { "rotary", paintRotary },
    { "swRedHor", paintSwRedHor },
    { "swWhiteHor", paintSwWhiteHor },
    { "swBlueHor", paintSwBlueHor },
    { "swRedVer", paintSwRedVer },
    { "butTolk", paintButTolk },
    { "bankButton", paintBankButton },
    { "labelBoxL", paintLabelBoxL },
    { "labelBoxR", paintLabelBoxR },
    { "iledR0", paintIledR0 },
    { "iledR1", paintIledR1 },
    { "ledXx", paintLedXx },
    { "ch_dn", paintChDn },
    { "ch_on", paintChOn },
    { "ch_off", paintChOff },
    { "topBar", paintTopBar },
    { "corvaneSkin", paintCorvaneSkin },
    { "woodPanelLeft", paintWoodPanelLeft },
    { "woodPanelRight", paintWoodPanelRight },
    { "advancedPicEmp", paintAdvancedPicEmp },
    { "bankSkin", paintBankSkin },
    { "libSkin", paintLibSkin },
    { "pianoFrame", paintPianoFrame },
    { "keyWhiteUp", paintKeyWhiteUp },
    { "keyWhiteDn", paintKeyWhiteDn },
    { "keyBlackUp", paintKeyBlackUp },
    { "keyBlackDn", paintKeyBlackDn },
    { "shadowleftup", paintShadowLeftUp },
    { "shadowrightup", paintShadowRightUp },
    { "uOct127", paintUOct127 },
    { "modWheelfilmstrip", paintModWheelFilmstrip },
    { "envBk", paintEnvBk },
    { "EnvGlass", paintEnvGlass },
    { "lcd_pic", paintLcdPic },
    { "midiLed", paintMidiLed },
    { "rateSlider_up", paintRateSliderUp },
    { "rateSlider_dn", paintRateSliderDn },
    { "glowOnly", paintGlowOnly },
    { "Screenshadow", paintScreenShadow },
    { "TolkSpl", paintTolkSpl },
    { "aboutTitle", paintAboutTitle },
    { "aboutLogo", paintAboutLogo },
    { "Suvbkgrnd", paintSuvBkgrnd },
    { "suvGridTmb", paintSuvGridTmb },
    { "liveGrd", paintLiveGrd },
};

const IvrResor::Entry* tableEntry (const juce::String& name)
{
    for (int i = 0; i < IvrResor::tableSize(); ++i)
        if (name == IvrResor::table()[i].name)
            return IvrResor::table() + i;
    return nullptr;
}
} // namespace

const juce::Image& ArtBook::get (const juce::String& name)
{
    if (auto found = drawn.find (name); found != drawn.end())
        return found->second;

    const auto* entry = tableEntry (name);
    if (entry == nullptr)
        throw std::runtime_error ("not in the resource table: " + name.toStdString());

    for (const auto& page : pages)
    {
        if (name != page.name)
            continue;

        auto image = page.paint (*this);
        if (image.getWidth() != entry->width || image.getHeight() != entry->height)
            throw std::runtime_error (name.toStdString() + " is drawn at " + std::to_string (image.getWidth()) + "x"
                                      + std::to_string (image.getHeight()) + ", the table wants "
                                      + std::to_string (entry->width) + "x" + std::to_string (entry->height));
        return drawn.emplace (name, image).first->second;
    }

    throw std::runtime_error ("no painter for " + name.toStdString());
}

juce::StringArray ArtBook::names()
{
    juce::StringArray result;
    for (int i = 0; i < IvrResor::tableSize(); ++i)
        result.add (IvrResor::table()[i].name);
    return result;
}
