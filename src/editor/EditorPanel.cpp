#include "editor/EditorPanel.h"

#include "editor/controls/IvrResor.h"

EditorPanel::EditorPanel()
{
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);
    setOpaque (true);

    skin = IvrResor::get ("corvaneSkin");
    woodLeft = IvrResor::get ("woodPanelLeft");
    woodRight = IvrResor::get ("woodPanelRight");
}

EditorPanel::~EditorPanel() = default;

void EditorPanel::paint (juce::Graphics& g)
{
    const float density = g.getInternalContext().getPhysicalPixelScaleFactor();
    if (density != faceDensity || face.getWidth() != juce::roundToInt (getWidth() * density)
        || face.getHeight() != juce::roundToInt (getHeight() * density))
        renderFace (density);

    if (face.isValid())
        g.drawImage (face, getLocalBounds().toFloat());
}

void EditorPanel::renderFace (float density)
{
    face = {};
    faceDensity = density;
    const int w = juce::roundToInt (getWidth() * density), h = juce::roundToInt (getHeight() * density);
    if (w <= 0 || h <= 0)
        return;

    face = juce::Image (juce::Image::RGB, w, h, true);
    juce::Graphics g (face);
    const float s = scale * density;
    g.fillAll (juce::Colour (0xff1c1d20));

    // The picture is stored at twice the design size, so that it stays sharp on 2x screens.
    g.setImageResamplingQuality (juce::Graphics::highResamplingQuality);
    if (skin.isValid())
        g.drawImage (skin, { 0.0f, 0.0f, designWidth * s, designHeight * s });
    if (woodLeft.isValid())
        g.drawImage (woodLeft, { 0.0f, 0.0f, 12.5f * s, 443.5f * s });
    if (woodRight.isValid())
        g.drawImage (woodRight, { 1492.0f * s, 0.0f, 12.5f * s, 443.5f * s });
}

void EditorPanel::ScaleMe (float s)
{
    if (s != scale)
        face = {};
    scale = s;

    for (int i = 17; i < numControls; ++i)
        controls[i]->setScale (s);
    fineTune.setScale (s);

    lcd.setBounds ((int) (703 * s), (int) (62 * s), (int) (123 * s), (int) (68 * s));
    lcd.setScale (s);
    lcd.repaint();

    midiLed.setTopLeftPosition ((int) (864 * s), (int) (93 * s));

    touchSurface.ScaleMe (s);

    // The caption row keeps its width of 241 and the cells their step at every scale.
    touchCaptions.setBounds ((int) (647 * s), (int) (406 * s), 241, (int) (14 * s));
    touchCaptions.setScale (s);
}
