#pragma once

// Which control edits which sound parameter, with its label, kind, display code, range and place in
// design pixels. The position in each table is the parameter number: control k edits parameter k.
struct ControlEntry
{
    const char* label;
    int kind;
    int displayCode;
    int minimum;
    int maximum;
    // Width 0: the control gets no place and no size.
    int x, y, width, height;
};

struct ControlTable
{
    // The instrument panel's controls 17 to 66 (indices below 17 read the advanced table's labels
    // and codes); null outside.
    static const ControlEntry* panel (int parameter);
    // The advanced page's controls 0 to 113; null outside.
    static const ControlEntry* advanced (int parameter);

    static constexpr int numPanelControls = 67;
    static constexpr int numAdvancedControls = 114;
};
