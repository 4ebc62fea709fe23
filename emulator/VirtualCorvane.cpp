#include "VirtualCorvane.h"

#include "sound/AutoBank.h"

namespace
{
// Controller of the MSB of each continuous parameter 17 to 45; the LSB is 32 above.
constexpr int pairController[29] = { 3, 5, 6, 8, 10, 12, 9, 11, 13, 20, 14, 15, 16, 17, 18,
                                     19, 21, 27, 22, 0, 23, 24, 25, 26, 28, 29, 30, 31, 7 };

int switchController (int soundParam)
{
    if (soundParam == 67)
        return 88;
    if (soundParam == 68)
        return 65;
    return soundParam + 21;
}

int stepOf (int soundParam)
{
    return (soundParam == 46 || soundParam == 49 || soundParam == 52) ? 32 : 16;
}

bool isInverted (int soundParam)
{
    return soundParam == 58 || soundParam == 59;
}

// Upper limit of each parameter that a program holds, by index; 0 where it
// is not part of a program.
int rangeOf (int p)
{
    if (p < 16)
    {
        switch (p % 4)
        {
            case 0: return 39;
            case 3: return 3;
            default: return (p == 1 || p == 6 || p == 10 || p == 14) ? 39 : 1;
        }
    }
    if (p == 16 || p == 104 || (p >= 17 && p <= 45))
        return 65535;
    if (p >= 46 && p <= 55)
        return (p == 46 || p == 49 || p == 52) ? 3 : 5;
    if (p >= 56 && p <= 68)
        return 1;
    static const int advanced[] = { 7, 7, 7, 7, 15, 3, 3, 3, 1, 1, 1, 31, 3, 1, 127, 31, 3, 1, 127, 31, 3, 1, 127, 13, 1, 127,
                                    96, 6, 6, 42, 127, 42, 63, 10, 10, 65535, 127, 1, 1, 1, 127, 126, 7, 1, 1, 1 };
    if (p >= 69 && p <= 114)
        return advanced[p - 69];
    static const int spare[] = { 3, 127, 127, 15, 72, 1 };
    if (p >= 120 && p <= 125)
        return spare[p - 120];
    if (p == 150)
        return 31;
    return 0;
}

void putFrameBody (juce::MemoryBlock& frame, int offset, const VirtualCorvane::Program& words)
{
    auto copy = words;
    const auto packed = AutoBank::Pack_Patch_Tolk (copy);
    frame.copyFrom (packed.getData(), offset, AutoBank::packedBytes);
}

VirtualCorvane::Program unpackBody (const juce::uint8* body, int size)
{
    juce::Array<unsigned char> packed (body, juce::jmin (size, (int) AutoBank::packedBytes));
    VirtualCorvane::Program words;
    words.insertMultiple (0, 0, VirtualCorvane::numParameters);
    AutoBank::UnPack_Patch_Tolk (packed, words);
    return words;
}
} // namespace

VirtualCorvane::VirtualCorvane (int ch, juce::int64 seed)
    : channel (juce::jlimit (1, 16, ch)), random (seed), banks ((size_t) (numBanks * numPrograms))
{
    for (auto& p : banks)
        p.insertMultiple (0, 0, numParameters);
    editBuffer.insertMultiple (0, 0, numParameters);
}

void VirtualCorvane::setOutput (Sink sink)
{
    const juce::ScopedLock sl (lock);
    output = std::move (sink);
}

void VirtualCorvane::setFaults (const Faults& f)
{
    const juce::ScopedLock sl (lock);
    faults = f;
}

int VirtualCorvane::releaseLateReplies()
{
    std::vector<juce::MidiMessage> due;
    {
        const juce::ScopedLock sl (lock);
        due.swap (lateReplies);
    }
    for (auto& m : due)
        emit (m);
    return (int) due.size();
}

void VirtualCorvane::emit (const juce::MidiMessage& message)
{
    Sink sink;
    {
        const juce::ScopedLock sl (lock);
        sink = output;
    }
    if (sink)
        sink (message);
}

void VirtualCorvane::handleIncomingMidiMessage (juce::MidiInput*, const juce::MidiMessage& message)
{
    const auto* data = message.getRawData();
    const int size = message.getRawDataSize();
    if (size <= 0)
        return;

    if (data[0] == 0xF0)
    {
        receiveSysex (data, size);
        return;
    }

    if ((data[0] & 0x0F) + 1 != channel || size < 2)
        return;

    const int kind = data[0] & 0xF0;
    if (kind == 0xB0 && size >= 3)
        receiveController (data[1] & 127, data[2] & 127);
    else if (kind == 0xC0)
        selectProgram (-1, data[1] & 127);
}

