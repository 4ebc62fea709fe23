// Designs the eight factory sets and writes them as .tkr images.
//
//   make-factory-sets OUTDIR          write the eight files into OUTDIR
//   make-factory-sets --check DIR     regenerate in memory and compare with DIR
//
// The output is a pure function of this file: a fixed-seed generator drives
// the variations, so the committed images can be reproduced byte for byte.

#include "sound/AutoBank.h"
#include "sound/TolkCorvaneBanks.h"

#include <array>
#include <cstdio>
#include <set>
#include <string>
#include <vector>

namespace
{
// splitmix64: fixed and portable, unlike the standard distributions.
struct Rng
{
    unsigned long long state;
    unsigned long long next()
    {
        auto z = (state += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return z ^ (z >> 31);
    }
    int range (int lo, int hi) { return lo + (int) (next() % (unsigned long long) (hi - lo + 1)); }
};

enum Param
{
    lfoRate = 17, glideRate, modWheelAmt, pedalAmt, osc2Freq, osc3Freq, osc1Wave, osc2Wave, osc3Wave,
    filterSpacing, extAudio, osc1Level, osc2Level, osc3Level, noiseLevel, cutoff, resonance, filterEnvAmt,
    filterKbAmt, headphone, fAttack, fDecay, fSustain, fRelease, vAttack, vDecay, vSustain, vRelease, masterVolume,
    lfoSync, wheelSrc, wheelDst, wheelShaping, pedalSrc, pedalDst, pedalShaping, oct1, oct2, oct3, sync12, fm31,
    osc3KbCtrl, osc3LoFreq, extOn, osc1On, osc2On, osc3On, noiseOn, filterMode, envKbGate, releaseOn, glideOn,
    aPole = 74, bPole = 75, kbdMode = 76, clockDivider = 95, ptcbUp = 102, ptcbDn = 103, glideMode = 111,
    category = 150, name = 151
};

struct Program
{
    std::array<int, 200> p {};

