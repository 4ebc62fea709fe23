#include "plugin/PluginProcessor.h"
#include "ScratchFolder.h"

#include <gtest/gtest.h>

#include "WindowManagerAtoms.h"
#include <X11/Xlib.h>
#include <X11/Xutil.h>

// The built Standalone, started as a user would under the virtual display of the host tests, with
// a home of its own and no sound card.
namespace
{
// The banner JUCE puts over the editor when it mutes the audio input.
const juce::Colour bannerColour = juce::Colours::lightgoldenrodyellow;

struct X11Connection
{
    X11Connection()
    {
        // A window that goes away between two requests is a failed capture, not the end of the tests.
        XSetErrorHandler ([] (Display*, XErrorEvent*) { return 0; });
        createWindowManagerAtoms (display);
    }

    ~X11Connection()
    {
        if (display != nullptr)
            XCloseDisplay (display);
    }

    // The mapped top-level window of that title, or 0.
    Window findWindow (const char* title) const
    {
        Window root = 0, parent = 0, *children = nullptr;
        unsigned int count = 0;
        Window result = 0;
        if (XQueryTree (display, DefaultRootWindow (display), &root, &parent, &children, &count) == 0)
            return 0;
        for (unsigned int i = 0; i < count && result == 0; ++i)
        {
            XTextProperty name {};
            XWindowAttributes attributes;
            if (XGetWMName (display, children[i], &name) != 0 && name.value != nullptr)
            {
                if (juce::String::fromUTF8 ((const char*) name.value, (int) name.nitems) == title
                    && XGetWindowAttributes (display, children[i], &attributes) != 0 && attributes.map_state == IsViewable)
                    result = children[i];
                XFree (name.value);
            }
        }
        if (children != nullptr)
            XFree (children);
        return result;
    }

    juce::Image capture (Window window) const
    {
        XWindowAttributes attributes;
        if (XGetWindowAttributes (display, window, &attributes) == 0)
            return {};
        XImage* shot = XGetImage (display, window, 0, 0, (unsigned) attributes.width, (unsigned) attributes.height, AllPlanes, ZPixmap);
        if (shot == nullptr)
            return {};
        juce::Image image (juce::Image::RGB, attributes.width, attributes.height, false);
        for (int y = 0; y < attributes.height; ++y)
            for (int x = 0; x < attributes.width; ++x)
                image.setPixelAt (x, y, juce::Colour ((juce::uint32) XGetPixel (shot, x, y)).withAlpha ((juce::uint8) 255));
        XDestroyImage (shot);
        return image;
    }

    // What the window manager's close button sends.
    void askToClose (Window window) const
    {
        XEvent event {};
        event.xclient.type = ClientMessage;
        event.xclient.window = window;
        event.xclient.message_type = XInternAtom (display, "WM_PROTOCOLS", False);
        event.xclient.format = 32;
        event.xclient.data.l[0] = (long) XInternAtom (display, "WM_DELETE_WINDOW", False);
        event.xclient.data.l[1] = CurrentTime;
        XSendEvent (display, window, False, NoEventMask, &event);
        XFlush (display);
    }

    Display* const display = XOpenDisplay (nullptr);
};

// One run of the Standalone: started, its window found and drawn, then closed by the user.
struct StandaloneRun
{
    StandaloneRun (const X11Connection& x11, const juce::File& home) : x11 (x11)
    {
        started = app.start (juce::StringArray { "/usr/bin/env", "HOME=" + home.getFullPathName(), DESKER_STANDALONE }, 0);
        const auto deadline = juce::Time::getMillisecondCounter() + 20000;
        while (started && window == 0 && app.isRunning() && juce::Time::getMillisecondCounter() < deadline)
        {
            window = x11.findWindow ("Corvane Desker");
            juce::Thread::sleep (50);
        }
        // Drawn once the editor's dark panel fills most of the window and nothing has changed for
        // two seconds, longer than the start-up splash stays.
        auto unchangedSince = juce::Time::getMillisecondCounter();
        while (window != 0 && juce::Time::getMillisecondCounter() < deadline)
        {
            auto next = x11.capture (window);
            if (! sameImage (next, shot))
                unchangedSince = juce::Time::getMillisecondCounter();
            shot = next;
            if (darkShare (shot) > 0.5 && juce::Time::getMillisecondCounter() - unchangedSince >= 2000)
                break;
            juce::Thread::sleep (100);
        }
    }

