// Read by LeakSanitizer in the sanitizer build. JUCE's LV2 hosting sets the search path of its
// world when it is made and again for every search; the bundled lilv drops the previous copy.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:lilv_world_set_option\n";
}