void VirtualCorvane::receiveSysex (const juce::uint8* data, int size)
{
    if (size < 6 || data[1] != 0x04 || data[2] != 0x01 || data[size - 1] != 0xF7)
        return;

    const int type = data[4];
    juce::MemoryBlock answer;
    {
        const juce::ScopedLock sl (lock);
        if (type == 0x05 && size == 6)
        {
            answer = editBufferFrame (editBuffer);
        }
        else if (type == 0x06 && size == 7)
        {
            const int p = data[5] & 127;
            answer = programFrame (banks[(size_t) (bank * numPrograms + p)], p);
        }
        else if (type == 0x02 && size == 149)
        {
            editBuffer = unpackBody (data + 5, 143);
        }
        else if (type == 0x03 && size == 154 && data[5] < numPrograms)
        {
            banks[(size_t) (bank * numPrograms + data[5])] = unpackBody (data + 6, 143);
        }
        if (answer.getSize() > 0)
            ++requestsAnswered;
    }

    if (answer.getSize() > 0)
        reply (std::move (answer));
}

void VirtualCorvane::reply (juce::MemoryBlock frame)
{
    bool hold = false;
    {
        const juce::ScopedLock sl (lock);
        if (faults.dropReplies > 0)
        {
            --faults.dropReplies;
            return;
        }
        if (faults.wrongLength)
            frame.removeSection (frame.getSize() - 2, 1);

        auto* bytes = static_cast<juce::uint8*> (frame.getData());
        for (int i = 0; i < faults.garbleBytes; ++i)
            bytes[1 + random.nextInt ((int) frame.getSize() - 2)] = (juce::uint8) random.nextInt (256);
        hold = faults.late;
    }

    const juce::MidiMessage m (frame.getData(), (int) frame.getSize());
    if (hold)
    {
        const juce::ScopedLock sl (lock);
        lateReplies.push_back (m);
        return;
    }
    emit (m);
}

void VirtualCorvane::receiveController (int controller, int value)
{
    const juce::ScopedLock sl (lock);

    if (controller == 0)
        return; // bank select MSB: one bank family only
    if (controller == 32)
    {
        if (value < numBanks)
            bank = value;
        return;
    }

    for (int i = 0; i < 29; ++i)
    {
        if (pairController[i] == 0)
            continue; // Head Phone Amt shares bank select and is not reached by controller
        if (controller == pairController[i])
        {
            pendingParam = 17 + i;
            pendingMsb = value;
            return;
        }
        if (controller == pairController[i] + 32 && pendingParam == 17 + i)
        {
            editBuffer.set (pendingParam, (unsigned short) ((((pendingMsb << 1) | (value >> 6)) & 255) << 8));
            return;
        }
    }

    for (int p = 46; p <= 68; ++p)
    {
        if (switchController (p) != controller)
            continue;
        if (p <= 55)
            editBuffer.set (p, (unsigned short) juce::jmin (value / stepOf (p), rangeOf (p)));
        else
            editBuffer.set (p, (unsigned short) ((value >= 64) != isInverted (p) ? 1 : 0));
        return;
    }
}

void VirtualCorvane::setParameter (int soundParam, int value)
{
    if (soundParam >= 17 && soundParam <= 45)
        editBuffer.set (soundParam, (unsigned short) ((value & 255) << 8));
    else if (soundParam >= 0 && soundParam < numParameters)
        editBuffer.set (soundParam, (unsigned short) value);
}

void VirtualCorvane::movePanel (int soundParam, int value)
{
    std::vector<juce::MidiMessage> out;
    {
        const juce::ScopedLock sl (lock);
        setParameter (soundParam, value);

        if (soundParam >= 17 && soundParam <= 45)
        {
            const int cc = pairController[soundParam - 17];
            out.push_back (juce::MidiMessage::controllerEvent (channel, cc, (value & 255) >> 1));
            out.push_back (juce::MidiMessage::controllerEvent (channel, cc + 32, (value & 1) << 6));
        }
        else if (soundParam >= 46 && soundParam <= 55)
        {
            out.push_back (juce::MidiMessage::controllerEvent (channel, switchController (soundParam), (value * stepOf (soundParam)) & 127));
        }
        else if (soundParam >= 56 && soundParam <= 68)
        {
            const int on = isInverted (soundParam) ? 1 - value : value;
            out.push_back (juce::MidiMessage::controllerEvent (channel, switchController (soundParam), on != 0 ? 127 : 0));
        }
    }
    for (auto& m : out)
        emit (m);
}

void VirtualCorvane::playNote (int note, int velocity)
{
    emit (velocity > 0 ? juce::MidiMessage::noteOn (channel, note & 127, (juce::uint8) juce::jmin (velocity, 127))
                       : juce::MidiMessage::noteOff (channel, note & 127));
}