    static bool sameImage (const juce::Image& a, const juce::Image& b)
    {
        if (! a.isValid() || ! b.isValid() || a.getBounds() != b.getBounds())
            return false;
        for (int y = 0; y < a.getHeight(); ++y)
            for (int x = 0; x < a.getWidth(); ++x)
                if (a.getPixelAt (x, y) != b.getPixelAt (x, y))
                    return false;
        return true;
    }

    static double darkShare (const juce::Image& image)
    {
        if (! image.isValid())
            return 0.0;
        int dark = 0;
        for (int y = 0; y < image.getHeight(); y += 4)
            for (int x = 0; x < image.getWidth(); x += 4)
                dark += image.getPixelAt (x, y).getBrightness() < 0.3f ? 1 : 0;
        return dark / (double) (((image.getWidth() + 3) / 4) * ((image.getHeight() + 3) / 4));
    }

    // True when the app ended by itself, without error, after the close request.
    bool close()
    {
        if (window != 0)
            x11.askToClose (window);
        return app.waitForProcessToFinish (20000) && app.getExitCode() == 0;
    }

    const X11Connection& x11;
    juce::ChildProcess app;
    bool started = false;
    Window window = 0;
    juce::Image shot;
};
} // namespace

TEST (StandaloneApp, ShowsTheEditorWithNoBannerWithoutSoundCardStaysUpUntilClosedAndKeepsItsSize)
{
    X11Connection x11;
    ASSERT_NE (x11.display, nullptr);
    const auto* display = juce::Desktop::getInstance().getDisplays().getPrimaryDisplay();
    ASSERT_NE (display, nullptr);
    const auto firstSize = DeskerAudioProcessor::editorSizeForDisplayHeight (display->userArea.getHeight());
    ScratchFolder scratch;
    const auto& home = scratch.dir;
    const auto settingsFile = home.getChildFile (".config/Corvane Desker.settings");

    int firstWidth = 0, firstHeight = 0;
    {
        StandaloneRun run (x11, home);
        ASSERT_TRUE (run.started);
        ASSERT_NE (run.window, 0u) << "no window titled Corvane Desker";
        ASSERT_GT (StandaloneRun::darkShare (run.shot), 0.5) << "the editor was not drawn";
        const auto png = juce::File::getCurrentWorkingDirectory().getChildFile ("standalone-window.png");
        png.deleteFile();
        juce::FileOutputStream out (png);
        juce::PNGImageFormat().writeImageToStream (run.shot, out);
        std::cout << "screenshot: " << png.getFullPathName() << std::endl;

        int bannerPixels = 0;
        for (int y = 0; y < run.shot.getHeight(); ++y)
            for (int x = 0; x < run.shot.getWidth(); ++x)
                bannerPixels += run.shot.getPixelAt (x, y) == bannerColour ? 1 : 0;
        EXPECT_EQ (bannerPixels, 0);

        firstWidth = run.shot.getWidth();
        firstHeight = run.shot.getHeight();
        EXPECT_TRUE (run.app.isRunning());
        EXPECT_TRUE (run.close());
    }

    // The editor's size went to the settings at the close; a size written there is the next run's.
    {
        juce::PropertiesFile settings (settingsFile, {});
        EXPECT_EQ (juce::Point<int> (settings.getIntValue ("editorWidth"), settings.getIntValue ("editorHeight")), firstSize);
        settings.setValue ("editorWidth", 1200);
        settings.setValue ("editorHeight", 600);
        ASSERT_TRUE (settings.save());
    }
    {
        StandaloneRun run (x11, home);
        ASSERT_NE (run.window, 0u);
        EXPECT_EQ (run.shot.getWidth() - firstWidth, 1200 - firstSize.x);
        EXPECT_EQ (run.shot.getHeight() - firstHeight, 600 - firstSize.y);
        EXPECT_TRUE (run.close());
    }
}
