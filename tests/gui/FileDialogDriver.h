#pragma once

// JUCE's own file dialog driven as a user works it: through its window's peer, typing the file's
// path and pressing the dialog's button. Tests that use it set the FileMan's nativeDialogs to false.

#include "EditorHarness.h"

#include <functional>
#include <string>

// The first component of `Type` under `parent` (every desktop window when null) that is `wanted`.
template <typename Type>
Type* find (juce::Component* parent, std::function<bool (Type&)> wanted = [] (Type&) { return true; })
{
    auto& desktop = juce::Desktop::getInstance();
    const int count = parent != nullptr ? parent->getNumChildComponents() : desktop.getNumComponents();
    for (int i = 0; i < count; ++i)
    {
        auto* child = parent != nullptr ? parent->getChildComponent (i) : desktop.getComponent (i);
        if (auto* c = dynamic_cast<Type*> (child); c != nullptr && wanted (*c))
            return c;
        if (auto* found = parent != nullptr ? find<Type> (child, wanted) : nullptr)
            return found;
    }
    return nullptr;
}

inline juce::FileChooserDialogBox* dialog() { return find<juce::FileChooserDialogBox> (nullptr); }

inline juce::TextButton* button (juce::Component* window, const juce::String& text)
{
    return window == nullptr ? nullptr : find<juce::TextButton> (window, [&] (auto& b) { return b.getButtonText() == text; });
}

// A click on `target` through the peer of the window that holds it.
inline void clickThroughPeer (juce::Component& target)
{
    static juce::int64 clock = juce::Time::currentTimeMillis();
    auto* peer = target.getPeer();
    const auto p = peer->getComponent().getLocalPoint (&target, target.getLocalBounds().getCentre()).toFloat();
    for (auto mods : { juce::ModifierKeys(), juce::ModifierKeys (juce::ModifierKeys::leftButtonModifier), juce::ModifierKeys() })
    {
        juce::ModifierKeys::currentModifiers = mods;
        peer->handleMouseEvent (juce::MouseInputSource::InputSourceType::mouse, p, mods,
                                juce::MouseInputSource::defaultPressure, 0.0f, ++clock);
    }
    pump (100);
}

// Types `file` into the open dialog's filename box and presses its button `verb`, then confirms the
// overwrite question when `overwrite` is set. Returns what went wrong, if anything.
inline std::string answer (const juce::File& file, const juce::String& verb, bool overwrite = false)
{
    pumpUntil ([] { return dialog() != nullptr; });
    auto* box = dialog() != nullptr ? find<juce::TextEditor> (dialog(), [] (auto& t) { return ! t.isReadOnly(); }) : nullptr;
    auto* ok = button (dialog(), verb);
    if (box == nullptr || ok == nullptr)
        return "no dialog";
    // The window takes the system's focus only once the server shows it, and on that focus JUCE
    // gives the keys back to what had them last: click until the box keeps them.
    auto* peer = box->getPeer();
    if (! pumpUntil ([&] { peer->grabFocus(); if (! box->hasKeyboardFocus (false)) clickThroughPeer (*box); return box->hasKeyboardFocus (false); }))
        return "the filename box gets no keys";
    peer->handleKeyPress (juce::KeyPress ('a', juce::ModifierKeys::commandModifier, 0));
    for (auto c : file.getFullPathName())
        peer->handleKeyPress (juce::KeyPress ((int) c, {}, c));
    if (box->getText() != file.getFullPathName())
        return "typed " + box->getText().toStdString();
    if (! pumpUntil ([ok] { return ok->isEnabled(); })) // the box's news come by a posted message
        return "button stays disabled";
    clickThroughPeer (*ok);
    if (overwrite)
    {
        pumpUntil ([] { return button (find<juce::AlertWindow> (nullptr), "Overwrite") != nullptr; });
        if (auto* yes = button (find<juce::AlertWindow> (nullptr), "Overwrite"))
            clickThroughPeer (*yes);
    }
    return pumpUntil ([] { return dialog() == nullptr; }) ? "" : "dialog stays open";
}
