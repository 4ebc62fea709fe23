#pragma once

class MidiCntrState;

// Told that update codes wait in the state's queue. The code itself is not passed: the listener
// drains the queue on its own thread.
class MidiCntrStateListener
{
public:
    virtual ~MidiCntrStateListener() = default;
    virtual void handle_Update (MidiCntrState* state) = 0;
};
