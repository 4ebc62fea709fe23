#pragma once

#include "HostSide.h"
#include "LinkedProcessor.h"
#include "editor/AdvCont.h"
#include "editor/AppBar.h"
#include "editor/EditorPanel.h"
#include "editor/MainComp.h"
#include "plugin/PluginEditor.h"
#include "sound/AutoBank.h"

#include <gtest/gtest.h>

#include <memory>
#include <thread>
#include <utility>
#include <vector>

namespace juce
{
// JUCE's own step of its message loop: plug-ins have no modal loops, so tests pump with this.
bool dispatchNextMessageOnSystemQueue (bool returnIfNoPendingMessages);
} // namespace juce

// Pumps the message loop for a bounded time: change messages, async updates and timers run.
inline void pump (int ms = 30)
{
    // Runs at least `ms`, and past it until what was posted by then has been delivered, so that a
    // busy machine that keeps this thread waiting does not skip the messages.
    const double end = juce::Time::getMillisecondCounterHiRes() + ms;
    const double limit = end + 2000;
    for (;;)
    {
        const bool delivered = juce::dispatchNextMessageOnSystemQueue (true);
        const double now = juce::Time::getMillisecondCounterHiRes();
        if ((now >= end && ! delivered) || now >= limit)
            break;
        if (! delivered)
            std::this_thread::yield();
    }
}

// Pumps until `done` holds or `ms` have passed; true when it holds.
template <typename Condition>
bool pumpUntil (Condition done, int ms = 5000)
{
    const double end = juce::Time::getMillisecondCounterHiRes() + ms;
    while (! done() && juce::Time::getMillisecondCounterHiRes() < end)
        pump (5);
    return done();
}

// Counts the change messages of one broadcaster, delivered as the message loop would.
struct Heard : juce::ChangeListener
{
    explicit Heard (juce::ChangeBroadcaster& b) : source (b) { source.addChangeListener (this); }
    ~Heard() override { source.removeChangeListener (this); }
    void changeListenerCallback (juce::ChangeBroadcaster*) override { ++count; }
    int take() { return source.dispatchPendingMessages(), std::exchange (count, 0); }

    juce::ChangeBroadcaster& source;
    int count = 0;
};

// A mouse event at (x, y) of `c` for calling its handlers directly, pressed at `down`.
inline juce::MouseEvent mouseAt (juce::Component& c, float x, float y, juce::Point<float> down = {})
{
    const auto now = juce::Time::getCurrentTime();
    return { juce::Desktop::getInstance().getMainMouseSource(), { x, y }, {}, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f,
             &c, &c, now, down, now, 1, false };
}

// A processor on in-process MIDI with the virtual Corvane, and its real editor in a window of its
// own, driven by mouse events through the window's peer as a user would.
class EditorHarness : public LinkedProcessor
{
public:
    EditorHarness() { processor.addListener (&host); }

    ~EditorHarness()
    {
        closeEditor();
        processor.removeListener (&host);
    }

    void openEditor (int width = 1505, int height = 739)
    {
        processor.editorWidth = width;
        processor.editorHeight = height;
        editor.reset (dynamic_cast<DeskerAudioProcessorEditor*> (processor.createEditor()));
        editor->addToDesktop (0);
        editor->setVisible (true);
        // The host's window has the system's focus, as a DAW's has; menus close when it has none.
        editor->getPeer()->grabFocus();
        pump();
    }

    void closeEditor() { editor.reset(); }

    // An open editor with the splash gone and nothing recorded yet.
    void openReady()
    {
        openEditor();
        dismissSplash();
        sent();
        host.changes.clear();
        host.log.clear();
    }

    // Closes the splash (a click anywhere on it), so that the panel takes the mouse.
    void dismissSplash()
    {
        if (main().aboutPanel != nullptr)
            click (juce::Point<float> (5.0f, 200.0f));
        pump();
    }

    // Ends the processor, which writes the data file, and starts a fresh one on the same folder;
    // returns the data file as the first one left it.
    juce::MemoryBlock restartProcessor()
    {
        closeEditor();
        processor.removeListener (&host);
        std::destroy_at (&processor);
        juce::MemoryBlock data;
        folder.dir.getChildFile ("tkdeskerdata.dat").loadFileAsData (data);
        std::construct_at (&processor, folder.dir, &backend);
        processor.addListener (&host);
        return data;
    }

    MainComp& main() { return *editor->getMainComp(); }
    EditorPanel& panel() { return *main().editorPanel; }
    AdvCont& advanced() { return *main().advancedPanel; }
    IvrCont& knob (int parameter) { return *panel().control (parameter); }

    // A click on the tool bar's "BANK" button, which shows or hides the bank window.
    void toggleBanks()
    {
        const bool shown = main().bankPanelShown;
        for (auto* b : main().appBar->buttons)
            if (b->label == "BANK")
                click (centreOf (*b));
        pumpUntil ([&] { return main().bankPanelShown != shown; });
    }

    // The bytes of every bank's store, bank A first.
    std::vector<std::vector<int>> storesNow()
    {
        std::vector<std::vector<int>> stores;
        for (auto* bank : state().banks)
        {
            auto* data = static_cast<const unsigned char*> (bank->bankData.getData());
            stores.emplace_back (data, data + bank->bankData.getSize());
        }
        return stores;
    }

