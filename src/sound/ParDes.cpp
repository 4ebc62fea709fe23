#include "sound/ParDes.h"

namespace
{
template <size_t N>
juce::String pick (const char* const (&list)[N], int value)
{
    return (value >= 0 && value < (int) N) ? juce::String (list[value]) : juce::String();
}

// The 32 modulation destinations; the routing list (code 98) reuses its first 21 entries.
const char* const destinations[] = {
    "LFO Rate", "Glide Rate", "Mod. Wheel Amt.", "Pedal Amount", "Osc. 1 Octave", "Osc. 1 Waveform",
    "Osc. 2 Frequency", "Osc. 2 Octave", "Osc. 2 Waveform", "Osc. 3 Frequency", "Osc. 3 Octave",
    "Osc. 3 Waveform", "Ext. Audio Level", "Osc. 1 Level", "Osc. 2 Level", "Osc. 3 Level", "Noise Level",
    "Filter Cutoff", "Filter Spacing", "Filter Resonance", "Filter KB Amount", "Filter Attack",
    "Filter Decay", "Filter Sustain", "Filter Release", "Filter ENV Amount", "Volume Attack",
    "Volume Decay", "Volume Sustain", "Volume Release", "Master Volume", "Key Pitch" };

const char* const potSources[] = {
    "Pitch Bend Wheel", "Modulation Wheel", "Pressure (AT)", "Velocity Attack", "Velocity Release",
    "Mod 1 Input", "Mod 2 Input", "Key Pitch", "LFO Rate", "Glide Rate", "Mod. Wheel Amt.", "Pedal Amount",
    "Osc. 1 Octave", "Osc. 1 Waveform", "Osc. 2 Frequency", "Osc. 2 Octave", "Osc. 2 Waveform",
    "Osc. 3 Frequency", "Osc. 3 Octave", "Osc. 3 Waveform", "Ext. Audio Level", "Osc. 1 Level",
    "Osc. 2 Level", "Osc. 3 Level", "Noise Level", "Filter Cutoff", "Filter Spacing", "Filter Resonance",
    "Filter KB Amount", "Filter Attack", "Filter Decay", "Filter Sustain", "Filter Release",
    "Filter ENV Amount", "Volume Attack", "Volume Decay", "Volume Sustain", "Volume Release",
    "Master Volume", "Head Phone Level" };

const char* const busSources[] = {
    "Offset Value", "Pitch Bend Wheel", "Modulation Wheel", "Velocity Release", "Pressure (AT)",
    "Keyboard CV", "Touch Surface X", "Touch Surface Y", "Touch Surface A", "Mod 1 Input", "Mod 2 Input",
    "LFO Rate", "Glide Rate", "Mod. Wheel Amt.", "Pedal Amount", "Osc. 1 Octave", "Osc. 1 Waveform",
    "Osc. 2 Frequency", "Osc. 2 Octave", "Osc. 2 Waveform", "Osc. 3 Frequency", "Osc. 3 Octave",
    "Osc. 3 Waveform", "Ext. Audio Level", "Osc. 1 Level", "Osc. 2 Level", "Osc. 3 Level", "Noise Level",
    "Filter Cutoff", "Filter Spacing", "Filter Resonance", "Filter KB Amount",
    "Filter Attack", "Filter Decay", "Filter Sustain", "Filter Release", "Filter ENV Amount",
    "Volume Attack", "Volume Decay", "Volume Sustain", "Volume Release", "Master Volume ",
    "Head Phone Level" };

const char* const amounts[] = { "OFF", "25%", "50%", "100%" };
const char* const lfoSync[] = { "ENV GATE", "KEYBOARD", "MIDI", "OFF/SYNC" };
// Codes 48 and 53 answer for knob positions 2 to 7 only: the panel's 0 and 1 show nothing.
const char* const wheelDestinations[] = { "", "", "LFO/PGM", "WAVE", "FILTER", "OSC 3", "OSC 2", "PITCH" };
const char* const shapings[] = { "ON / PGM", "PRESSURE", "VELOCITY", "FILTER ENV" };
const char* const octaves[] = { "", "", "1o", "2o", "4o", "8o", "16o", "32o" };
const char* const onOffReversed[] = { "ON", "OFF" };
const char* const offOn[] = { "OFF", "ON" };
const char* const hiLo[] = { "HI", "LO" };
const char* const filterModes[] = { "DUAL LOWPASS", "HIGHPASSLOWPASS" };
const char* const envGates[] = { "KEYBOARD", "ON/EXTERNAL" };
const char* const releases[] = { "RELEASE OFF", "RELEASE ON" };
const char* const glides[] = { "GLIDE OFF", "GLIDE ON" };
const char* const modSources[] = { "NOISE", "Filter ENV", "Volume ENV", "Smoothed S+H", "Oscillator 1",
                                   "Oscillator 2", "Touch Surface X", "Touch Surface Y" };
const char* const modDestinations[] = { "LFO Rate", "Filter Resonance", "Filter Spacing", "Panorama",
                                        "Osc 1 Level", "Osc 2 Level", "Osc 3 Level", "Noise Level" };
const char* const poles[] = { "1 Pole", "2 Pole", "3 Pole", "4 Pole" };
const char* const keyModes[] = { "Lower Key", "Higher Key", "Last Key", "1 Key Only" };
const char* const singleMulti[] = { "SINGLE", "MULTI" };
const char* const directions[] = { "NORMAL", "INVERSE" };
const char* const gateDestinations[] = {
    "No Switch", "Glide Switch", "Release Switch", "OSC 1-2 Sync.", "OSC 3-1 FM", "OSC 3 KB Contr.",
    "OSC 3 Frequency", "Ext. Audio On/Off", "Oscillator 1 On/Off", "Oscillator 2 On/Off",
    "Oscillator 3 On/Off", "Noise Switch", "Filter Mode", "ENV Gate Sw." };
const char* const gateSources[] = { "Env Gate Input", "Touch Gate", "S+H Gate", "MIDI Clock", "Keyb. Gate",
                                    "Gate is ON", "Gate is OFF!" };
const char* const bendIntervals[] = { " OFF", "2 Semitones", "Minor Third", "Major Third", "Fourth", "Fifth",
                                      "Octave", "Oct. + 5th", "2 Octaves", "2 Oct. + 5th", "Pre. - Value" };
const char* const glideModes[] = {
    "1 Normal Glide", "2 Legato Glide", "3 Legato Glide to 2nd only", "4 Legato Glide back to 1st only",
    "5 Legato first note", "6 Mode 4+5 combined", "7 Legato back to 1st-Glide OFF", "8 Legato Glide toggling" };
const char* const noteNames[] = { "C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B" };

juce::String controller (int value, int offValue)
{
    return value == offValue ? juce::String ("OFF") : "Contr. " + juce::String (value);
}
} // namespace

