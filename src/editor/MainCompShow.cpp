// Opening and closing the panels and boxes.

#include "editor/MainComp.h"

#include "device/MidiCntrState.h"
#include "editor/AboutPanel.h"
#include "editor/AdvCont.h"
#include "editor/EditorPanel.h"
#include "editor/KeyBrd.h"
#include "librarian/BankComp.h"

void MainComp::Show_Window (int code, bool show, int extra)
{
    switch (code)
    {
        case 102:
            if (show)
            {
                if (aboutPanel != nullptr)
                    return;
                aboutShown = true;
                aboutPanel = std::make_unique<AboutPanel>();
                if (extra >= 1)
                    aboutPanel->startSelfClosing (extra);
                addAndMakeVisible (*aboutPanel);
                aboutPanel->setBounds (getLocalBounds());
                aboutPanel->setAlwaysOnTop (true);
                aboutPanel->addChangeListener (this);
                aboutPanel->enterModalState (false);
            }
            else
            {
                aboutShown = false;
                if (aboutPanel != nullptr)
                {
                    aboutPanel->stopTimer();
                    aboutPanel->setVisible (false);
                    aboutPanel->exitModalState (0);
                    aboutPanel.reset();
                }
            }
            break;

        case 103:
            bankPanelShown = show;
            if (show)
            {
                bankPanel->useLoadedData = useLoadedData;
                bankPanel->setVisible (true);
                if (advancedShown)
                {
                    advancedShown = false;
                    advancedPanel->setVisible (false);
                    editorPanel->setVisible (true);
                }
            }
            else
            {
                bankPanel->setVisible (false);
            }
            ResizePanels();
            break;

        case 105:
            keyboardShown = show;
            if (show)
            {
                keyboard->setAlwaysOnTop (false);
                keyboard->setAlwaysOnTop (true);
            }
            keyboard->setVisible (show);
            ResizePanels();
            break;

        case 106:
            if (show && bankPanelShown)
                return;
            advancedShown = show;
            editorPanel->setVisible (! show);
            advancedPanel->setVisible (show);
            ResizePanels();
            break;

        default:
            break;
    }
}
