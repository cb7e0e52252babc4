// What the leak check passes over in programs with windows: Qt's font and session-bus connections live as long as the
// process, and their libraries keep a few hundred bytes each.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_options();

extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig\nleak:libdbus-1\n";
}

extern "C" const char* __lsan_default_options() {
    return "print_suppressions=0";
}
