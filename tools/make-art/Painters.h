#pragma once

#include <juce_graphics/juce_graphics.h>

class ArtBook;

// One painter per image of the resource table. Each returns an image of exactly the table's size.

// Knobs (KnobArt.cpp)
juce::Image paintKnobsBig (ArtBook&);
juce::Image paintRotary (ArtBook&);

// Lever switches (SwitchArt.cpp)
juce::Image paintSwRedHor (ArtBook&);
juce::Image paintSwWhiteHor (ArtBook&);
juce::Image paintSwBlueHor (ArtBook&);
juce::Image paintSwRedVer (ArtBook&);

// Buttons, boxes, LEDs and bars (SmallArt.cpp)
juce::Image paintButTolk (ArtBook&);
juce::Image paintBankButton (ArtBook&);
juce::Image paintLabelBoxL (ArtBook&);
juce::Image paintLabelBoxR (ArtBook&);
juce::Image paintIledR0 (ArtBook&);
juce::Image paintIledR1 (ArtBook&);
juce::Image paintLedXx (ArtBook&);
juce::Image paintChDn (ArtBook&);
juce::Image paintChOn (ArtBook&);
juce::Image paintChOff (ArtBook&);
juce::Image paintMidiLed (ArtBook&);
juce::Image paintRateSliderUp (ArtBook&);
juce::Image paintRateSliderDn (ArtBook&);
juce::Image paintSuvBkgrnd (ArtBook&);
juce::Image paintSuvGridTmb (ArtBook&);
juce::Image paintLiveGrd (ArtBook&);

// The front panel (PanelArt.cpp)
juce::Image paintCorvaneSkin (ArtBook&);

// Backgrounds and trim (SurfaceArt.cpp)
juce::Image paintTopBar (ArtBook&);
juce::Image paintWoodPanelLeft (ArtBook&);
juce::Image paintWoodPanelRight (ArtBook&);
juce::Image paintAdvancedPicEmp (ArtBook&);
juce::Image paintBankSkin (ArtBook&);
juce::Image paintLibSkin (ArtBook&);

// Keyboard strip (KeyboardArt.cpp)
juce::Image paintPianoFrame (ArtBook&);
juce::Image paintKeyWhiteUp (ArtBook&);
juce::Image paintKeyWhiteDn (ArtBook&);
juce::Image paintKeyBlackUp (ArtBook&);
juce::Image paintKeyBlackDn (ArtBook&);
juce::Image paintShadowLeftUp (ArtBook&);
juce::Image paintShadowRightUp (ArtBook&);
juce::Image paintUOct127 (ArtBook&);
juce::Image paintModWheelFilmstrip (ArtBook&);
juce::Image paintGlowOnly (ArtBook&);
juce::Image paintScreenShadow (ArtBook&);

// Screens (ScreenArt.cpp)
juce::Image paintEnvBk (ArtBook&);
juce::Image paintEnvGlass (ArtBook&);
juce::Image paintLcdPic (ArtBook&);

// About box (AboutArt.cpp)
juce::Image paintTolkSpl (ArtBook&);
juce::Image paintAboutTitle (ArtBook&);
juce::Image paintAboutLogo (ArtBook&);
