#include "librarian/WriteSnd.h"

#include "editor/controls/IvrResor.h"
#include "librarian/RenameCnt.h"
#include "sound/AutoBank.h"

WriteSnd::WriteSnd()
    : categoryButton ("Category", 8, 7)
{
    // The host keeps the keyboard; only the name editor's fields take it, while they are open.
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);
    background = IvrResor::get ("bankSkin");

    for (int bank = 0; bank < 8; ++bank)
    {
        const juce::String text = bank < 7 ? "BANK " + juce::String::charToString ((juce::juce_wchar) ('A' + bank)) : "BANK H-XL";
        auto* button = bankButtons.add (new IvrBut (text, bank, 7));
        button->InitializeMe (85, 111 + 32 * bank, 70, 24, true);
        addAndMakeVisible (button);
        button->addChangeListener (this);
    }
    categoryButton.InitializeMe (85, 372, 70, 24, true);
    okButton.InitializeMe (390, 20, 50, 18, true);
    cancelButton.InitializeMe (325, 20, 50, 18, true);
    for (auto* button : { &categoryButton, &okButton, &cancelButton })
        addAndMakeVisible (button);
    categoryButton.addChangeListener (this);

    grid.Initialize ({ 45, 95, 85, 0 });
    grid.setBounds (170, 106, 270, 288);
    addAndMakeVisible (grid);
    grid.addChangeListener (this);

    lcd.setTopLeftPosition (lcdX, lcdY);
    addAndMakeVisible (lcd);
}

WriteSnd::~WriteSnd() = default;

void WriteSnd::ChangeName (juce::String name)
{
    if (renameBox != nullptr)
        return;

    renameBox = std::make_unique<RenameCnt> (name.substring (0, 12), name.substring (12, 24));
    renameBox->setTopLeftPosition (renameX, renameY);
    addAndMakeVisible (*renameBox);
    renameBox->okButton.addChangeListener (this);
    renameBox->cancelButton.addChangeListener (this);
    renameBox->firstEditor.grabKeyboardFocus();
}

void WriteSnd::setCategory (int category)
{
    lcd.category = category;
    lcd.categoryText = AutoBank::Category (category);
    lcd.repaint();
}

void WriteSnd::listCategory (int category)
{
    grid.Populate (1, category);
}

void WriteSnd::paint (juce::Graphics& g)
{
    g.fillAll (juce::Colour (0x66000000));
    if (background.isValid())
    {
        g.drawImage (background, 0, 0, 500, 444, 0, 0, background.getWidth(), background.getHeight());
        g.drawImage (background, 46, 40, 430, 40, 46, 15, 430, 30);
        g.drawImage (background, 40, 76, 440, 40, 40, 40, 440, 40);
    }

    g.setColour (juce::Colour (0xfff0e8e8));
    g.setFont (juce::Font ("Arial", 13.0f, juce::Font::bold));
    const std::pair<const char*, int> labels[] { { "Destination:", 16 }, { "Name:", 40 }, { "Category:", 63 } };
    for (const auto& [text, y] : labels)
        g.drawText (text, 60, y, 100, 20, juce::Justification::topLeft, true);
}

void WriteSnd::resized() {}

void WriteSnd::changeListenerCallback (juce::ChangeBroadcaster* source)
{
    for (auto* button : bankButtons)
        if (source == button)
            return grid.Populate (0, button->id);

    if (source == &categoryButton)
    {
        actionCode = actionCategoryFilter;
        return sendChangeMessage();
    }

    if (source == &grid)
        return lcd.Set_Num (grid.selectedBank, grid.selectedProgram);

    if (renameBox == nullptr)
        return;
    if (source == &renameBox->okButton)
        takeName();
    if (source == &renameBox->okButton || source == &renameBox->cancelButton)
        closeRenameBox();
}

void WriteSnd::takeName()
{
    const auto name = renameBox->joinedName();
    lcd.fullName = name;
    lcd.nameFirstHalf = name.substring (0, 12);
    lcd.nameSecondHalf = name.substring (12, 24);
    lcd.repaint();
}

void WriteSnd::closeRenameBox()
{
    // Deleting the box from its own button's callback is safe: the message is delivered
    // asynchronously, and nothing of the box is touched after this.
    if (renameBox->hasKeyboardFocus (true))
        renameBox->giveAwayKeyboardFocus();
    renameBox->setVisible (false);
    renameBox.reset();
}