    // Point `local` of `component`, in the editor's coordinates.
    juce::Point<float> at (juce::Component& component, juce::Point<int> local)
    {
        return editor->getLocalPoint (&component, local).toFloat();
    }
    juce::Point<float> centreOf (juce::Component& component) { return at (component, component.getLocalBounds().getCentre()); }

    void mouse (juce::Point<float> position, juce::ModifierKeys mods)
    {
        // As the platform's event handler does before it passes an event on.
        juce::ModifierKeys::currentModifiers = mods;
        editor->getPeer()->handleMouseEvent (juce::MouseInputSource::InputSourceType::mouse, position, mods,
                                             juce::MouseInputSource::defaultPressure, 0.0f, ++clock);
    }

    void press (juce::Point<float> p) { mouse (p, juce::ModifierKeys::leftButtonModifier); }
    void release (juce::Point<float> p) { mouse (p, {}); }
    void click (juce::Point<float> p)
    {
        mouse (p, {});
        press (p);
        release (p);
        pump();
    }

    // A press of the right button, which opens the menus of rows and controls.
    void rightPress (juce::Point<float> p)
    {
        mouse (p, {});
        mouse (p, juce::ModifierKeys::rightButtonModifier);
        mouse (p, {});
        pump();
    }

    // Press at `from`, move in steps to `to` pumping the loop after each, release.
    void drag (juce::Point<float> from, juce::Point<float> to, int steps = 8)
    {
        mouse (from, {});
        press (from);
        for (int i = 1; i <= steps; ++i)
        {
            mouse (from + (to - from) * ((float) i / (float) steps), juce::ModifierKeys::leftButtonModifier);
            pump (5);
        }
        release (to);
        pump();
    }

    void wheel (juce::Point<float> p, float deltaY)
    {
        juce::MouseWheelDetails details {};
        details.deltaY = deltaY;
        mouse (p, {});
        editor->getPeer()->handleMouseWheel (juce::MouseInputSource::InputSourceType::mouse, p, ++clock, details);
        pump();
    }

    // The popup menu open over the editor, if any.
    juce::Component* openMenu()
    {
        for (int i = juce::Desktop::getInstance().getNumComponents(); --i >= 0;)
            if (auto* c = juce::Desktop::getInstance().getComponent (i); c != nullptr && c->getName() == "menu")
                return c;
        return findMenuIn (editor.get());
    }

    // Every open menu window, the outermost first.
    std::vector<juce::Component*> openMenus()
    {
        std::vector<juce::Component*> menus;
        collectMenus (editor.get(), menus);
        for (int i = 0; i < juce::Desktop::getInstance().getNumComponents(); ++i)
            if (auto* c = juce::Desktop::getInstance().getComponent (i); c != nullptr && c->getName() == "menu")
                menus.push_back (c);
        return menus;
    }

    // In the open menu, moves over the items titled `path` in turn, opening each submenu on the way,
    // and clicks the last one. False when an item is missing.
    bool chooseMenu (const juce::StringArray& path)
    {
        if (! pumpUntil ([this] { return ! openMenus().empty(); }))
            return false;
        pump (300); // a menu takes no release in its first 250 ms
        for (int level = 0; level < path.size(); ++level)
        {
            if (! pumpUntil ([&] { return (int) openMenus().size() > level; }))
                return false;
            if (level > 0)
                pump (300); // nor does a submenu
            auto* menu = openMenus()[(size_t) level];
            juce::Component* item = nullptr;
            for (auto* child : menu->getChildren())
                if (auto* handler = child->getAccessibilityHandler(); handler != nullptr && handler->getTitle() == path[level])
                    item = child;
            if (item == nullptr)
                return false;
            const auto p = editor->getLocalPoint (item, item->getLocalBounds().getCentre()).toFloat();
            // The menu's timer reads the system's pointer, so that goes there as well.
            juce::Desktop::setMousePosition (editor->localPointToGlobal (p).roundToInt());
            mouse (p, {});
            pump (100); // the menu watches the mouse on its own timer
            if (level + 1 < path.size())
                continue;
            mouse (p, juce::ModifierKeys::leftButtonModifier);
            pump (100);
            mouse (p, {});
            pump (100);
        }
        return pumpUntil ([this] { return openMenus().empty(); }, 1000);
    }

    static void pump (int ms = 30) { ::pump (ms); }

    HostSide host;
    std::unique_ptr<DeskerAudioProcessorEditor> editor;

private:
    static void collectMenus (juce::Component* parent, std::vector<juce::Component*>& menus)
    {
        for (auto* child : parent->getChildren())
        {
            if (child->getName() == "menu")
                menus.push_back (child);
            collectMenus (child, menus);
        }
    }

    static juce::Component* findMenuIn (juce::Component* parent)
    {
        for (auto* child : parent->getChildren())
        {
            if (child->getName() == "menu")
                return child;
            if (auto* found = findMenuIn (child))
                return found;
        }
        return nullptr;
    }

    juce::int64 clock = juce::Time::currentTimeMillis();
};
