#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <array>

// The on-screen keys: 11 octaves laid out, 44 of them in view (indices 5 to 48). Key k plays the
// note keyBase + k. A press or a drag puts keys down and broadcasts action 111 for each new one;
// they all stay down, a glissando with the sustain held, until the button comes up, which
// broadcasts action 112. MainComp does the sending and lifts the keys. Notes played elsewhere
// show through NoteON_Rec and NoteOFF_Rec, which send nothing.
class PianoPad : public juce::Component,
                 public juce::ChangeBroadcaster
{
public:
    PianoPad();
    ~PianoPad() override;

    static constexpr int numKeys = 132;
    static constexpr int numStates = 128;
    static constexpr int firstVisible = 5;
    static constexpr int lastVisible = 48;

    static constexpr int actionNoteOn = 111;
    static constexpr int actionAllOff = 112;

    void setDesignRect (float x, float y, float width, float height);
    // Sizes of the keys and their places at scale s (each truncated), then the bounds.
    void ScaleMe (float s);

    // The key under a point of the component, or -1: the upper zone knows the black keys, the
    // lower zone only the white ones.
    int FindKey (int x, int y) const;

    void NoteON (int key);
    void NoteON_Rec (int key, int velocity);
    void NoteOFF_Rec (int key);

    bool isDown (int key) const { return juce::isPositiveAndBelow (key, numStates) && keyState[(size_t) key] != 0; }
    bool anyDown() const;
    void repaintKey (int key);
    juce::Rectangle<int> keyBounds (int key) const;

    void mouseDown (const juce::MouseEvent& e) override;
    void mouseDrag (const juce::MouseEvent& e) override;
    void mouseUp (const juce::MouseEvent& e) override;
    void paint (juce::Graphics& g) override;

    // 0 for up, else the velocity it went down with.
    std::array<int, numStates> keyState {};
    int action = 0;
    int lastKey = -1;
    int lastVelocity = 0;
    juce::Rectangle<float> designRect;

    // Per key: place and size at scale 1 and at the present scale.
    std::array<int, numKeys> designX {}, designY {}, designW {}, designH {};
    std::array<int, numKeys> keyX {}, keyY {}, keyW {}, keyH {};
    std::array<bool, numKeys> black {};
    int whiteWidth = 40, whiteHeight = 240, blackWidth = 26, blackHeight = 156;
    float scale = 1.0f;

    juce::Image keyWhiteUp, keyWhiteDn, keyBlackUp, keyBlackDn, shadowleftup, shadowrightup;

private:
    void playAt (juce::Point<int> p);
    void paintKey (juce::Graphics& g, int key) const;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (PianoPad)
};