juce::String ParDes::SndParDes (int code, int value)
{
    switch (code)
    {
        case 0:   return pick (potSources, value);
        case 3:
        case 81:  return pick (amounts, value);
        case 16:  return juce::String (value / 256);
        case 18:  return juce::String (value - 128);
        case 21:  return juce::String ((value - 32768) / 256);
        case 46:  return pick (lfoSync, value);
        case 47:  return {};
        case 48:  return pick (wheelDestinations, value);
        case 49:  return pick (shapings, value);
        case 53:  return pick (octaves, value);
        case 56:  return pick (onOffReversed, value);
        case 58:  return pick (offOn, value);
        case 59:  return pick (hiLo, value);
        case 65:  return pick (filterModes, value);
        case 66:  return pick (envGates, value);
        case 67:  return pick (releases, value);
        case 68:  return pick (glides, value);
        case 69:  return pick (modSources, value);
        case 70:  return pick (modDestinations, value);
        case 74:  return pick (poles, value);
        case 76:  return pick (keyModes, value);
        case 77:  return pick (singleMulti, value);
        case 80:  return pick (destinations, value);
        case 82:  return pick (directions, value);
        case 83:  return controller (value, 0);
        case 92:  return pick (gateDestinations, value);
        case 94:  return controller (value, 255);
        case 96:  return pick (gateSources, value);
        case 98:  return pick (busSources, value);
        case 99:  return "Hi: " + juce::String (value - 64);
        case 100: return "Lo: " + juce::String (value - 64);
        case 102: return pick (bendIntervals, value);
        case 107: return value == 0 ? juce::String ("OFF") : juce::String ("ON");
        case 111: return pick (glideModes, value);
        case 777:
        {
            const int n = value + 24;
            if (n < 0)
                return {};
            return juce::String (noteNames[n % 12]) + juce::String (n / 12);
        }
        default:  return juce::String (value);
    }
}