    void hi (int index, int value) { p[(size_t) index] = juce::jlimit (0, 255, value) << 8; }
    int hiOf (int index) const { return p[(size_t) index] >> 8; }
    void set (int index, int value) { p[(size_t) index] = value; }
};

// Eight line-one names per category, at most 12 characters each.
const char* const names[32][8] = {
    {},
    { "Synth Piano", "Hammer Keys", "Felt Piano", "Bright Grand", "Toy Piano", "Honky Keys", "Tine Piano", "Soft Upright" },
    { "Drawbar Org", "Church Organ", "Combo Organ", "Reed Organ", "Perc Organ", "Tonewheel", "Pipe Flutes", "Gospel Organ" },
    { "String Pad", "Ensemble", "Solo Cello", "Viola Swell", "Chamber Str", "Orchestra", "Pizzicato", "Tape Strings" },
    { "Funk Clav", "Clavinet", "Pluck Clav", "Wah Clav", "Harpsi Clav", "Mute Clav", "Snap Clav", "Wire Clav" },
    { "Warm Pad", "Glass Pad", "Choir Pad", "Drift Pad", "Dawn Pad", "Velvet Pad", "Haze Pad", "Space Pad" },
    { "Flute Lead", "Sine Lead", "Mellow Lead", "Whistle", "Ocarina", "Soft Solo", "Round Lead", "Breath Lead" },
    { "Saw Lead", "Solo Saw", "Laser Lead", "Scream Lead", "Square Lead", "Fifth Lead", "Hero Lead", "Buzz Lead" },
    { "Acid Lead", "Res Sweep", "Wah Lead", "Squelch", "Reso Whistle", "Zap Lead", "Peak Lead", "Vowel Lead" },
    { "Sync Lead", "Sync Sweep", "Hard Sync", "Sync Brass", "Sync Pluck", "Tear Sync", "Sync Keys", "Sync Growl" },
    { "Synth Brass", "Brass Stab", "Fanfare", "Poly Brass", "Brass Swell", "Trumpets", "Section Brs", "Bright Brass" },
    { "French Horn", "Soft Horns", "Tuba", "Horn Swell", "Alp Horn", "Low Horns", "Flugelhorn", "Horn Section" },
    { "Reed Oboe", "Clarinet", "Bassoon", "Harmonica", "Accordion", "Bagpipe", "Kalimba", "Marimba" },
    { "Slow Bloom", "Unfolding", "Tidal Sweep", "Morphing", "Long Rise", "Opening Sky", "Evolver", "Drift Scape" },
    { "Pulse Motion", "Wobble", "Throb", "Tremolo Pad", "Flutter", "Rotary Move", "Swell Pulse", "Undulate" },
    { "Fifths", "Fourths", "Octave Stack", "Power Fifth", "Minor Third", "Major Third", "Stacked 5th", "Organ Fifth" },
    { "Poly Synth", "Mono Synth", "Synth Keys", "Unison Saw", "Soft Synth", "Hoover", "Chord Synth", "Stab Synth" },
    { "Vox Ahh", "Vox Ooh", "Formant Vox", "Choir Ooh", "Talk Box", "Human Vox", "Vowel Pad", "Whisper Vox" },
    { "Tubular Bell", "Glass Bell", "FM Bell", "Chime", "Music Box", "Gamelan", "Bell Pad", "Crystal" },
    { "Seq Pluck", "Arp Bass", "Step Seq", "Clock Pulse", "Gated Seq", "Seq Blip", "Pulse Train", "Seq Stab" },
    { "Synth Kick", "Snare Hit", "Tom Drum", "Hi Hat", "Clap Noise", "Cowbell", "Rim Shot", "Tabla" },
    { "Seventies", "Old School", "Vintage Lead", "Analog Brass", "Retro Keys", "Prog Lead", "Studio 78", "Tape Era" },
    { "Classic Bass", "Classic Lead", "Classic Pad", "Classic Brs", "Taurus Pedal", "Solo Classic", "Classic Sync", "Classic Keys" },
    { "Basic Saw", "Basic Square", "Basic Tri", "Init Voice", "Plain Pulse", "Test Tone", "Raw Osc", "Simple Synth" },
    { "Overtones", "Harmonic Org", "Partials", "Octaves", "Flageolet", "Harmonic Pad", "Spectra", "Drawbars" },
    { "Ring Mod", "Metal Ring", "Clang", "Ring Bell", "Robot Voice", "Cross Mod", "Tin Can", "Ring Lead" },
    { "Wind", "Surf", "Rain", "Steam", "White Noise", "Noise Sweep", "Breath", "Static" },
    { "Round Bass", "Soft Bass", "Finger Bass", "Warm Bass", "Mellow Bass", "Deep Bass", "Felt Bass", "Upright" },
    { "Saw Bass", "Punch Bass", "Pick Bass", "Edge Bass", "Funk Bass", "Slap Synth", "Bright Bass", "Growl Bass" },
    { "Acid Bass", "Reso Bass", "Squelch Bass", "Wah Bass", "Rubber Bass", "Quack Bass", "Zap Bass", "Peak Bass" },
    { "Sub Bass", "Sub Sine", "Deep Sub", "Low Rumble", "Sub Drop", "Floor Bass", "Pedal Sub", "Sub Octave" },
    { "Laser Zap", "Siren", "Sci Fi", "UFO", "Thunder", "Bubbles", "Alarm", "Sweep FX" },
};

// The common voice: one saw-ish oscillator through a four-pole lowpass.
// Octave positions count down in pitch: 2 is the normal footage, 3 and up
// are lower, 1 and 0 higher.
Program basePatch (const juce::Array<unsigned short>& initial)
{
    Program v;
    for (int i = 0; i < 200; ++i)
        v.p[(size_t) i] = initial[i];
    v.hi (lfoRate, 90); v.hi (glideRate, 60); v.hi (modWheelAmt, 60); v.hi (pedalAmt, 0);
    v.hi (osc2Freq, 128); v.hi (osc3Freq, 128);
    v.hi (osc1Wave, 40); v.hi (osc2Wave, 40); v.hi (osc3Wave, 40);
    v.hi (filterSpacing, 128); v.hi (extAudio, 0);
    v.hi (osc1Level, 200); v.hi (osc2Level, 0); v.hi (osc3Level, 0); v.hi (noiseLevel, 0);
    v.hi (cutoff, 140); v.hi (resonance, 20); v.hi (filterEnvAmt, 170); v.hi (filterKbAmt, 128);
    v.hi (headphone, 128);
    v.hi (fAttack, 0); v.hi (fDecay, 110); v.hi (fSustain, 120); v.hi (fRelease, 70);
    v.hi (vAttack, 0); v.hi (vDecay, 100); v.hi (vSustain, 220); v.hi (vRelease, 70);
    v.hi (masterVolume, 200);
    v.set (lfoSync, 0); v.set (wheelSrc, 2); v.set (wheelDst, 4); v.set (wheelShaping, 0);
    v.set (pedalSrc, 2); v.set (pedalDst, 4); v.set (pedalShaping, 0);
    v.set (oct1, 2); v.set (oct2, 2); v.set (oct3, 2);
    v.set (sync12, 0); v.set (fm31, 0); v.set (osc3KbCtrl, 0); v.set (osc3LoFreq, 0);
    v.set (extOn, 0); v.set (osc1On, 1); v.set (osc2On, 0); v.set (osc3On, 0); v.set (noiseOn, 0);
    v.set (filterMode, 0); v.set (envKbGate, 0); v.set (releaseOn, 1); v.set (glideOn, 0);
    v.set (aPole, 3); v.set (bPole, 3); v.set (kbdMode, 2);
    v.set (ptcbUp, 1); v.set (ptcbDn, 1); v.set (glideMode, 0);
    v.set (110, 64); // keeps the lower limit of shape 2 at its centre
    return v;
}

void twoOscs (Program& v, int detune, int level2)
{
    v.set (osc2On, 1);
    v.hi (osc2Level, level2);
    v.hi (osc2Freq, 128 + detune);
}

void envelopes (Program& v, int fa, int fd, int fs, int fr, int va, int vd, int vs, int vr)
{
    v.hi (fAttack, fa); v.hi (fDecay, fd); v.hi (fSustain, fs); v.hi (fRelease, fr);
    v.hi (vAttack, va); v.hi (vDecay, vd); v.hi (vSustain, vs); v.hi (vRelease, vr);
}

// The archetype of each category.
void shape (Program& v, int cat, Rng& rng)
{
    const int d = rng.range (1, 4); // detune
    switch (cat)
    {
        case 1: twoOscs (v, d, 150); envelopes (v, 0, 120, 50, 80, 0, 150, 40, 90); v.hi (cutoff, 100); v.hi (filterEnvAmt, 190); break;
        case 2: twoOscs (v, 0, 180); v.set (osc3On, 1); v.hi (osc3Level, 160); v.set (oct2, 1); v.set (oct3, 0);
                v.hi (osc1Wave, 0); v.hi (osc2Wave, 0); v.hi (osc3Wave, 0);
                envelopes (v, 0, 0, 255, 20, 0, 0, 255, 20); v.hi (cutoff, 170); v.hi (filterEnvAmt, 128); break;
        case 3: twoOscs (v, d + 2, 190); envelopes (v, 90, 150, 200, 140, 110, 150, 220, 140); v.hi (cutoff, 120);
                v.hi (lfoRate, 70); v.hi (filterEnvAmt, 150); break;
        case 4: v.hi (osc1Wave, 200); envelopes (v, 0, 60, 30, 30, 0, 80, 60, 30); v.hi (cutoff, 110); v.hi (resonance, 100);
                v.hi (filterEnvAmt, 200); v.set (filterMode, 1); break;
        case 5: twoOscs (v, d + 3, 200); v.set (osc3On, 1); v.hi (osc3Level, 120); v.hi (osc3Freq, 128 - d);
                envelopes (v, 160, 180, 180, 180, 170, 180, 230, 190); v.hi (cutoff, 110); v.hi (lfoRate, 50); break;
        case 6: v.hi (osc1Wave, 0); envelopes (v, 10, 90, 160, 80, 20, 90, 230, 80); v.hi (cutoff, 100);
                v.set (glideOn, 1); v.hi (glideRate, 70); v.set (kbdMode, 2); break;
        case 7: twoOscs (v, d, 200); envelopes (v, 0, 110, 180, 70, 0, 90, 240, 70); v.hi (cutoff, 200); v.hi (resonance, 60); break;
        case 8: envelopes (v, 0, 140, 80, 80, 0, 90, 240, 70); v.hi (cutoff, 90); v.hi (resonance, 200); v.hi (filterEnvAmt, 210); break;
        case 9: twoOscs (v, 0, 220); v.set (sync12, 1); v.hi (osc2Freq, 128 + 12 + d * 3); v.set (osc1On, 0);
                envelopes (v, 0, 120, 150, 70, 0, 90, 240, 60); v.hi (cutoff, 180); break;
        case 10: twoOscs (v, d, 210); envelopes (v, 40, 130, 160, 90, 20, 100, 220, 90); v.hi (cutoff, 90); v.hi (filterEnvAmt, 200); break;
        case 11: twoOscs (v, d, 150); v.hi (osc1Wave, 10); envelopes (v, 70, 140, 140, 110, 60, 100, 210, 110);
                 v.hi (cutoff, 70); v.hi (filterEnvAmt, 180); break;
        case 12: v.hi (osc1Wave, 170); envelopes (v, 30, 100, 150, 60, 25, 90, 220, 60); v.hi (cutoff, 105); v.hi (resonance, 70);
                 v.set (noiseOn, 1); v.hi (noiseLevel, 30); break;
        case 13: twoOscs (v, d + 2, 180); envelopes (v, 230, 240, 160, 200, 180, 200, 220, 210); v.hi (cutoff, 60);
                 v.hi (filterEnvAmt, 220); v.hi (lfoRate, 30); break;
        case 14: twoOscs (v, d, 180); envelopes (v, 40, 120, 200, 120, 40, 120, 230, 120); v.hi (lfoRate, 150);
                 v.set (wheelDst, 4); v.hi (modWheelAmt, 180); v.set (lfoSync, 3); break;
        case 15: twoOscs (v, 7, 190); envelopes (v, 0, 110, 170, 80, 0, 100, 230, 80); v.hi (cutoff, 150); break;
        case 16: twoOscs (v, d, 190); envelopes (v, 5, 120, 140, 90, 5, 110, 220, 90); v.hi (cutoff, 140); break;
        case 17: twoOscs (v, d, 160); v.set (filterMode, 1); v.hi (filterSpacing, 170); v.hi (resonance, 150);
                 envelopes (v, 80, 120, 200, 120, 90, 120, 230, 130); v.hi (cutoff, 120); break;
        case 18: v.set (osc3On, 1); v.hi (osc3Level, 0); v.set (fm31, 1); v.set (osc3KbCtrl, 0); v.hi (osc3Freq, 128 + 19);
                 v.hi (osc1Wave, 0); envelopes (v, 0, 200, 0, 180, 0, 210, 0, 200); v.hi (cutoff, 190); break;
        case 19: envelopes (v, 0, 60, 0, 30, 0, 70, 0, 40); v.hi (cutoff, 100); v.hi (resonance, 110); v.hi (filterEnvAmt, 200);
                 v.set (lfoSync, 2); v.set (clockDivider, 12 * rng.range (1, 4)); break;
        case 20: v.set (osc1On, 0); v.set (noiseOn, 1); v.hi (noiseLevel, 200); envelopes (v, 0, 40, 0, 20, 0, 45, 0, 25);
                 v.hi (cutoff, 150); v.hi (filterEnvAmt, 220); break;
        case 21: twoOscs (v, d, 200); v.set (osc3On, 1); v.hi (osc3Level, 180); v.hi (osc3Freq, 128 - d);
                 envelopes (v, 10, 130, 130, 90, 0, 110, 220, 80); v.hi (cutoff, 120); v.hi (resonance, 50); break;
        case 22: twoOscs (v, d, 210); v.set (oct2, 3); envelopes (v, 0, 120, 110, 80, 0, 100, 230, 80); v.hi (cutoff, 115); v.hi (resonance, 45); break;
        case 23: break;
        case 24: twoOscs (v, 0, 150); v.set (osc3On, 1); v.hi (osc3Level, 110); v.set (oct2, 1); v.set (oct3, 0);
                 v.hi (osc2Freq, 128 + 7); envelopes (v, 20, 120, 200, 100, 20, 110, 230, 110); v.hi (cutoff, 160); break;
        case 25: twoOscs (v, 0, 170); v.set (sync12, 1); v.set (fm31, 1); v.set (osc3On, 1); v.hi (osc3Freq, 128 + 23);
                 envelopes (v, 0, 150, 60, 120, 0, 160, 80, 120); v.hi (cutoff, 170); break;
        case 26: v.set (osc1On, 0); v.set (noiseOn, 1); v.hi (noiseLevel, 220); envelopes (v, 120, 200, 150, 180, 120, 180, 220, 180);
                 v.hi (cutoff, 90); v.hi (resonance, 120); v.hi (lfoRate, 40); break;
        case 27: v.set (oct1, 3); v.hi (osc1Wave, 0); envelopes (v, 0, 90, 60, 40, 0, 110, 180, 40); v.hi (cutoff, 60);
                 v.hi (filterEnvAmt, 160); v.set (kbdMode, 2); break;
        case 28: twoOscs (v, d, 200); v.set (oct1, 3); v.set (oct2, 3); envelopes (v, 0, 80, 60, 40, 0, 100, 200, 40);
                 v.hi (cutoff, 130); v.hi (resonance, 60); v.hi (filterEnvAmt, 200); break;
        case 29: v.set (oct1, 3); envelopes (v, 0, 100, 40, 40, 0, 110, 200, 40); v.hi (cutoff, 60); v.hi (resonance, 210);
                 v.hi (filterEnvAmt, 215); v.set (glideOn, 1); v.set (glideMode, 1); break;
        case 30: v.set (oct1, 4); v.hi (osc1Wave, 0); v.set (osc3On, 1); v.hi (osc3Level, 150); v.set (oct3, 5);
                 envelopes (v, 0, 60, 200, 40, 0, 60, 240, 40); v.hi (cutoff, 50); v.hi (filterEnvAmt, 135); break;
        case 31: v.set (noiseOn, 1); v.hi (noiseLevel, 120); v.set (fm31, 1); v.set (osc3On, 1); v.hi (osc3Freq, 128 - 30);
                 v.set (osc3LoFreq, 1); envelopes (v, 0, 220, 80, 200, 0, 200, 160, 200); v.hi (lfoRate, 200);
                 v.hi (modWheelAmt, 255); v.hi (resonance, 170); break;
        default: break;
    }
}

// A variation: a brightness and a character, each nudging the archetype and
// naming it on the second line.
struct Flavour
{
    const char* word;
    int attack, release, res, detune, glide;
};
const Flavour flavours[] = {
    { "Soft", 40, 20, -10, 0, 0 },  { "Punchy", -60, -20, 10, 0, 0 }, { "Slow", 90, 60, 0, 0, 0 },
    { "Long", 0, 100, 0, 0, 0 },    { "Wide", 10, 30, 0, 5, 0 },     { "Glide", 0, 0, 0, 0, 1 },
    { "Tight", -40, -50, 20, 0, 0 }, { "Deep", 20, 40, 30, 2, 0 },
};
struct Tone
{
    const char* word;
    int cutoffShift;
};
const Tone tones[] = { { "Dark", -40 }, { "Warm", -15 }, { "Clear", 20 }, { "Edgy", 45 } };

juce::String fit (juce::String s)
{
    return s.substring (0, 12).paddedRight (' ', 12);
}

bool glides (int cat)
{
    return (cat >= 6 && cat <= 9) || cat == 16 || cat == 22 || (cat >= 27 && cat <= 30);
}

Program designProgram (const Program& base, int cat, int slot, Rng& rng, int toneBias, std::set<juce::String>& used)
{
    Program v = base;
    shape (v, cat, rng);

    // Pick a character and a brightness; when that name is taken, walk on to
    // the next combination so every name stays distinct and still tells the
    // truth about the sound.
    const auto line1 = fit (names[cat][slot % 8]);
    const auto start = rng.range (0, 31);
    const Flavour* fl = nullptr;
    const Tone* tone = nullptr;
    juce::String full;
    for (int k = 0; k < 32 && fl == nullptr; ++k)
    {
        const auto combo = (start + k) % 32;
        const auto& f = flavours[combo / 4];
        if (f.glide != 0 && ! glides (cat))
            continue;
        const auto& t = tones[juce::jlimit (0, 3, combo % 4 + toneBias)];
        const auto candidate = line1 + fit (juce::String (f.word) + " " + t.word);
        if (used.count (candidate) == 0)
        {
            fl = &f;
            tone = &t;
            full = candidate;
        }
    }
    for (int n = 2; fl == nullptr; ++n)
    {
        const auto candidate = line1 + fit ("Variant " + juce::String (n));
        if (used.count (candidate) == 0)
        {
            fl = &flavours[0];
            tone = &tones[1];
            full = candidate;
        }
    }
    used.insert (full);

    v.hi (cutoff, v.hiOf (cutoff) + tone->cutoffShift + rng.range (-6, 6));
    v.hi (fAttack, v.hiOf (fAttack) + fl->attack);
    v.hi (vAttack, v.hiOf (vAttack) + fl->attack);
    v.hi (fRelease, v.hiOf (fRelease) + fl->release);
    v.hi (vRelease, v.hiOf (vRelease) + fl->release);
    v.hi (resonance, v.hiOf (resonance) + fl->res);
    if (v.p[osc2On] != 0 && fl->detune != 0 && cat != 9 && cat != 15)
        v.hi (osc2Freq, v.hiOf (osc2Freq) + fl->detune);
    if (fl->glide != 0)
    {
        v.set (glideOn, 1);
        v.hi (glideRate, rng.range (50, 140));
    }
    // a little fine resolution in the continuous values, as a hardware dump has
    for (int i = lfoRate; i <= masterVolume; ++i)
        v.p[(size_t) i] |= rng.range (0, 15) << 4;
    v.set (category, cat);
    for (int i = 0; i < 24; ++i)
        v.set (name + i, (int) full[i]);
    return v;
}

// Category weights of a set's banks (index = category), turned into 128
// slots grouped by category.
std::vector<int> bankLayout (const std::array<int, 32>& weights)
{
    int total = 0;
    for (auto w : weights)
        total += w;
    std::vector<int> counts (32), order;
    int given = 0;
    std::vector<std::pair<int, int>> remainders;
    for (int c = 1; c < 32; ++c)
    {
        counts[(size_t) c] = weights[(size_t) c] * 128 / total;
        given += counts[(size_t) c];
        remainders.push_back ({ -(weights[(size_t) c] * 128 % total), c });
    }
    std::sort (remainders.begin(), remainders.end());
    for (size_t i = 0; given < 128; ++i, ++given)
        ++counts[(size_t) remainders[i % remainders.size()].second];
    for (int c = 1; c < 32; ++c)
        for (int k = 0; k < counts[(size_t) c]; ++k)
            order.push_back (c);
    return order;
}

struct SetDesign
{
    const char* file;
    int banks;
    int toneBias;
    std::array<int, 32> weights;
};

std::array<int, 32> weightsWith (std::initializer_list<std::pair<int, int>> extra)
{
    std::array<int, 32> w {};
    for (int c = 1; c < 32; ++c)
        w[(size_t) c] = 3;
    for (auto [c, add] : extra)
        w[(size_t) c] += add;
    return w;
}

void appendRecord (juce::MemoryBlock& out, const Program& v, int programNumber)
{
    juce::Array<unsigned short> words;
    for (auto x : v.p)
        words.add ((unsigned short) x);
    auto packed = AutoBank::Pack_Patch_Tolk (words);
    const unsigned char head[5] = { 0x04, 0x01, 0x00, 0x03, (unsigned char) programNumber };
    out.append (head, 5);
    out.append (packed.getData(), (size_t) AutoBank::packedBytes);
    const unsigned char tail = 0;
    out.append (&tail, 1);
}

std::vector<std::pair<juce::String, juce::MemoryBlock>> makeSets()
{
    const std::array<SetDesign, 8> designs = { {
        { "CoreRefresh.tkr", 7, 0, weightsWith ({ { 27, 3 }, { 28, 3 }, { 29, 3 }, { 30, 2 }, { 5, 4 }, { 7, 3 }, { 6, 2 }, { 10, 2 } }) },
        { "AmberSet.tkr", 1, -1, weightsWith ({ { 21, 4 }, { 22, 4 }, { 27, 3 }, { 10, 2 }, { 3, 2 } }) },
        { "CobaltSet.tkr", 1, 1, weightsWith ({ { 7, 4 }, { 8, 3 }, { 9, 3 }, { 25, 2 }, { 28, 3 } }) },
        { "VellumSet.tkr", 1, -1, weightsWith ({ { 5, 6 }, { 3, 4 }, { 13, 4 }, { 17, 3 }, { 14, 2 } }) },
        { "RidgeSet.tkr", 1, 1, weightsWith ({ { 28, 4 }, { 29, 4 }, { 30, 3 }, { 8, 3 }, { 19, 3 } }) },
        { "MarqueSet.tkr", 1, 0, weightsWith ({ { 1, 3 }, { 2, 3 }, { 4, 3 }, { 10, 3 }, { 12, 3 } }) },
        { "Heron25.tkr", 1, 0, weightsWith ({ { 16, 3 }, { 24, 2 }, { 18, 2 }, { 26, 2 }, { 31, 2 } }) },
        { "Ibis25.tkr", 1, 0, weightsWith ({ { 15, 3 }, { 20, 2 }, { 23, 1 }, { 5, 2 }, { 6, 2 } }) },
    } };

    TolkCorvaneBanks factory;
    auto initialPacked = factory.Initial_Program();
    juce::Array<unsigned short> initialWords;
    AutoBank::UnPack_Patch_Tolk (initialPacked, initialWords);
    const auto base = basePatch (initialWords);

    std::set<juce::String> used;
    Rng rng { 0x436F7276616E65ull };
    std::vector<std::pair<juce::String, juce::MemoryBlock>> sets;
    for (size_t s = 0; s < designs.size(); ++s)
    {
        const auto& design = designs[s];
        const auto layout = bankLayout (design.weights);
        juce::MemoryBlock out;
        juce::StringArray firstBankNames;
        for (int bank = 0; bank < design.banks; ++bank)
        {
            std::vector<int> slotOfCategory (32);
            for (int program = 0; program < 128; ++program)
            {
                const auto cat = layout[(size_t) program];
                const auto slot = slotOfCategory[(size_t) cat]++ + bank * 3 + (int) s;
                const auto v = designProgram (base, cat, slot, rng, design.toneBias, used);
                appendRecord (out, v, program);
                if (bank == 0)
                {
                    juce::String n;
                    for (int i = 0; i < 24; ++i)
                        n << juce::String::charToString ((juce::juce_wchar) v.p[(size_t) (name + i)]);
                    firstBankNames.add (n);
                }
            }
        }
        // The set with seven banks but one designed bank fills the rest with
        // framed copies of the initial program, as the hardware's own set does.
        if (s == 4)
        {
            for (int i = 0; i < 768; ++i)
            {
                const unsigned char head[5] = { 0xF0, 0x04, 0x01, 0x00, 0x02 };
                out.append (head, 5);
                out.append (initialPacked.getRawDataPointer(), (size_t) AutoBank::packedBytes);
                const unsigned char end = 0xF7;
                out.append (&end, 1);
            }
        }
        for (auto& n : firstBankNames)
            out.append (n.toRawUTF8(), 24);
        sets.push_back ({ design.file, out });
    }
    return sets;
}
} // namespace

int main (int argc, char** argv)
{
    const bool check = argc == 3 && std::string (argv[1]) == "--check";
    if (! (argc == 2 || check))
    {
        std::fprintf (stderr, "usage: make-factory-sets OUTDIR | --check DIR\n");
        return 2;
    }
    const juce::File dir (juce::File::getCurrentWorkingDirectory().getChildFile (argv[check ? 2 : 1]));
    int failures = 0;
    for (auto& [file, data] : makeSets())
    {
        const auto target = dir.getChildFile (file);
        if (check)
        {
            juce::MemoryBlock onDisk;
            if (! target.loadFileAsData (onDisk) || onDisk != data)
            {
                std::fprintf (stderr, "make-factory-sets: %s differs from the generated set\n", target.getFullPathName().toRawUTF8());
                ++failures;
            }
        }
        else if (! target.replaceWithData (data.getData(), data.getSize()))
        {
            std::fprintf (stderr, "make-factory-sets: cannot write %s\n", target.getFullPathName().toRawUTF8());
            return 1;
        }
    }
    if (check && failures == 0)
        std::printf ("make-factory-sets: all 8 sets reproduce byte for byte\n");
    return failures == 0 ? 0 : 1;
}