void VirtualCorvane::selectProgram (int newBank, int newProgram)
{
    if (newProgram < 0 || newProgram >= numPrograms || newBank >= numBanks)
        return;

    const bool fromPanel = newBank >= 0;
    {
        const juce::ScopedLock sl (lock);
        if (fromPanel)
            bank = newBank;
        program = newProgram;
        editBuffer = banks[(size_t) (bank * numPrograms + program)];
    }

    if (fromPanel)
    {
        emit (juce::MidiMessage::controllerEvent (channel, 0, 0));
        emit (juce::MidiMessage::controllerEvent (channel, 32, newBank));
        emit (juce::MidiMessage::programChange (channel, newProgram));
    }
}

VirtualCorvane::Program VirtualCorvane::getProgram (int b, int p) const
{
    const juce::ScopedLock sl (lock);
    if (b < 0 || b >= numBanks || p < 0 || p >= numPrograms)
        return {};
    return banks[(size_t) (b * numPrograms + p)];
}

void VirtualCorvane::setProgram (int b, int p, const Program& words)
{
    const juce::ScopedLock sl (lock);
    if (b < 0 || b >= numBanks || p < 0 || p >= numPrograms)
        return;
    auto& dest = banks[(size_t) (b * numPrograms + p)];
    for (int i = 0; i < numParameters; ++i)
        dest.set (i, words[i]);
}

VirtualCorvane::Program VirtualCorvane::getEditBuffer() const
{
    const juce::ScopedLock sl (lock);
    return editBuffer;
}

void VirtualCorvane::setEditBuffer (const Program& words)
{
    const juce::ScopedLock sl (lock);
    for (int i = 0; i < numParameters; ++i)
        editBuffer.set (i, words[i]);
}

int VirtualCorvane::getBank() const
{
    const juce::ScopedLock sl (lock);
    return bank;
}

int VirtualCorvane::getProgramNumber() const
{
    const juce::ScopedLock sl (lock);
    return program;
}

int VirtualCorvane::getRequestsAnswered() const
{
    const juce::ScopedLock sl (lock);
    return requestsAnswered;
}

VirtualCorvane::Program VirtualCorvane::makeProgram (int b, int p, juce::int64 seed)
{
    juce::Random r (seed * 1000003 + b * 1009 + p);
    Program words;
    words.insertMultiple (0, 0, numParameters);

    for (int i = 0; i <= 150; ++i)
        if (const int top = rangeOf (i); top > 0)
            words.set (i, (unsigned short) r.nextInt (top + 1));

    words.set (73, 15);                                             // the writer fixes it
    words.set (95, (unsigned short) (2 + r.nextInt (95)));          // clock divider 2 to 96
    words.set (110, (unsigned short) (words[110] & ~1));            // the reader moves an odd low bit
    static const unsigned short maskValues[] = { 0, 8, 64, 72 };
    words.set (124, maskValues[r.nextInt (4)]);

    // B-Pole's bit 1 travels in bit 1 of the parameter it names: pick a
    // target that can carry it.
    static const int poles[] = { 0, 1, 3 };
    const int target = poles[r.nextInt (3)];
    words.set (75, (unsigned short) target);
    // Bit 3 of the target would become the top bit of a dump byte: kept clear.
    words.set (target, (unsigned short) ((words[target] & ~10) | (target & 2)));

    const auto name = juce::String::formatted ("%c%03d SEED %lld", 'A' + b, p + 1, (long long) seed).paddedRight (' ', 24);
    for (int i = 0; i < 24; ++i)
        words.set (151 + i, (unsigned short) (name[i] & 127));
    return words;
}

void VirtualCorvane::fillAllBanks (juce::int64 seed)
{
    for (int b = 0; b < numBanks; ++b)
        for (int p = 0; p < numPrograms; ++p)
            setProgram (b, p, makeProgram (b, p, seed));
}

juce::MemoryBlock VirtualCorvane::editBufferFrame (const Program& words)
{
    juce::MemoryBlock frame (149, true);
    auto* b = static_cast<juce::uint8*> (frame.getData());
    b[0] = 0xF0;
    b[1] = 0x04;
    b[2] = 0x01;
    b[4] = 0x02;
    putFrameBody (frame, 5, words);
    b[148] = 0xF7;
    return frame;
}

juce::MemoryBlock VirtualCorvane::programFrame (const Program& words, int p)
{
    juce::MemoryBlock frame (154, true);
    auto* b = static_cast<juce::uint8*> (frame.getData());
    b[0] = 0xF0;
    b[1] = 0x04;
    b[2] = 0x01;
    b[4] = 0x03;
    b[5] = (juce::uint8) (p & 127);
    putFrameBody (frame, 6, words);
    b[153] = 0xF7;
    return frame;
}
