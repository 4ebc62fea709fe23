#include "device/MidiCntrState.h"

#include "plugin/HandlerComp.h"

void MidiCntrState::SetAutoParam()
{
    autoParamA.clearQuick();
    paramMax.clearQuick();
    autoParamB.clearQuick();

    // Top value of each host parameter.
    for (int i = 0; i <= 28; ++i)
        paramMax.add (255);
    for (int top : { 3, 5, 5, 3, 5, 5, 3, 5, 5, 5 })
        paramMax.add ((juce::uint16) top);
    for (int i = 39; i <= 51; ++i)
        paramMax.add (1);
    for (int i = 52; i <= 555; ++i)
        paramMax.add (127);
    paramMax.set (89, 6);
    paramMax.set (313, 16363); // not 16383: a wheel at its top reads a little above 1.0

    // Display code of each sound parameter as the host shows it.
    for (int i = 0; i <= 28; ++i)
        autoParamB.add (17);
    for (int code : { 46, 47, 48, 49, 47, 48, 49, 53, 53, 53, 58, 58, 56, 59, 58, 58, 58, 58, 58, 65, 66, 67, 68,
                      222, 222, 222, 222 })
        autoParamB.add ((juce::uint16) code);
    // Applied to host indices, not to the four centred sound parameters: the texts the host
    // shows depend on it, and they stay.
    for (int index : { 21, 22, 26, 34 })
        autoParamB.set (index, 18);

    soundToHost.clearQuick();
    hostToSound.clearQuick();
    soundToHost.insertMultiple (0, 0, 1000);
    hostToSound.insertMultiple (0, 0, 1000);
    for (int i = 0; i < 500; ++i)
    {
        hostToSound.set (i, (juce::uint16) (i + 17));
        soundToHost.set (i + 17, (juce::uint16) i);
    }

    autoParamA.insertMultiple (0, 0, 500);
}

float MidiCntrState::normalisedFor (int hostIndex, int value) const
{
    const int top = (juce::int16) paramMax[hostIndex];
    return top < 1 ? 0.0f : (float) value / (float) top;
}

void MidiCntrState::SendVST3_Message (const juce::MidiMessage& message)
{
    if (message.isNoteOnOrOff())
    {
        const juce::ScopedLock sl (lock);
        const auto now = (int) juce::Time::getMillisecondCounter();
        hostMidi.addEvent (message, now);
        // Stale notes do not pile up while the audio stands still.
        hostMidi.clear (0, now - 500);
        return;
    }

    if (handler == nullptr)
        return;

    if (message.isAftertouch())
    {
        const int index = 185 + message.getNoteNumber();
        handler->SendParam (index, normalisedFor (index, message.getAfterTouchValue()));
    }
    else if (message.isController())
    {
        const int index = 57 + message.getControllerNumber();
        handler->SendParam (index, normalisedFor (index, message.getControllerValue()));
    }
    else if (message.isProgramChange())
    {
        handler->SendParam (56, normalisedFor (56, message.getProgramChangeNumber()));
    }
    else if (message.isChannelPressure())
    {
        handler->SendParam (314, normalisedFor (314, message.getChannelPressureValue()));
    }
    else if (message.isPitchWheel())
    {
        handler->SendParam (313, normalisedFor (313, message.getPitchWheelValue()));
    }
}
