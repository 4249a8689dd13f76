// Read by the sanitizers' own start-up code, in the programs of an instrumented build alone. They
// run before anything else does and call nothing, not even what they check.
extern "C" {

const char* __asan_default_options();
const char* __lsan_default_options();
const char* __lsan_default_suppressions();
const char* __tsan_default_options();

// Stacks as deep as the toolkit's event handling makes them, or a leak's origin stays unnamed.
const char* __asan_default_options() {
    return "detect_leaks=1:malloc_context_size=40:detect_stack_use_after_return=1";
}

const char* __lsan_default_options() {
    return "print_suppressions=0";
}

// The system's font and desktop libraries keep what they cached until the process ends.
const char* __lsan_default_suppressions() {
    return "leak:libfontconfig\n"
           "leak:libdbus-1\n"
           "leak:libQt6XcbQpa\n";
}

const char* __tsan_default_options() {
    return "halt_on_error=1:second_deadlock_stack=1";
}
}
