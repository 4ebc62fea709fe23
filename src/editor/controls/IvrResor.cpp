#include "editor/controls/IvrResor.h"

#include "DeskerResources.h"

juce::Image IvrResor::get (const juce::String& name)
{
    int size = 0;
    const auto resourceName = name + "_png";
    const char* data = DeskerData::getNamedResource (resourceName.toRawUTF8(), size);

    if (data == nullptr || size <= 0)
        return {};

    return juce::ImageCache::getFromMemory (data, size);
}
