#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include "device/LockFreeQueue.h"

// Carries parameter moves that come from the instrument to the host. The MIDI thread queues them
// and broadcasts; the processor, listening on the message thread, tells the host. Never shown.
class HandlerComp : public juce::Component,
                    public juce::ChangeBroadcaster
{
public:
    struct PendingParam
    {
        int index = -1;
        float value = 0.0f;
    };

    HandlerComp() = default;

    // Queues one move and wakes the message thread. Never blocks.
    void SendParam (int hostIndex, float normalised);

    // Takes the oldest queued move; false when none waits.
    bool nextPending (PendingParam& param) { return pending.pop (param); }

private:
    LockFreeQueue<PendingParam> pending { 1u << 14 };

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (HandlerComp)
};
